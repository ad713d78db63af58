#include "competitor_search.h"
#include "competitor_columns.h"
#include "core/routines.h"

namespace {

const QString Aliased_Columns = QStringLiteral(
    "Select c.competition_id, c.competitor_id, c.forename, c.surname, c.age, c.address1, c.address2, c.town, "
    "c.postcode, c.fee, c.date_received, c.teacher, c.notes, c.custom1, c.custom2, c.custom3, c.custom4, "
    "c.group_id1, c.group_id2, c.group_id3, c.group_id4, c.group_id5, c.group_id6, c.group_id7, c.group_id8 ");

} // namespace

QString Registered_Filter(int itemData, const QString &current)
{
    switch (itemData) {
    case Reg_Registered:
        return QStringLiteral(" AND registered = 1");
    case Reg_No_Card:
        return QStringLiteral(" AND registered = 0");
    case Reg_Not_Registered:
        return QStringLiteral(" AND registered IS NULL");
    default:
        return current;
    }
}

QString Search_Order(int itemData)
{
    if (itemData == 3)
        return QStringLiteral(" 2 ASC");
    QString order = QString::number(itemData);
    if (itemData == 2)
        order += QStringLiteral(" DESC");
    return order;
}

QString Search_Statement(short competitionId, const Competitor_Search &s)
{
    const QString id = QString::number(competitionId);
    const QString code = Sql_Quote(s.groupCode);
    QString sql = Competitor_Statement(competitionId);
    if (s.winnersOnly && !code.isEmpty()) {
        sql = Aliased_Columns + QStringLiteral("FROM highland_results d, competitors c, competitor_groups cg WHERE c.competition_id = ")
              + id + QStringLiteral(" AND d.competition_id = ") + id
              + QStringLiteral(" AND c.competitor_id = d.competitor_id AND cg.competition_id = ") + id
              + QStringLiteral(" AND c.competitor_id = cg.competitor_id AND d.group_id = '") + code
              + QStringLiteral("' AND cg.group_id = '") + code + QStringLiteral("' AND d.placing <=6 ");
    } else if (!code.isEmpty()) {
        sql = Aliased_Columns + QStringLiteral("from competitors c, competitor_groups cg where c.competition_id = ") + id
              + QStringLiteral(" AND cg.competition_id = ") + id
              + QStringLiteral(" AND c.competitor_id = cg.competitor_id AND cg.group_id = '") + code + QLatin1Char('\'');
    } else if (s.winnersOnly) {
        sql = Aliased_Columns + QStringLiteral("from competitors c, highland_results d where c.competition_id = ") + id
              + QStringLiteral(" AND d.competition_id = ") + id + QStringLiteral(" AND c.competitor_id = d.competitor_id");
    }
    if (!s.number.isEmpty())
        sql += QStringLiteral(" AND competitor_id = ") + Bare_Number(s.number);
    if (!s.forename.isEmpty())
        sql += QStringLiteral(" AND forename LIKE '%") + Sql_Quote(s.forename) + QStringLiteral("%'");
    if (!s.surname.isEmpty())
        sql += QStringLiteral(" AND surname LIKE '%") + Sql_Quote(s.surname) + QStringLiteral("%'");
    if (!s.teacher.isEmpty())
        sql += QStringLiteral(" AND teacher LIKE '%") + Sql_Quote(s.teacher) + QStringLiteral("%'");
    if (!s.ageFrom.isEmpty() && !s.ageTo.isEmpty())
        sql += QStringLiteral(" AND age >= ") + Bare_Number(s.ageFrom) + QStringLiteral(" AND age <= ")
               + Bare_Number(s.ageTo);
    else if (!s.ageFrom.isEmpty())
        sql += QStringLiteral(" AND age = ") + Bare_Number(s.ageFrom);
    sql += s.registeredFilter + QStringLiteral(" ORDER BY ") + s.order;
    return sql;
}
