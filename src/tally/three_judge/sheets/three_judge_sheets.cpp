#include "three_judge_sheets.h"
#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "reports/report.h"

#include <QMap>

namespace ThreeJudge {
namespace {

const QString Crlf = QStringLiteral("\r\n");

QString id(short v) { return QString::number(v); }
QString quoted(const QString &code) { return QLatin1Char('\'') + Sql_Quote(code) + QLatin1Char('\''); }

// The header every sheet shares: competition, event and date.
std::shared_ptr<Report> withHeader(Connection &conn, const QString &design, const Sheet_Event &e, bool header = true)
{
    auto report = Report::Load(design);
    report->Controls(QStringLiteral("Section3"), QStringLiteral("Footer")).Caption = Footer_Text();
    if (!header)
        return report;
    const QString date = conn.scalar(QStringLiteral("Select competition_date FROM competitions WHERE competition_id = ") + id(e.competition))
                             .toString();
    report->Controls(QStringLiteral("Section4"), QStringLiteral("cname")).Caption = Current_Competition_Name;
    report->Controls(QStringLiteral("Section4"), QStringLiteral("aname")).Caption = e.eventText;
    report->Controls(QStringLiteral("Section4"), QStringLiteral("compdate")).Caption = date;
    return report;
}

// Numbers behind a heading, each followed by a blank, a new line after the twentieth.
QString numberBlock(RowSet rows, const QString &heading)
{
    QString text = heading;
    int n = 0;
    for (; !rows.eof(); rows.next()) {
        text += rows.value(0).toString() + QLatin1Char(' ');
        if (++n == 20)
            text += Crlf;
    }
    return text;
}

// The overall sheet's dance lists.
void fillDanceLists(Connection &conn, Report &r, const Sheet_Event &e)
{
    const QString c = id(e.competition);
    const bool points = Opt_Judges_Points;
    QString sql = QStringLiteral("SELECT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') || ', ' || ifnull(c.town,'') AS surname, ");
    if (points)
        sql += QStringLiteral("d.placing AS place, ");
    sql += QStringLiteral("ifnull(d.placing,'') || ' ' || ifnull(d.tie,'') AS placing, d.dance_id FROM overall_dance_results d, competitors c");
    if (e.premiership)
        sql += QStringLiteral(", category_dances dc");
    sql += QStringLiteral(" WHERE c.competition_id = ") + c + QStringLiteral(" AND d.group_id = ") + quoted(e.group)
           + QStringLiteral(" AND d.competition_id = ") + c;
    // The category's order of this competition only: other competitions' rows would repeat each line.
    if (e.premiership)
        sql += QStringLiteral(" AND dc.category_id = 'PS' AND dc.competition_id = ") + c + QStringLiteral(" AND d.dance_id = dc.dance_id");
    sql += QStringLiteral(" AND c.competitor_id = d.competitor_id");
    if (!points)
        sql += QStringLiteral(" AND d.points > 0");
    sql += e.premiership ? QStringLiteral(" ORDER BY dc.orderby, d.points DESC, placing")
                         : QStringLiteral(" ORDER BY d.dance_id, d.points DESC, placing");

    const QStringList labels = {QStringLiteral("dance1"), QStringLiteral("Dance2"), QStringLiteral("Dance3"), QStringLiteral("Dance4")};
    auto addDanceText = [&](short danceId, const QString &text) {
        for (int n = 1; n <= 4; ++n) {
            if (e.Dance_Id(n) == danceId) {
                r.Controls(QStringLiteral("Section2"), labels[n - 1]).Caption = text + Crlf + Crlf;
                return;
            }
        }
    };
    RowSet rows = conn.query(sql);
    QString text;
    bool pointsHeading = false;
    short dance = -1;
    for (; !rows.eof(); rows.next()) {
        const short rowDance = rows.toShort(QStringLiteral("dance_id"));
        if (rowDance != dance) {
            if (dance != -1)
                addDanceText(dance, text);
            text.clear();
            pointsHeading = false;
            dance = rowDance;
        }
        const QString who = rows.text(QStringLiteral("competitor_id")) + QLatin1Char(' ') + rows.text(QStringLiteral("surname"));
        if (points && rows.value(QStringLiteral("place")).toInt() >= 7) {
            if (!pointsHeading) {
                text += Crlf + Crlf + QStringLiteral("---- Championship Points ----");
                pointsHeading = true;
            }
            text += Crlf + who.left(49);
        } else {
            if (!text.isEmpty())
                text += Crlf;
            text += (rows.text(QStringLiteral("placing")) + QLatin1Char(' ') + who).left(47);
        }
    }
    if (dance != -1)
        addDanceText(dance, text);
}

} // namespace

std::shared_ptr<Report> Fill_Overall_Report(Connection &conn, const Sheet_Event &e)
{
    auto r = withHeader(conn, QStringLiteral("DataReport4"), e);
    const QString c = id(e.competition);
    for (const char *name : {"dance1", "Dance2", "Dance3", "Dance4"})
        r->Controls(QStringLiteral("Section2"), QLatin1String(name)).Caption = QStringLiteral(" ");
    for (int n = 0; n < 4; ++n)
        r->Controls(QStringLiteral("Section2"), QStringLiteral("Label%1").arg(n + 2)).Caption = e.danceCaptions[n];
    fillDanceLists(conn, *r, e);

    const QList<QPair<QString, QString>> headings = {{QStringLiteral("Overall"), QStringLiteral("Winner")},
                                                     {QStringLiteral("Championship"), QStringLiteral("Points")},
                                                     {QStringLiteral("No"), QStringLiteral("Firsts")},
                                                     {QStringLiteral("Dance"), QStringLiteral("Points")},
                                                     {QStringLiteral("No Judges"), QStringLiteral("Prizes")}};
    for (int i = 0; i < headings.size(); ++i)
        r->Controls(QStringLiteral("Section2"), QStringLiteral("Label%1").arg(i + 6)).Caption =
            headings[i].first + Crlf + headings[i].second + Crlf;

    RowSet w = conn.query(QStringLiteral(
        "SELECT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') || ', ' || ifnull(c.town,'') AS surname, "
        "d.placing, d.tie, d.dance_points, d.total_dance_points, d.no_firsts, d.no_prizes FROM highland_results d, competitors c "
        "WHERE c.competition_id = ") + c + QStringLiteral(" AND d.group_id = ") + quoted(e.group)
        + QStringLiteral(" AND c.competition_id = d.competition_id AND c.competitor_id = d.competitor_id AND d.placing <= ")
        + id(e.noOverallPrizes) + QStringLiteral(" ORDER BY d.placing"));
    QStringList winners, pts, firsts, judges, prizes;
    for (; !w.eof(); w.next()) {
        winners << (Place_Text(w.toShort(QStringLiteral("placing"))) + w.text(QStringLiteral("tie")) + QLatin1Char(' ')
                    + w.text(QStringLiteral("competitor_id")) + QLatin1Char(' ') + w.text(QStringLiteral("surname")))
                       .left(60);
        pts << w.text(QStringLiteral("dance_points"));
        firsts << w.text(QStringLiteral("no_firsts"));
        judges << w.text(QStringLiteral("total_dance_points"));
        prizes << w.text(QStringLiteral("no_prizes"));
    }
    r->Controls(QStringLiteral("Section2"), QStringLiteral("winners")).Caption = winners.join(Crlf);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("points")).Caption = pts.join(Crlf);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("firsts")).Caption = firsts.join(Crlf);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("judges")).Caption = judges.join(Crlf);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("prizes")).Caption = prizes.join(Crlf);

    QString callbacks = QStringLiteral("Select DISTINCT o.competitor_id FROM overall_dance_results o WHERE o.competition_id = ") + c
                        + QStringLiteral("  AND o.group_id = ") + quoted(e.group);
    if (!Opt_Judges_Points)
        callbacks += QStringLiteral(" AND o.placing <= 6");
    r->Controls(QStringLiteral("Section2"), QStringLiteral("lblcallbacks")).Caption =
        numberBlock(conn.query(callbacks + QStringLiteral(" ORDER BY 1")), QStringLiteral("Callbacks:"));
    return r;
}

