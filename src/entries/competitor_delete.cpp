#include "competitor_delete.h"
#include "core/db.h"
#include "core/routines.h"

QString Delete_Competitor_Question()
{
    return QStringLiteral("Are you sure you want to delete entry? ") + QLatin1Char('\n')
           + QStringLiteral("It will also delete entry from any results.");
}

void Delete_Dependents(Connection &conn, short competitionId, const QString &number)
{
    if (number.isEmpty())
        return;
    Transaction t(conn);
    for (const char *table : {"dance_results", "highland_results", "judges_results", "overall_dance_results",
                              "tie_break", "competitor_groups"})
        conn.execute(QStringLiteral("DELETE FROM ") + QLatin1String(table) + QStringLiteral(" WHERE competition_id = ")
                     + QString::number(competitionId) + QStringLiteral(" AND competitor_id = ") + Bare_Number(number));
}
