#include "data_environment.h"
#include "core/errors.h"

QString Command_Sql(const QString &command)
{
    if (command.compare(QLatin1String("Command2"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("SELECT competition_id FROM competitions where 1= 2");
    if (command.compare(QLatin1String("lineups"), Qt::CaseInsensitive) == 0)
        return QStringLiteral(
            "SELECT DISTINCT IIF(registered=1,'Reg',IIF(registered=0,'No Card','')) AS reg, c.competitor_id, "
            "ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') AS name, town, notes "
            "FROM competitors c, competitor_groups cc WHERE c.competition_id = ? "
            "AND cc.competition_id = c.competition_id AND cc.competitor_id = c.competitor_id "
            "AND group_id = ? ORDER BY c.competitor_id");
    if (command.compare(QLatin1String("callbacks"), Qt::CaseInsensitive) == 0)
        return QStringLiteral(
            "SELECT DISTINCT c.competitor_id, ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') AS name, town "
            "FROM competitors c, overall_dance_results o WHERE o.competition_id = ? "
            "AND c.competition_id = o.competition_id AND o.competitor_id = c.competitor_id "
            "AND o.group_id = ? AND placing <= ? ORDER BY 1");
    if (command.compare(QLatin1String("SQL_comp"), Qt::CaseInsensitive) == 0)
        return QStringLiteral("SELECT competition_id, competition_name FROM competitions ORDER BY competition_name");
    throw AppError(QStringLiteral("Unknown report command ") + command);
}
