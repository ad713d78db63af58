#include "lineup_sheet.h"
#include "report.h"
#include "core/db.h"
#include "core/globals.h"

Lineup_Events Read_Lineup_Events(Connection &conn, short comp)
{
    Lineup_Events events;
    RowSet rs = conn.query(QStringLiteral("Select competition_group_id, age_group, championship_title, category "
                                          "from age_groups where competition_id = ")
                           + QString::number(comp) + QStringLiteral(" ORDER BY 3,2"));
    for (; !rs.eof(); rs.next()) {
        events.texts << rs.text(QStringLiteral("age_group")) + QLatin1Char(' ') + rs.text(QStringLiteral("championship_title"));
        events.codes << rs.text(QStringLiteral("competition_group_id"));
    }
    return events;
}

void Fill_Lineup_Sheet(Connection &conn, Report &report, short comp, const QString &code, const QString &eventText)
{
    const QString date = conn.scalar(QStringLiteral("Select competition_date FROM competitions WHERE competition_id = ")
                                     + QString::number(comp))
                             .toString();
    report.Controls(QStringLiteral("Section4"), QStringLiteral("cname")).Caption = Current_Competition_Name;
    report.Controls(QStringLiteral("Section4"), QStringLiteral("aname")).Caption = eventText;
    report.Controls(QStringLiteral("Section4"), QStringLiteral("compdate")).Caption = date;
    report.Controls(QStringLiteral("Section3"), QStringLiteral("Footer")).Caption = Footer_Text();
    report.Run_Command(conn, QStringLiteral("lineups"), {comp, code});
}
