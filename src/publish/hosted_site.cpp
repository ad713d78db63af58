#include "hosted_site.h"
#include "hosted_frame.h"

#include "core/db.h"
#include "core/routines.h"

using namespace Hosted_Frame;

namespace Hosted_Site {

QString Style_Sheet()
{
    return QStringLiteral(
        ".no {font-size: 9pt;font-family:  Arial;color: #484848;}"
        ".head2 {    FONT-SIZE: 18px; COLOR: #484848; TEXT-DECORATION: none}"
        ".ftr {  FONT-SIZE: 10px; COLOR: #000000}"
        ".footerborder { BORDER-TOP: #000000 1px solid}"
        ".rightrail2 {   BORDER-RIGHT: #000000 1px solid}"
        ".whiteshadow {  LINE-HEIGHT: 10px; BACKGROUND-REPEAT: repeat-x; HEIGHT: 10px; BACKGROUND-COLOR: #ffffff}"
        ".lnbg { BACKGROUND-COLOR: #172693}"
        ".bg0font {  FONT-WEIGHT: bold; COLOR: #ffffff}"
        ".bg2 {  BACKGROUND-COLOR: #e8e8ea}"
        "DIV.spacer10 {  FONT-SIZE: 10px; LINE-HEIGHT: 10px; FONT-FAMILY: Arial, Helvetica}"
        "A:link {    COLOR: #001a79}"
        "TD {    FONT-SIZE: 12px; COLOR: #484848; FONT-FAMILY: Verdana, Geneva, Arial, Helvetica, sans-serif}"
        "BODY {FONT-SIZE: 12px; COLOR: #484848; FONT-FAMILY: Verdana, Geneva, Arial, Helvetica, sans-serif}");
}

Titles Event_Titles(const Site_Source &src, const Site_Event &ev)
{
    RowSet r = src.conn.query(
        QStringLiteral("SELECT a.age_group, a.championship_title FROM age_groups a WHERE a.competition_id = %1 AND "
                       "a.competition_group_id = '%2' ORDER BY 1").arg(src.id(), Sql_Quote(ev.groupId)));
    return r.eof() ? Titles{} : Titles{r.text("age_group"), r.text("championship_title")};
}

// Winner rows of one result table for the results index.
static QString Winner_Rows(const Site_Source &src, const Site_Event &ev, const QString &table, const QString &kind)
{
    QString sql = QStringLiteral(
        "SELECT ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') AS surname, c.town, a.age_group, "
        "a.championship_title FROM %1 d, competitors c, age_groups a WHERE c.competition_id = %2 AND d.group_id = "
        "'%3' AND c.competition_id = d.competition_id AND c.competition_id = a.competition_id AND c.competitor_id = "
        "d.competitor_id AND a.competition_group_id = d.group_id AND d.placing = 1")
                      .arg(table, src.id(), Sql_Quote(ev.groupId));
    if (kind == QLatin1String(" Highland"))
        sql += QStringLiteral(" ORDER BY d.placing");
    QString out;
    RowSet r = src.conn.query(sql);
    for (; !r.eof(); r.next())
        out += Row(src,
                   {r.text("age_group") + QLatin1Char(' ') + r.text("championship_title") + kind,
                    src.letters.Hide_Blanks(r.text("surname")), r.text("town")},
                   ev.groupId + QStringLiteral(".htm"));
    return out;
}

Indexes Index_Begin(const Site_Source &src)
{
    Indexes out;
    out.results = Head(src) + Heading(src.compName + QLatin1Char(' ') + src.compDate + QStringLiteral("<br>Results"))
        + Band_Table(QStringLiteral("RESULTS"), {QStringLiteral("Event"), QStringLiteral("Winner"),
                                                 QStringLiteral("Town/ Country")});
    out.competitors = Head(src)
        + Heading(src.compName + QLatin1Char(' ') + src.compDate + QStringLiteral("<br>Competitors"))
        + Band_Table(QStringLiteral("COMPETITOR LISTINGS"), {QStringLiteral("Event"), QStringLiteral("Age Group")});
    return out;
}

void Index_Add(const Site_Source &src, const Site_Event &ev, Indexes &out)
{
    const Titles t = Event_Titles(src, ev);
    const QString dancers = QStringLiteral("<a href=") + ev.groupId + QStringLiteral("c.htm>");
    out.competitors += QStringLiteral("<TR class=bg2><TD class=scorerow>") + dancers + t.title
            + QStringLiteral("</a></TD><TD class=scorerow>") + dancers + t.ageGroup
        + QStringLiteral("</a></TD></TR>\r\n");
    out.results += Winner_Rows(src, ev, QStringLiteral("highland_results"), QStringLiteral(" Highland"))
        + Winner_Rows(src, ev, QStringLiteral("national_results"), QStringLiteral(" National"))
        + Winner_Rows(src, ev, QStringLiteral("overall_results"), QStringLiteral(" Overall"));
}

void Index_End(Indexes &out)
{
    const QPair<QString, QString> results{QStringLiteral("Results Index"), QStringLiteral("index.htm")};
    const QPair<QString, QString> competitors{QStringLiteral("Competitors Index"), QStringLiteral("competitors.htm")};
    out.results += QStringLiteral("</TABLE>\r\n") + Footer({results, competitors});
    out.competitors += QStringLiteral("</TABLE>\r\n") + Footer({results, competitors});
}

QString Dancers_Page(const Site_Source &src, const Site_Event &ev)
{
    const Titles t = Event_Titles(src, ev);
    const QString g = Sql_Quote(ev.groupId);
    QString where;
    for (int i = 1; i <= 8; ++i)
        where += QStringLiteral("%1c.group_id%2 = '%3'").arg(i == 1 ? QString() : QStringLiteral(" OR ")).arg(i).arg(g);
    QString out = Head(src)
        + Heading(src.compName + QLatin1Char(' ') + src.compDate + QStringLiteral("<br>") + t.ageGroup
                  + QLatin1Char(' ') + t.title + QStringLiteral(" - Competitor Listings"))
        + Band_Table(QStringLiteral("COMPETITOR LISTINGS"),
                     {QStringLiteral("Number"), QStringLiteral("Name"), QStringLiteral("Town/ Country")});
    RowSet r = src.conn.query(QStringLiteral("SELECT c.competitor_id, ifnull(c.forename,'') || ' ' || "
                                             "ifnull(c.surname,'') as name, c.town FROM competitors c WHERE "
                                             "c.competition_id = %1 AND (%2)").arg(src.id(), where));
    for (; !r.eof(); r.next()) {
        const QString number = Cell(r.value("competitor_id"));
        const QString name = src.letters.Hide_Blanks(r.text("name").replace(QStringLiteral("  "), QStringLiteral(" ")));
        RowSet placed = src.conn.query(
            QStringLiteral("Select DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as "
                           "name FROM competitors c, dance_results o WHERE o.competition_id = %1 AND "
                           "c.competition_id = o.competition_id  AND o.competitor_id = c.competitor_id  AND "
                           "c.competitor_id = %2 AND o.group_id = '%3' AND placing <= 6 ORDER BY 1")
                .arg(src.id(), number.isEmpty() ? QStringLiteral("NULL") : number, g));
        out += Row(src, {number, name, r.text("town")}, placed.eof() ? QString() : ev.groupId + QStringLiteral(".htm"));
    }
    return out + QStringLiteral("</TABLE>\r\n")
        + Footer({{QStringLiteral("Results Index"), QStringLiteral("index.htm")},
                  {QStringLiteral("Group Results"), ev.groupId + QStringLiteral(".htm")},
                  {QStringLiteral("Group Stats"), ev.groupId + QStringLiteral("s.htm")},
                  {QStringLiteral("Competitors Index"), QStringLiteral("competitors.htm")}});
}

QString Run(Site_Source &src, const QString &dataDir, const QList<Site_Event> &selected,
            const std::function<void()> &step)
{
    const QString html = Folder_In(dataDir, QStringLiteral("Html"));
    Make_Folder(html);
    // The competition's name as it stands: a name a folder can't bear fails here.
    const QString folder = html + src.compName + QLatin1Char('/');
    Make_Folder(folder);
    Write_Page(folder + QStringLiteral("default.css"), Style_Sheet());
    Indexes indexes = Index_Begin(src);
    for (const Site_Event &ev : selected) {
        Index_Add(src, ev, indexes);
        Build_Page([&] { Write_Page(folder + ev.groupId + QStringLiteral("c.htm"), Dancers_Page(src, ev)); });
        Build_Page([&] { Write_Page(folder + ev.groupId + QStringLiteral(".htm"), Results_Page(src, ev)); });
        if (ev.category == QLatin1String("C"))
            Build_Page([&] { Write_Page(folder + ev.groupId + QStringLiteral("s.htm"), Statistics_Page(src, ev)); });
        if (step)
            step();
    }
    Index_End(indexes);
    Write_Page(folder + QStringLiteral("index.htm"), indexes.results);
    Write_Page(folder + QStringLiteral("competitors.htm"), indexes.competitors);
    return html;
}

} // namespace Hosted_Site
