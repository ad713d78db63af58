#include "result_sheets.h"
#include "reports/report.h"
#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"

namespace {

const QString CrLf = QStringLiteral("\r\n");
const QString S2 = QStringLiteral("Section2");
const QString S3 = QStringLiteral("Section3");
const QString S4 = QStringLiteral("Section4");
const QString S5 = QStringLiteral("Section5");

QString Id()
{
    return QString::number(Current_Competition_Id);
}

QString Code()
{
    return QLatin1Char('\'') + Sql_Quote(Current_Group_Id) + QLatin1Char('\'');
}

QString Competition_Date(Connection &conn)
{
    return conn.scalar(QStringLiteral("Select competition_date FROM competitions WHERE competition_id = ") + Id())
        .toString();
}

// One block of winners: its heading, then a line per dancer cut to 40
// characters, with the dance points beside it.
void Add_Winners(Connection &conn, const QString &table, const QString &heading, QString &winners, QString &points)
{
    winners += heading + CrLf;
    points += QStringLiteral("Pts") + CrLf;
    RowSet rs = conn.query(
        QStringLiteral("SELECT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') || ', ' || "
                       "ifnull(c.town,'') AS surname, d.placing, d.tie, d.dance_points FROM ")
        + table + QStringLiteral(" d, competitors c WHERE c.competition_id = ") + Id()
        + QStringLiteral(" AND d.competition_id = ") + Id() + QStringLiteral(" AND d.group_id = ") + Code()
        + QStringLiteral(" AND c.competition_id = d.competition_id AND c.competitor_id = d.competitor_id "
                         "ORDER BY d.points DESC"));
    for (; !rs.eof(); rs.next()) {
        const QString line = Place_Text(rs.toShort(QStringLiteral("placing"))) + rs.text(QStringLiteral("tie"))
                             + QLatin1Char(' ') + rs.text(QStringLiteral("competitor_id")) + QLatin1Char(' ')
                             + rs.text(QStringLiteral("surname"));
        winners += line.left(40) + CrLf;
        points += rs.text(QStringLiteral("dance_points")) + CrLf;
    }
}

} // namespace

