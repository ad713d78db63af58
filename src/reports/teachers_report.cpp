#include "teachers_report.h"
#include "report.h"
#include "report_output.h"
#include "top_cut.h"
#include "core/db.h"
#include "core/globals.h"

QList<QPair<QString, QString>> Teachers_Top_10(Connection &conn, short comp)
{
    const QString id = QString::number(comp);
    RowSet rs = conn.query(
        QStringLiteral("SELECT sum(o.points) AS tot_points, c.teacher FROM competitors AS c "
                       "LEFT JOIN overall_dance_results AS o ON o.competitor_id = c.competitor_id "
                       "LEFT JOIN dance_no_dancers AS b ON (o.dance_id = b.dance_id) AND (o.group_id = b.group_id) "
                       "AND (o.competition_id = b.competition_id) Where c.competition_id = ")
        + id + QStringLiteral(" AND o.competition_id = ") + id
        + QStringLiteral(" AND c.teacher is not null AND o.points > 0 AND b.group_id IS NULL AND b.dance_id IS NULL "
                         "AND b.competition_id IS NULL GROUP BY c.teacher ORDER BY 1 DESC"));
    QList<double> points;
    for (; !rs.eof(); rs.next())
        points << rs.toDouble(QStringLiteral("tot_points"));
    QList<QPair<QString, QString>> out;
    rs.moveFirst();
    for (int i = Top_Count(points, 10); i > 0; --i, rs.next())
        out.append({rs.text(QStringLiteral("teacher")), Total_Text(rs.value(QStringLiteral("tot_points")))});
    return out;
}

void Fill_Teachers_Report(Connection &conn, Report &report)
{
    report.Controls(QStringLiteral("Section4"), QStringLiteral("cname")).Caption = Current_Competition_Name;
    report.Controls(QStringLiteral("Section4"), QStringLiteral("compdate")).Caption = Current_Competition_Date;
    QString lines;
    for (const auto &row : Teachers_Top_10(conn, Current_Competition_Id))
        lines += row.first + QStringLiteral(" - ") + row.second + QStringLiteral("\r\n");
    report.Controls(QStringLiteral("Section2"), QStringLiteral("lbl1")).Caption = lines;
}

void Show_Teachers_Report()
{
    Connection conn;
    conn.open();
    auto report = Report::Load(QStringLiteral("DataReport9"));
    Fill_Teachers_Report(conn, *report);
    conn.close();
    Show_Report(report);
}
