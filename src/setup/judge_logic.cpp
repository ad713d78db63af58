#include "judge_logic.h"

#include "core/db.h"
#include "core/routines.h"

void Insert_Judge(Connection &conn, short competitionId, const QString &forename, const QString &surname)
{
    conn.execute(QStringLiteral("INSERT INTO judges(competition_id, forename, surname) VALUES (")
                 + QString::number(competitionId) + QStringLiteral(",'") + Sql_Quote(forename)
                 + QStringLiteral("','") + Sql_Quote(surname) + QStringLiteral("')"));
}

void Delete_Judge_Dependents(Connection &conn, short competitionId, const QString &judgeIdText)
{
    if (judgeIdText.isEmpty())
        return;
    conn.execute(QStringLiteral("DELETE FROM judges_results_judges WHERE competition_id = ")
                 + QString::number(competitionId) + QStringLiteral(" AND judge_id = ") + judgeIdText);
}