void Fill_Event_Report(Connection &conn, Report &report, const QString &eventName, const QString &splitOveralls)
{
    report.Controls(S2, QStringLiteral("Label13")).Caption = Competition_Date(conn);
    report.Controls(S2, QStringLiteral("Label11")).Caption = Current_Competition_Name;
    report.Controls(S2, QStringLiteral("Label12")).Caption = eventName;
    for (int n = 1; n <= 10; ++n) {
        report.Controls(S2, QStringLiteral("Label%1").arg(n)).Caption.clear();
        report.Controls(S2, QStringLiteral("dance%1").arg(n)).Caption.clear();
    }

    RowSet rs = conn.query(
        QStringLiteral("SELECT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') || ', ' || "
                       "ifnull(c.town,'') AS SURNAME, d.placing, d.tie, d.dance_id FROM overall_dance_results d, "
                       "competitors c, age_groups a, category_dances cd WHERE c.competition_id = ")
        + Id() + QStringLiteral(" AND d.group_id = ") + Code() + QStringLiteral(" AND d.competition_id = ") + Id()
        + QStringLiteral(" AND c.competitor_id = d.competitor_id AND cd.competition_id = ") + Id()
        + QStringLiteral(" AND cd.dance_id = d.dance_id AND a.competition_id = ") + Id()
        + QStringLiteral(" AND a.competition_group_id = ") + Code()
        + QStringLiteral(" AND a.category = cd.category_id ORDER BY cd.orderby, d.dance_id ASC, d.points DESC, "
                         "d.placing"));
    // Only dances with a placed dancer make a column, so the columns close
    // up; past the tenth there is no column and the text goes.
    int column = 0;
    short dance = 9999;
    QStringList lines;
    auto handOver = [&] {
        ++column;
        if (column > 10)
            return;
        const QString name = conn.scalar(QStringLiteral("Select dance FROM dances WHERE dance_id = ")
                                         + QString::number(dance))
                                 .toString();
        report.Controls(S2, QStringLiteral("Label%1").arg(column)).Caption = name + CrLf + CrLf;
        report.Controls(S2, QStringLiteral("dance%1").arg(column)).Caption = lines.join(CrLf);
    };
    for (; !rs.eof(); rs.next()) {
        const short rowDance = rs.toShort(QStringLiteral("dance_id"));
        if (rowDance != dance) {
            if (dance != 9999)
                handOver();
            dance = rowDance;
            lines.clear();
        }
        const QString line = Place_Text(rs.toShort(QStringLiteral("placing"))) + QLatin1Char(' ')
                             + rs.text(QStringLiteral("tie")) + QLatin1Char(' ')
                             + rs.text(QStringLiteral("competitor_id")) + QLatin1Char(' ')
                             + rs.text(QStringLiteral("SURNAME"));
        lines << line.left(45);
    }
    if (dance != 9999)
        handOver();

    QString winners, points, winners2, points2;
    Add_Winners(conn, QStringLiteral("overall_results"), QStringLiteral("Overall Winner"), winners, points);
    if (splitOveralls == QLatin1String("Y")) {
        Add_Winners(conn, QStringLiteral("highland_results"), QStringLiteral("Highland Winner"), winners2, points2);
        winners2 += CrLf;
        points2 += CrLf;
        Add_Winners(conn, QStringLiteral("national_results"), QStringLiteral("National Winner"), winners2, points2);
    }

    // Every placed dancer is called back; twenty numbers to a line.
    QString callbacks = CrLf + CrLf + QStringLiteral("Callbacks:");
    RowSet cb = conn.query(QStringLiteral("Select DISTINCT o.competitor_id FROM overall_dance_results o WHERE "
                                          "o.competition_id = ")
                           + Id() + QStringLiteral("  AND o.group_id = ") + Code() + QStringLiteral(" ORDER BY 1"));
    for (int count = 1; !cb.eof(); cb.next(), ++count) {
        callbacks += QLatin1Char(' ') + cb.text(QStringLiteral("competitor_id"));
        if (count % 20 == 0)
            callbacks += CrLf;
    }

    report.Controls(S5, QStringLiteral("compname")).Caption = Current_Competition_Name;
    report.Controls(S5, QStringLiteral("GroupName")).Caption = eventName;
    report.Controls(S5, QStringLiteral("winners")).Caption = winners;
    report.Controls(S5, QStringLiteral("points")).Caption = points;
    report.Controls(S5, QStringLiteral("winners2")).Caption = winners2;
    report.Controls(S5, QStringLiteral("points2")).Caption = points2;
    report.Controls(S5, QStringLiteral("lblcallbacks")).Caption = callbacks;
    report.Controls(S3, QStringLiteral("Footer")).Caption = Footer_Text();
}

void Fill_Callback_Report(Connection &conn, Report &report, const QString &eventName)
{
    const QString date = Competition_Date(conn);
    report.Controls(S4, QStringLiteral("cname")).Caption = Current_Competition_Name;
    report.Controls(S4, QStringLiteral("aname")).Caption = eventName;
    report.Controls(S4, QStringLiteral("compdate")).Caption = date;
    RowSet rs = conn.query(
        QStringLiteral("Select DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name, "
                       "town FROM competitors c, overall_dance_results o WHERE o.competition_id = ")
        + Id() + QStringLiteral(" AND c.competition_id = o.competition_id  AND o.competitor_id = c.competitor_id  "
                                "AND o.group_id = ")
        + Code() + QStringLiteral(" ORDER BY 1"));
    QString ids, names, towns;
    for (; !rs.eof(); rs.next()) {
        ids += rs.text(QStringLiteral("competitor_id")) + CrLf;
        names += rs.text(QStringLiteral("name")) + CrLf;
        towns += rs.text(QStringLiteral("town")) + CrLf;
    }
    report.Controls(S2, QStringLiteral("compid")).Caption = ids;
    report.Controls(S2, QStringLiteral("compname")).Caption = names;
    report.Controls(S2, QStringLiteral("comptown")).Caption = towns;
    report.Controls(S3, QStringLiteral("Footer")).Caption = Footer_Text();
}
