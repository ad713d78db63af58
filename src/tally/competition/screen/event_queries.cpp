#include "event_queries.h"
#include "core/db.h"
#include "core/routines.h"

QList<Event_Entry> Competition_Events(Connection &conn, short comp)
{
    RowSet rs = conn.query("Select competition_group_id, age_group, category from age_groups where competition_id = "
                           + QString::number(comp)
                           + " AND category <>'C' AND category <>'PS' ORDER BY orderby, age_group");
    QList<Event_Entry> events;
    for (; !rs.eof(); rs.next())
        events.append({rs.text("competition_group_id"), rs.text("age_group"), rs.text("category")});
    return events;
}

QList<Judge_Entry> Competition_Judges(Connection &conn, short comp)
{
    RowSet rs = conn.query("SELECT surname, forename, judge_id FROM judges WHERE competition_id  = "
                           + QString::number(comp) + " ORDER BY 1");
    QList<Judge_Entry> judges;
    for (; !rs.eof(); rs.next())
        judges.append({rs.value("judge_id").toInt(), rs.text("forename") + ' ' + rs.text("surname")});
    return judges;
}

Event_Settings Read_Event_Settings(Connection &conn, short comp, const QString &code)
{
    RowSet rs = conn.query("Select no_prizes, split_overalls, no_overall_prizes, dancer_order, inc_t_fling from "
                           "age_groups where competition_id = "
                           + QString::number(comp) + " AND competition_group_id = '" + Sql_Quote(code) + "'");
    Event_Settings s;
    s.noPrizes = rs.toShort("no_prizes");
    s.noOverallPrizes = rs.toShort("no_overall_prizes");
    s.splitOveralls = rs.text("split_overalls");
    s.incTFling = rs.text("inc_t_fling");
    s.dancerOrderSql = rs.text("dancer_order") == "D" ? QStringLiteral("DESC") : QStringLiteral("ASC");
    return s;
}

QList<Dance_Entry> Event_Dances(Connection &conn, short comp, const QString &category)
{
    RowSet rs = conn.query("SELECT d.dance_id, d.dance FROM category_dances cd, dances d WHERE cd.competition_id = "
                           + QString::number(comp) + " AND cd.category_id = '" + Sql_Quote(category)
                           + "' AND cd.dance_id = d.dance_id ORDER BY cd.orderby, d.dance_id");
    QList<Dance_Entry> dances;
    for (; !rs.eof(); rs.next())
        dances.append({rs.toShort("dance_id"), rs.text("dance")});
    return dances;
}