std::shared_ptr<Report> Fill_Judges_Report(Connection &conn, const Sheet_Event &e)
{
    auto r = withHeader(conn, QStringLiteral("DataReport2"), e);
    const QString c = id(e.competition);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("Label1")).Caption = e.danceCaptions[0];
    r->Controls(QStringLiteral("Section2"), QStringLiteral("Label2")).Caption = e.danceCaptions[1];
    r->Controls(QStringLiteral("Section2"), QStringLiteral("Label6")).Caption = Crlf + e.danceCaptions[2];
    r->Controls(QStringLiteral("Section2"), QStringLiteral("Label10")).Caption = Crlf + e.danceCaptions[3];

    QString sql = QStringLiteral("SELECT j.forename, j.surname, jr.dance_id, jr.result_no FROM judges_results_judges jr, judges j");
    if (e.premiership)
        sql += QStringLiteral(", category_dances dc");
    sql += QStringLiteral(" WHERE jr.competition_id = ") + c;
    if (e.premiership)
        sql += QStringLiteral(" AND dc.competition_id = ") + c + QStringLiteral(" AND dc.category_id = 'PS'");
    sql += QStringLiteral(" AND jr.group_id = ") + quoted(e.group) + QStringLiteral(" AND jr.judge_id = j.judge_id");
    sql += e.premiership ? QStringLiteral(" AND jr.dance_id = dc.dance_id  ORDER BY dc.orderby, result_no")
                         : QStringLiteral(" ORDER BY dance_id, result_no");
    QMap<QPair<short, short>, QString> judgeNames;  // (dance id, judge number) -> name
    for (RowSet j = conn.query(sql); !j.eof(); j.next())
        judgeNames[{j.toShort(QStringLiteral("dance_id")), j.toShort(QStringLiteral("result_no"))}] =
            j.text(QStringLiteral("forename")) + QLatin1Char(' ') + j.text(QStringLiteral("surname"));

    const QStringList stems = {QStringLiteral("Fling"), QStringLiteral("Sword"), QStringLiteral("st"), QStringLiteral("reel")};
    for (int n = 1; n <= 4; ++n) {
        const short dance = e.Dance_Id(n);
        for (short judge = 1; judge <= 3; ++judge) {
            QStringList lines;
            RowSet m = conn.query(QStringLiteral("SELECT competitor_id, points AS points_awarded FROM dance_results WHERE competition_id = ") + c
                                  + QStringLiteral(" AND group_id = ") + quoted(e.group) + QStringLiteral(" AND dance_id = ") + id(dance)
                                  + QStringLiteral(" AND result_no = ") + id(judge) + QStringLiteral(" ORDER BY 2 DESC"));
            for (; !m.eof(); m.next())
                lines << m.text(QStringLiteral("competitor_id")) + QStringLiteral("   ") + m.text(QStringLiteral("points_awarded"));
            r->Controls(QStringLiteral("Section2"), stems[n - 1] + QString::number(judge)).Caption = lines.join(Crlf);
            r->Controls(QStringLiteral("Section2"), stems[n - 1] + QLatin1Char('j') + QString::number(judge)).Caption =
                judgeNames.value({dance, judge});
        }
        RowSet d = conn.query(QStringLiteral("SELECT competitor_id, points_awarded1, points_awarded2, points_awarded3 FROM judges_results "
                                             "WHERE competition_id = ") + c + QStringLiteral(" AND group_id = ") + quoted(e.group)
                              + QStringLiteral(" AND dance_id = ") + id(dance)
                              + QStringLiteral(" AND (points_awarded1 = -1 OR points_awarded2 = -1 OR points_awarded3 = -1)"
                                               "ORDER BY competitor_id DESC"));
        for (; !d.eof(); d.next()) {
            for (int judge = 1; judge <= 3; ++judge) {
                if (d.value(judge).isNull() || d.value(judge).toDouble() != -1)
                    continue;
                Report_Control &label = r->Controls(QStringLiteral("Section5"), stems[n - 1] + QLatin1Char('d') + QString::number(judge));
                label.Caption += d.text(QStringLiteral("competitor_id")) + QLatin1Char(' ');
            }
        }
    }

    RowSet p = conn.query(QStringLiteral("Select DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name "
                                         "FROM competitors c, dance_results o WHERE o.competition_id = ") + c
                          + QStringLiteral(" AND c.competition_id = o.competition_id  AND o.competitor_id = c.competitor_id  AND o.group_id = ")
                          + quoted(e.group) + QStringLiteral(" AND placing <= 6 ORDER BY 1"));
    QString placings = QStringLiteral("Dancers with placings:") + Crlf;
    for (int n = 0; !p.eof(); p.next(), ++n) {
        if (n > 0)
            placings += n % 3 == 0 ? Crlf : QStringLiteral("  ");
        placings += p.text(QStringLiteral("competitor_id")) + QLatin1Char(' ') + p.text(QStringLiteral("name"));
    }
    r->Controls(QStringLiteral("Section5"), QStringLiteral("lbl_placings")).Caption = placings;
    return r;
}

