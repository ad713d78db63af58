#include "results_site.h"

#include "core/contacts.h"
#include "core/db.h"
#include "core/routines.h"

namespace Results_Site {

static const QString CR = QStringLiteral("\r");

QString Folder_Name(const QString &competitionName)
{
    QString out = competitionName;
    for (const QChar c : QStringLiteral("/\\:*?<>|&"))
        out.remove(c);
    return out;
}

QString Style_Sheet()
{
    return QStringLiteral(
        "H2 {font-size: 11pt;font-family:  Arial;color: black;background-color: white;}"
        "H1 {font-size: 10pt;font-family:  Arial;color: black;fontWeight=bold;background-color: white;}"
        "BODY {font-size: 9pt;font-family:  Arial;color: black;background-color: white;}"
        "TD {font-size: 9pt;font-family:  Arial;color: black;}"
        "A {font-size: 9pt;font-family:  Arial;color: black;}"
        ".no {font-size: 9pt;font-family:  Arial;color: white;}");
}

QString Publisher_Link()
{
    return QStringLiteral("<a href=%1>Computed by Strathmark (%1)</a>").arg(QLatin1String(Contacts::Publisher_Url));
}

QString Index_Head(const Site_Source &src)
{
    return QStringLiteral("<html><head><title> Highland Dancing Results ") + src.compDate
        + QStringLiteral("</title><LINK href=main.css rel=stylesheet></head><body><H2>") + src.compName
        + QLatin1Char(' ') + src.compDate + QStringLiteral("<br>Highland Dancing Results</H2><table>");
}

QString Index_Foot()
{
    return QStringLiteral("</table>") + Publisher_Link() + QStringLiteral("</body></html>");
}

static QString Winner_Condition(const Site_Source &src, const QString &table, const QString &group)
{
    return QStringLiteral(" FROM %1 d, competitors c WHERE c.competition_id = %2 AND d.group_id = '%3' AND "
                          "c.competition_id = d.competition_id AND c.competitor_id = d.competitor_id AND "
                          "d.placing = 1 ORDER BY d.placing")
        .arg(table, src.id(), Sql_Quote(group));
}

// Adds each winner behind the label, which is then used up.
static void Add_Winners(const Site_Source &src, const QString &table, const QString &group, QString &label,
                        QString &out)
{
    RowSet r = src.conn.query(
        QStringLiteral("SELECT ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') || ', ' || ifnull(c.town,'') "
                       "AS surname") + Winner_Condition(src, table, group));
    for (; !r.eof(); r.next()) {
        out += label + r.text("surname");
        label.clear();
    }
}

QString Index_Row(const Site_Source &src, const Site_Event &ev)
{
    QString out = QStringLiteral("<tr><td valign=top><a href=") + ev.groupId + QStringLiteral(".htm>") + ev.name
        + QStringLiteral(" </a></td><td><a href=") + ev.groupId + QStringLiteral(".htm>");
    if (ev.category == QLatin1String("PS") || ev.category == QLatin1String("C")) {
        RowSet r = src.conn.query(QStringLiteral("SELECT c.forename, c.surname, c.town")
                                  + Winner_Condition(src, QStringLiteral("highland_results"), ev.groupId));
        for (; !r.eof(); r.next())
            out += r.text("forename") + QLatin1Char(' ') + r.text("surname") + QStringLiteral(", ") + r.text("town");
    } else {
        const QString split = Cell(src.conn.scalar(
            QStringLiteral("SELECT a.split_overalls FROM age_groups a WHERE a.competition_id = %1 AND "
                           "a.competition_group_id = '%2'").arg(src.id(), Sql_Quote(ev.groupId))));
        QString highland = QStringLiteral("Highland: ");
        QString national = QStringLiteral("<br>National: ");
        QString overall = QStringLiteral("<br>Overall: ");
        if (split == QLatin1String("Y")) {
            Add_Winners(src, QStringLiteral("highland_results"), ev.groupId, highland, out);
            Add_Winners(src, QStringLiteral("national_results"), ev.groupId, national, out);
            if (!highland.isEmpty() || !national.isEmpty())
                overall.clear();
        } else {
            overall = QStringLiteral("Overall: ");
        }
        Add_Winners(src, QStringLiteral("overall_results"), ev.groupId, overall, out);
    }
    return out + QStringLiteral("</a></td></tr>") + CR;
}

// One line of placings from a result table; true when it had a row.
static bool Results_Block(const Site_Source &src, const Site_Event &ev, const QString &table, const QString &label,
                          QString &out)
{
    RowSet r = src.conn.query(
        QStringLiteral("SELECT c.forename,  c.surname, d.placing, d.tie FROM %1 d, competitors c WHERE "
                       "c.competition_id = %2 AND d.group_id = '%3' AND c.competition_id = d.competition_id AND "
                       "c.competitor_id = d.competitor_id ORDER BY d.placing")
            .arg(table, src.id(), Sql_Quote(ev.groupId)));
    if (!r.eof())
        out += label;
    const bool any = !r.eof();
    for (; !r.eof(); r.next())
        out += Cell(r.value("placing")) + r.text("tie") + QStringLiteral(") ") + r.text("forename")
            + QLatin1Char(' ') + r.text("surname") + QLatin1Char(' ');
    return any;
}

static QString Dance_Results(const Site_Source &src, const Site_Event &ev)
{
    QString out = QStringLiteral("<br><br><B>Dance Results</B><table><tr><td valign=top>");
    RowSet r = src.conn.query(
        QStringLiteral("SELECT c.competitor_id, c.forename, c.surname, ifnull(d.placing,'') || ' ' || "
                       "ifnull(d.tie,'') AS placing, d.dance_id, da.dance FROM overall_dance_results d, "
                       "competitors c, dances da WHERE c.competition_id = %1 AND d.group_id = '%2' AND "
                       "d.competition_id = %1 AND c.competitor_id = d.competitor_id AND d.points > 0 AND "
                       "d.dance_id = da.dance_id ORDER BY d.dance_id, d.points DESC, placing")
            .arg(src.id(), Sql_Quote(ev.groupId)));
    QString last = QStringLiteral("9999");
    bool any = false;
    for (; !r.eof(); r.next()) {
        const QString dance = Cell(r.value("dance_id"));
        if (dance != last) {
            if (any)
                out += QStringLiteral("</table></td><td valign=top>");
            out += QStringLiteral("<table><tr><td colspan=2>") + src.letters.Hide_Blanks(r.text("dance"))
                + QStringLiteral("</td></tr>") + CR;
            last = dance;
            any = true;
        }
        out += QStringLiteral("<tr><td>") + r.text("placing") + QStringLiteral("</td><td> ") + r.text("forename")
            + QLatin1Char(' ') + r.text("surname") + QStringLiteral(" </td></tr>") + CR;
    }
    if (any)
        out += QStringLiteral("</table></td></tr>") + CR + QStringLiteral("</table>");
    return out;
}

static QString Judges_Table(const Site_Source &src, const Site_Event &ev)
{
    RowSet r = src.conn.query(
        QStringLiteral("SELECT d.competitor_id, d.placing, d.dance_id, d.result_no, j.judge_id FROM dance_results "
                       "AS d LEFT JOIN judges_results_judges AS j ON (d.result_no = j.result_no) AND (d.dance_id = "
                       "j.dance_id ) AND (d.group_id = j.group_id) AND ( d.competition_id = j.competition_id) Where "
                       "d.competition_id = %1 AND d.group_id = '%2' ORDER BY 3, 4, 2")
            .arg(src.id(), Sql_Quote(ev.groupId)));
    QString out;
    QString lastDance = QStringLiteral("9999");
    QString lastResult = QStringLiteral("9999");
    bool any = false;
    for (; !r.eof(); r.next()) {
        const QString dance = Cell(r.value("dance_id"));
        const QString result = Cell(r.value("result_no"));
        const bool noJudge = r.isNull("judge_id");
        if (dance != lastDance) {
            out += any ? QStringLiteral("</table></table></td>")
                       : QStringLiteral("<br><B>Judges Results</B><table width=950 border=0 cellspacing=1 "
                                        "cellpadding=1><tr>");
            out += QStringLiteral("<td valign=top><table width=100% border=0 cellpadding=1><tr><td colspan=3 "
                                  "align=center>")
                + src.letters.Hide_Blanks(src.dance(r.value("dance_id"))) + QStringLiteral("</td></tr>") + CR;
            if (noJudge)
                out += QStringLiteral("<tr><td valign=top><table><tr><td colspan=2> - </td></tr>") + CR;
            else
                out += QStringLiteral("<tr><td valign=top><table><tr><td colspan=2>")
                    + src.judge(r.value("judge_id")) + QStringLiteral("</td></tr>");
            lastDance = dance;
            lastResult = result;
            any = true;
        } else if (result != lastResult) {
            if (noJudge)
                out += QStringLiteral("</table></td><td valign=top><table><tr><td colspan=2> - </td></tr>") + CR;
            else
                out += QStringLiteral("</table></td><td valign=top><table><tr><td colspan=2>")
                    + src.letters.Hide_Blanks(src.judge(r.value("judge_id"))) + QStringLiteral("</td></tr>") + CR;
            lastResult = result;
        }
        out += QStringLiteral("<tr><td>") + Cell(r.value("placing")) + QStringLiteral("</td><td>")
            + Cell(r.value("competitor_id")) + QStringLiteral("</td></tr>") + CR;
    }
    if (any)
        out += QStringLiteral("</table></table></td></tr>") + CR + QStringLiteral("</table>");
    return out;
}

static QString Placed_Competitors(const Site_Source &src, const Site_Event &ev)
{
    QString out = QStringLiteral("<B>Competitors with placings</B><br>");
    RowSet r = src.conn.query(
        QStringLiteral("Select DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as "
                       "name FROM competitors c, dance_results o WHERE o.competition_id = %1 AND c.competition_id = "
                       "o.competition_id  AND o.competitor_id = c.competitor_id  AND o.group_id = '%2' AND placing "
                       "<= 6 ORDER BY 1")
            .arg(src.id(), Sql_Quote(ev.groupId)));
    for (; !r.eof(); r.next())
        out += Cell(r.value("competitor_id")) + QLatin1Char(' ') + r.text("name") + QLatin1Char(' ');
    return out;
}

QString Event_Page(const Site_Source &src, const Site_Event &ev)
{
    QString out = QStringLiteral("<html><head><title> ") + ev.name + QStringLiteral("  ") + src.compDate
        + QStringLiteral("</title><LINK href=main.css rel=stylesheet></head><body><H2>") + src.compName
        + QLatin1Char(' ') + src.compDate + QStringLiteral("<br>") + ev.name + QStringLiteral(" </H2><table>");
    const bool threeJudge = ev.category == QLatin1String("PS") || ev.category == QLatin1String("C");
    const QString first = ev.category == QLatin1String("C")    ? QStringLiteral("<B>Championship Results</B><br>")
                          : ev.category == QLatin1String("PS") ? QStringLiteral("<B>Premiership Results</B><br>")
                                                               : QStringLiteral("Highland: ");
    bool any = Results_Block(src, ev, QStringLiteral("highland_results"), first, out);
    any = Results_Block(src, ev, QStringLiteral("national_results"), QStringLiteral("<br>National: "), out) || any;
    Results_Block(src, ev, QStringLiteral("overall_results"), any ? QStringLiteral("<br>Overall: ") : QString(), out);
    out += Dance_Results(src, ev);
    if (threeJudge)
        out += Judges_Table(src, ev) + Placed_Competitors(src, ev);
    return out + QStringLiteral("<br><br><a href=index.htm>Back to Dance Results Index</a><br>") + Publisher_Link()
        + QStringLiteral("</body></html>");
}

QString Run(Site_Source &src, const QString &location, const QList<Site_Event> &selected,
            const std::function<void()> &step)
{
    const QString html = Folder_In(location, QStringLiteral("Html"));
    Make_Folder(html);
    Make_Folder(html + Folder_Name(src.compName));
    // The files go to the folder named as the competition stands, which the cleaning
    // above may not have made: then the first write fails.
    const QString folder = html + src.compName + QLatin1Char('/');
    Write_Page(folder + QStringLiteral("main.css"), Style_Sheet());
    QString index = Index_Head(src);
    for (const Site_Event &ev : selected) {
        index += Index_Row(src, ev);
        Build_Page([&] { Write_Page(folder + ev.groupId + QStringLiteral(".htm"), Event_Page(src, ev)); });
        if (step)
            step();
    }
    Write_Page(folder + QStringLiteral("index.htm"), index + Index_Foot());
    return html;
}

} // namespace Results_Site
