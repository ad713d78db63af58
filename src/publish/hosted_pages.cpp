#include "hosted_frame.h"
#include "hosted_site.h"

#include "core/db.h"
#include "core/routines.h"

#include <QMap>
#include <QVector>

using namespace Hosted_Frame;

namespace Hosted_Site {

static QString Heading_Text(const Site_Source &src, const Titles &t, const QString &what)
{
    return src.compName + QLatin1Char(' ') + src.compDate + QStringLiteral("<br>") + t.ageGroup + QLatin1Char(' ')
        + t.title + what;
}

static QString Result_Rows(const Site_Source &src, const Site_Event &ev, QString &winnerBlock)
{
    RowSet r = src.conn.query(
        QStringLiteral("SELECT ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') AS name, c.town, d.placing, "
                       "d.tie, d.dance_points, d.total_dance_points FROM highland_results d, competitors c WHERE "
                       "c.competition_id = %1 AND d.group_id = '%2' AND c.competition_id = d.competition_id AND "
                       "c.competitor_id = d.competitor_id ORDER BY d.placing").arg(src.id(), Sql_Quote(ev.groupId)));
    winnerBlock = QStringLiteral("</TD></TR><TR vAlign=top><TD class=playerbio><br>Winner: ")
        + (r.eof() ? QString() : r.text("name") + QStringLiteral("<BR>Town/ Country: ") + r.text("town")
                                     + QStringLiteral("<BR>Dance Points: ") + Cell(r.value("dance_points")))
        + QStringLiteral("</TD></TR></TABLE>\r\n");
    const bool championship = ev.category == QLatin1String("C");
    QString out;
    for (; !r.eof(); r.next()) {
        const QString name = src.letters.Hide_Blanks(r.text("name"));
        const QString nameCell = championship
            ? QStringLiteral("<a href=") + ev.groupId + QStringLiteral("s.htm>") + name + QStringLiteral("</a>")
            : name;
        out += Row(src, {Cell(r.value("placing")) + r.text("tie"), nameCell, r.text("town"),
                         Cell(r.value("dance_points")), Cell(r.value("total_dance_points"))});
    }
    return out + QStringLiteral("</TABLE>\r\n");
}

// The placings of each dance, in columns of fixed dances side by side.
static QString Championship_Dances(const Site_Source &src, const Site_Event &ev)
{
    static const QList<int> ids{1, 2, 3, 4};
    QString out = Band_Table(QStringLiteral("DANCE RESULTS"), {QStringLiteral("Fling"), QStringLiteral("Sword"),
                                                               QStringLiteral("Sean Truibhas"), QStringLiteral("Reel")});
    QMap<int, QStringList> columns;
    RowSet r = src.conn.query(
        QStringLiteral("SELECT ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') AS name, d.placing, d.tie, "
                       "d.dance_id FROM overall_dance_results d, competitors c WHERE c.competition_id = %1 AND "
                       "d.group_id = '%2' AND d.competition_id = %1 AND c.competitor_id = d.competitor_id AND "
                       "d.points > 0 ORDER BY d.dance_id, d.placing").arg(src.id(), Sql_Quote(ev.groupId)));
    for (; !r.eof(); r.next())
        columns[r.value("dance_id").toInt()] << Cell(r.value("placing")) + r.text("tie") + QStringLiteral(") ")
                + src.letters.Hide_Blanks(r.text("name"));
    int rows = 0;
    for (int id : ids)
        rows = qMax(rows, int(columns.value(id).size()));
    for (int i = 0; i < rows; ++i) {
        QStringList cells;
        for (int id : ids)
            cells << columns.value(id).value(i);
        out += Row(src, cells);
    }
    return out + QStringLiteral("</TABLE>\r\n");
}

// Each judge's placed numbers for two dances: six columns.
static QString Judges_Block(const Site_Source &src, const Site_Event &ev, int first, int second)
{
    const QString dances = QStringLiteral("(jr.dance_id = %1 OR jr.dance_id = %2)").arg(first).arg(second);
    RowSet j = src.conn.query(QStringLiteral("SELECT j.forename, j.surname FROM judges_results_judges jr, judges j "
                                             "where jr.competition_id = %1 AND jr.group_id = '%2' AND %3 AND "
                                             "j.judge_id = jr.judge_id ORDER BY dance_id, result_no")
                                  .arg(src.id(), Sql_Quote(ev.groupId), dances));
    QStringList heads;
    for (; !j.eof(); j.next())
        heads << src.letters.Hide_Blanks(j.text("forename") + QLatin1Char(' ') + j.text("surname"));
    while (heads.size() < 6)
        heads << QString();
    QString out = QStringLiteral("<TR><TD class=columnrow colSpan=3 align=center>") + src.dance(first)
        + QStringLiteral("</TD><TD class=columnrow colSpan=3 align=center>") + src.dance(second)
        + QStringLiteral("</TD></TR>\r\n<TR>");
    for (const QString &h : heads.mid(0, 6))
        out += QStringLiteral("<TD class=columnrow width=16%>") + h + QStringLiteral("</TD>");
    out += QStringLiteral("</TR>\r\n");
    RowSet p = src.conn.query(QStringLiteral("SELECT competitor_id, placing, dance_id, result_no FROM dance_results "
                                             "WHERE group_id = '%1' AND competition_id = %2 AND (dance_id = %3 OR "
                                             "dance_id = %4) ORDER BY dance_id, result_no, placing")
                                  .arg(Sql_Quote(ev.groupId), src.id())
                                  .arg(first)
                                  .arg(second));
    QVector<QStringList> columns;
    QString last;
    for (; !p.eof(); p.next()) {
        const QString key = Cell(p.value("dance_id")) + QLatin1Char('/') + Cell(p.value("result_no"));
        if (key != last || columns.isEmpty())
            columns.append(QStringList());
        last = key;
        columns.last() << Cell(p.value("placing")) + QStringLiteral(") ") + Cell(p.value("competitor_id"));
    }
    int rows = 0;
    for (const QStringList &c : columns)
        rows = qMax(rows, int(c.size()));
    for (int i = 0; i < rows; ++i) {
        QStringList cells;
        for (int c = 0; c < 6; ++c)
            cells << (c < columns.size() ? columns[c].value(i) : QString());
        out += Row(src, cells);
    }
    return out;
}

static QString Event_Dances(const Site_Source &src, const Site_Event &ev)
{
    QString out = Band_Table(QStringLiteral("DANCE RESULTS"), {}) + QStringLiteral("</TABLE>\r\n<table width=100%><tr>");
    RowSet r = src.conn.query(
        QStringLiteral("SELECT c.forename, c.surname, d.placing, d.dance_id, da.dance FROM overall_dance_results d, "
                       "competitors c, dances da WHERE c.competition_id = %1 AND d.group_id = '%2' AND "
                       "d.competition_id = %1 AND c.competitor_id = d.competitor_id AND d.points > 0 AND d.dance_id "
                       "= da.dance_id ORDER BY d.dance_id, d.placing").arg(src.id(), Sql_Quote(ev.groupId)));
    int cells = 0;
    QString last;
    for (; !r.eof(); r.next()) {
        const QString dance = Cell(r.value("dance_id"));
        if (cells == 0 || dance != last) {
            if (cells > 0)
                out += cells % 4 == 0 ? QStringLiteral("</table></td></tr><tr>") : QStringLiteral("</table></td>");
            out += QStringLiteral("<td width=25% class=scorerow valign=top><table border = 0><tr><td class=columnrow "
                                  "colspan=2><B>") + r.text("dance") + QStringLiteral("</B></td></tr>\r");
            ++cells;
            last = dance;
        }
        out += QStringLiteral("<td class=scorerow>") + Cell(r.value("placing")) + QStringLiteral("</td><td>")
            + src.letters.Hide_Blanks(r.text("forename") + QLatin1Char(' ') + r.text("surname"))
            + src.letters.hidden() + QStringLiteral("</td></tr>");
    }
    if (cells > 0)
        out += QStringLiteral("</table></td>");
    return out + QStringLiteral("</tr></table>\r\n");
}

static QString Placed_Rows(const Site_Source &src, const Site_Event &ev)
{
    QString out = Band_Table(QStringLiteral("COMPETITORS WITH PLACINGS"), {QStringLiteral("Number"), QStringLiteral("Name")});
    RowSet r = src.conn.query(
        QStringLiteral("Select DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as "
                       "name FROM competitors c, dance_results o WHERE o.competition_id = %1 AND c.competition_id = "
                       "o.competition_id  AND o.competitor_id = c.competitor_id  AND o.group_id = '%2' AND placing "
                       "<= 6 ORDER BY 1").arg(src.id(), Sql_Quote(ev.groupId)));
    for (; !r.eof(); r.next())
        out += Row(src, {Cell(r.value("competitor_id")), src.letters.Hide_Blanks(r.text("name"))});
    return out + QStringLiteral("</TABLE>\r\n");
}

QString Results_Page(const Site_Source &src, const Site_Event &ev)
{
    const bool championship = ev.category == QLatin1String("C");
    const Titles t = Event_Titles(src, ev);
    QString winner;
    const QString results = Band_Table(championship ? QStringLiteral("CHAMPIONSHIP RESULT") : QStringLiteral("HIGHLAND RESULT"),
                                       {QStringLiteral("Placing"), QStringLiteral("Name"), QStringLiteral("Town/ Country"),
                                        QStringLiteral("Dance Points"), QStringLiteral("Judges Points")})
        + Result_Rows(src, ev, winner);
    QString out = Head(src) + Heading_Open(Heading_Text(src, t, QStringLiteral(" - Results"))) + winner + results;
    if (championship) {
        out += Championship_Dances(src, ev) + Band_Table(QStringLiteral("JUDGES RESULTS"), {}, 6)
            + Judges_Block(src, ev, 1, 2) + Judges_Block(src, ev, 3, 4) + QStringLiteral("</TABLE>\r\n");
    } else {
        out += Event_Dances(src, ev);
    }
    if (championship || ev.category == QLatin1String("PS"))
        out += Placed_Rows(src, ev);
    return out
        + Footer({{QStringLiteral("Results Index"), QStringLiteral("index.htm")},
                  {QStringLiteral("Dancers in group"), ev.groupId + QStringLiteral("c.htm")},
                  {QStringLiteral("Group Stats"), ev.groupId + QStringLiteral("s.htm")},
                  {QStringLiteral("Dancers Index"), QStringLiteral("competitors.htm")}});
}

// One bar a place: 25 pixels a time the place was won, in a row of 320.
static QString Bars(const Site_Source &src, const Site_Event &ev, const QString &table, const QString &number)
{
    static const QStringList colours{QStringLiteral("red"), QStringLiteral("blue"), QStringLiteral("green"),
                                     QStringLiteral("brown"), QStringLiteral("yellow"), QStringLiteral("grey")};
    static const QStringList labels{QStringLiteral("1st"), QStringLiteral("2nd"), QStringLiteral("3rd"),
                                    QStringLiteral("4th"), QStringLiteral("5th"), QStringLiteral("6th")};
    RowSet r = src.conn.query(QStringLiteral("SELECT placing, count(*) as num_placings FROM %1 WHERE group_id = '%2' "
                                             "and competition_id = %3 AND competitor_id = %4 AND placing <=6 GROUP BY "
                                             "placing").arg(table, Sql_Quote(ev.groupId), src.id(), number));
    QString out;
    for (; !r.eof(); r.next()) {
        const int place = r.value("placing").toInt() - 1;
        const int count = r.value("num_placings").toInt();
        out += QStringLiteral("<tr><td width=60px>%1 x %2</td><td><table border=0 width=320px><tr><td width=%3px "
                              "height=10px bgcolor=%4></td><td width=%5px></td></tr></table></td></tr>")
                   .arg(count)
                   .arg(labels.value(place), QString::number(count * 25), colours.value(place),
                        QString::number(320 - count * 25));
    }
    return out;
}

QString Statistics_Page(const Site_Source &src, const Site_Event &ev)
{
    const Titles t = Event_Titles(src, ev);
    QString out = Head(src) + Heading(Heading_Text(src, t, QStringLiteral(" - Dance Statistics")));
    RowSet r = src.conn.query(
        QStringLiteral("SELECT ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name, d.competitor_id, "
                       "d.placing, d.dance_points, d.total_dance_points FROM highland_results d, competitors c WHERE "
                       "c.competition_id = %1 AND d.group_id = '%2' AND c.competition_id = d.competition_id AND "
                       "c.competitor_id = d.competitor_id ORDER BY d.placing").arg(src.id(), Sql_Quote(ev.groupId)));
    for (; !r.eof(); r.next()) {
        const QString number = Cell(r.value("competitor_id"));
        out += Band_Table(Cell(r.value("placing")) + QStringLiteral(" - ") + r.text("name"),
                          {QStringLiteral("Dance Placings (") + Cell(r.value("dance_points")) + QStringLiteral(" points)"),
                           QStringLiteral("Judges Placings (") + Cell(r.value("total_dance_points"))
                               + QStringLiteral(" points)")})
            + QStringLiteral("<TR vAlign=top><TD width=50%><table border=0>")
            + Bars(src, ev, QStringLiteral("overall_dance_results"), number)
            + QStringLiteral("</table></TD><TD width=50%><table border=0>")
            + Bars(src, ev, QStringLiteral("dance_results"), number) + QStringLiteral("</table></TD></TR></TABLE>\r\n");
    }
    return out
        + Footer({{QStringLiteral("Results Index"), QStringLiteral("index.htm")},
                  {QStringLiteral("Group Results"), ev.groupId + QStringLiteral(".htm")},
                  {QStringLiteral("Dancers in group"), ev.groupId + QStringLiteral("c.htm")},
                  {QStringLiteral("Competitors Index"), QStringLiteral("competitors.htm")}});
}

} // namespace Hosted_Site