std::shared_ptr<Report> Fill_Callback_Report(Connection &conn, const Sheet_Event &e)
{
    auto r = withHeader(conn, QStringLiteral("DataReport6"), e);
    RowSet rows = conn.query(QStringLiteral("Select DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name, town "
                                            "FROM competitors c, overall_dance_results o WHERE o.competition_id = ") + id(e.competition)
                             + QStringLiteral(" AND c.competition_id = o.competition_id  AND o.competitor_id = c.competitor_id  AND o.group_id = ")
                             + quoted(e.group) + QStringLiteral(" AND placing <= 6 ORDER BY 1"));
    QStringList ids, names, towns;
    for (; !rows.eof(); rows.next()) {
        ids << rows.text(QStringLiteral("competitor_id"));
        names << rows.text(QStringLiteral("name"));
        towns << rows.text(QStringLiteral("town"));
    }
    r->Controls(QStringLiteral("Section2"), QStringLiteral("compid")).Caption = ids.join(Crlf);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("compname")).Caption = names.join(Crlf);
    r->Controls(QStringLiteral("Section2"), QStringLiteral("comptown")).Caption = towns.join(Crlf);
    return r;
}

std::shared_ptr<Report> Fill_Top_10_Report(Connection &conn, const Sheet_Event &e)
{
    auto r = withHeader(conn, QStringLiteral("DataReport12"), e);
    const QString who = QStringLiteral("ifnull(competitors.competitor_id,'') || ' ' || ifnull(competitors.forename,'') || ' ' || "
                                       "ifnull(competitors.surname,'') || ', ' || ifnull(town,'')");
    RowSet rows = conn.query(QStringLiteral("SELECT competitors.competitor_id, ") + who
                             + QStringLiteral(" AS compid, Sum(overall_dance_results.points) AS points FROM overall_dance_results "
                                              "LEFT JOIN competitors ON (overall_dance_results.competitor_id = competitors.competitor_id) "
                                              "AND (overall_dance_results.competition_id = competitors.competition_id) "
                                              "WHERE overall_dance_results.competition_id=") + id(e.competition)
                             + QStringLiteral(" AND overall_dance_results.group_id=") + quoted(e.group) + QStringLiteral(" GROUP BY ") + who
                             + QStringLiteral(", competitors.competitor_id ORDER BY 3 DESC"));
    // The ten best, and whoever ties with the tenth.
    QStringList lines;
    QVariant tenth;
    for (int n = 0; !rows.eof(); rows.next(), ++n) {
        if (n >= 10 && rows.value(QStringLiteral("points")) != tenth)
            break;
        if (n == 9)
            tenth = rows.value(QStringLiteral("points"));
        lines << rows.text(QStringLiteral("compid"));
    }
    r->Controls(QStringLiteral("Section2"), QStringLiteral("compid")).Caption = lines.join(Crlf);
    return r;
}

std::shared_ptr<Report> Fill_Sobhd_Return(Connection &conn, const Sheet_Event &e)
{
    auto r = withHeader(conn, QStringLiteral("DataReport1"), e, false);
    const QString c = id(e.competition);
    auto label = [&](const QString &band, const QString &name) -> Report_Control & { return r->Controls(band, name); };
    const QString s2 = QStringLiteral("Section2");

    RowSet rows = conn.query(QStringLiteral(
        "SELECT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') AS surname, d.placing, d.tie, c.address1, "
        "c.address2, c.town, c.postcode FROM highland_results d, competitors c WHERE c.competition_id = ") + c
        + QStringLiteral(" AND d.group_id = ") + quoted(e.group)
        + QStringLiteral(" AND c.competition_id = d.competition_id AND c.competitor_id = d.competitor_id AND d.placing <=6 ORDER BY d.placing"));
    const QStringList addressLabels[2] = {{QStringLiteral("Label5"), QStringLiteral("Label12"), QStringLiteral("Label21")},
                                          {QStringLiteral("Label13"), QStringLiteral("Label14"), QStringLiteral("Label22")}};
    for (const QStringList &set : addressLabels)
        for (const QString &name : set)
            label(s2, name).Visible = false;
    QVariant previous = 9999;
    QString previousLine;  // the line of the row before, without its mark
    for (int n = 1; !rows.eof(); rows.next(), ++n) {
        const QVariant place = rows.value(QStringLiteral("placing"));
        const bool tied = place.toDouble() == previous.toDouble();
        const QString placeText = rows.text(QStringLiteral("placing"));
        const QString name = QLatin1Char(' ') + rows.text(QStringLiteral("surname"));
        // The dancer before shares the place: its line is written again with the same mark.
        if (tied && n - 1 <= 7)
            label(s2, QStringLiteral("Txt%1").arg(n - 1)).Caption = placeText + QLatin1Char('=') + previousLine;
        const QString line = placeText + (tied ? QLatin1Char('=') : QLatin1Char('.')) + name;
        if (n <= 7) {
            Report_Control &txt = label(s2, QStringLiteral("Txt%1").arg(n));
            txt.Caption = line;
            txt.Visible = true;
        } else if (n == 8) {
            label(s2, QStringLiteral("Txt7")).Caption += QStringLiteral("    ") + line;
        }
        if (n <= 2 && Opt_Show_Address) {
            const QStringList address = Format_Address(rows.value(QStringLiteral("address1")), rows.value(QStringLiteral("address2")),
                                                       rows.value(QStringLiteral("town")), rows.value(QStringLiteral("postcode")))
                                            .split(QLatin1Char('|'));
            for (int i = 0; i < 3; ++i) {
                Report_Control &a = label(s2, addressLabels[n - 1][i]);
                a.Caption = address.value(i);
                a.Visible = true;
            }
        }
        previous = place;
        previousLine = name;
    }

    RowSet judges = conn.query(QStringLiteral("SELECT DISTINCT j.surname, ifnull(j.forename,'') || ' ' || ifnull(j.surname,'') AS name "
                                              "FROM judges_results_judges jr, judges j WHERE jr.competition_id = ") + c
                               + QStringLiteral(" AND jr.group_id = ") + quoted(e.group) + QStringLiteral(" AND jr.judge_id = j.judge_id ORDER BY 1"));
    for (int n = 1; !judges.eof() && n <= 12; judges.next(), ++n)
        label(QStringLiteral("Section4"), QStringLiteral("Txtjudge%1").arg(n)).Caption =
            QString::number(n) + QStringLiteral(". ") + judges.text(QStringLiteral("name"));

    RowSet ev = conn.query(QStringLiteral("SELECT championship_title, age_group, championship_type FROM age_groups WHERE competition_id = ") + c
                           + QStringLiteral(" AND competition_group_id = ") + quoted(e.group));
    if (!ev.eof()) {
        label(s2, QStringLiteral("Txttitle")).Caption = ev.text(QStringLiteral("championship_title"));
        label(s2, QStringLiteral("Txtgroup")).Caption = ev.text(QStringLiteral("age_group"));
        const QString type = ev.text(QStringLiteral("championship_type"));
        label(s2, QStringLiteral("Label15")).Caption = type == QLatin1String("C") ? QStringLiteral("Closed")
                                                       : type == QLatin1String("O") ? QStringLiteral("Open")
                                                                                    : QString();
    }
    const QString entries = conn.scalar(QStringLiteral("SELECT count(*) as no_comps FROM competitor_groups WHERE competition_id = ") + c
                                        + QStringLiteral(" AND group_id = ") + quoted(e.group)).toString();
    label(s2, QStringLiteral("txtno")).Caption = QStringLiteral("(No entries: ") + entries + QLatin1Char(')');

    RowSet comp = conn.query(QStringLiteral("SELECT competition_name, competition_organiser, organiser_role, competition_date, "
                                            "competition_venue, competition_town, address FROM competitions WHERE competition_id = ") + c);
    if (!comp.eof()) {
        label(s2, QStringLiteral("TxtCompname")).Caption = comp.text(QStringLiteral("competition_name"));
        label(s2, QStringLiteral("TxtOrgname")).Caption =
            comp.text(QStringLiteral("competition_organiser")) + QStringLiteral(", ") + comp.text(QStringLiteral("organiser_role"));
        label(s2, QStringLiteral("label59")).Caption = comp.text(QStringLiteral("address"));
        label(s2, QStringLiteral("Txtdate")).Caption = comp.text(QStringLiteral("competition_date"));
        label(s2, QStringLiteral("txtvenue")).Caption =
            comp.text(QStringLiteral("competition_venue")) + QStringLiteral(", ") + comp.text(QStringLiteral("competition_town"));
    }
    return r;
}

} // namespace ThreeJudge
