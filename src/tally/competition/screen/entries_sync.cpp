#include "entries_sync.h"
#include "core/db.h"
#include "core/routines.h"

namespace {

QString Event_Where(short comp, const QString &code)
{
    return "competition_id = " + QString::number(comp) + " AND group_id = '" + Sql_Quote(code) + "'";
}

void Delete_Marks_Of(Connection &conn, short comp, const QString &code, const QVariant &competitor)
{
    conn.execute("DELETE FROM comp_judges_results WHERE " + Event_Where(comp, code)
                 + " AND competitor_id = " + QString::number(To_Int16(competitor)));
}

} // namespace

int Count_Event_Dancers(Connection &conn, short comp, const QString &code)
{
    return conn.scalar("Select count(*) as no_dancers from competitor_groups where " + Event_Where(comp, code)).toInt();
}

bool Flag_Small_Event(Connection &conn, short comp, const QString &code, const QString &category)
{
    if (Count_Event_Dancers(conn, comp, code) >= 6)
        return false;
    Transaction t(conn);
    conn.execute("DELETE FROM dance_no_dancers WHERE " + Event_Where(comp, code));
    RowSet rs = conn.query("SELECT dance_id FROM category_dances WHERE competition_id = " + QString::number(comp)
                           + " AND category_id = '" + Sql_Quote(category) + "'");
    for (; !rs.eof(); rs.next())
        conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES ("
                     + QString::number(comp) + ",'" + Sql_Quote(code) + "'," + QString::number(rs.toShort("dance_id")) + ")");
    return true;
}

bool Flag_Small_Dance(Connection &conn, short comp, const QString &code, short dance)
{
    const QString where = Event_Where(comp, code) + " AND dance_id = " + QString::number(dance);
    const int rows = conn.scalar("Select count(*) as no_comps from comp_judges_results where " + where).toInt();
    if (rows >= 6)
        return false;
    Transaction t(conn);
    conn.execute("DELETE FROM dance_no_dancers WHERE " + where);
    conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES(" + QString::number(comp)
                 + ",'" + Sql_Quote(code) + "'," + QString::number(dance) + ")");
    return true;
}

void Sync_Entries(Connection &conn, short comp, const QString &code, const QList<short> &dances)
{
    Transaction t(conn);
    const QString id = QString::number(comp);
    for (short dance : dances) {
        RowSet missing = conn.query(
            "SELECT DISTINCT competitor_groups.competitor_id FROM competitor_groups LEFT JOIN comp_judges_results ON "
            "((competitor_groups.group_id = comp_judges_results.group_id) AND (competitor_groups.competition_id = "
            "comp_judges_results.competition_id) AND (competitor_groups.competitor_id = comp_judges_results.competitor_id) "
            "AND (comp_judges_results.dance_id = "
            + QString::number(dance)
            + ")) WHERE comp_judges_results.group_id IS NULL AND competitor_groups.competition_id = " + id
            + " AND competitor_groups.group_id = '" + Sql_Quote(code) + "'");
        for (; !missing.eof(); missing.next())
            conn.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id) VALUES(" + id
                         + ",'" + Sql_Quote(code) + "'," + QString::number(dance) + ","
                         + QString::number(To_Int16(missing.value("competitor_id"))) + ")");
    }

    RowSet withdrawn = conn.query(
        "SELECT DISTINCT comp_judges_results.competitor_id AS competitor_id FROM comp_judges_results LEFT JOIN "
        "competitor_groups ON (comp_judges_results.group_id = competitor_groups.group_id) AND "
        "(comp_judges_results.competition_id = competitor_groups.competition_id) AND (comp_judges_results.competitor_id "
        "= competitor_groups.competitor_id) WHERE competitor_groups.group_id IS NULL AND "
        "comp_judges_results.competition_id = "
        + id + " AND comp_judges_results.group_id = '" + Sql_Quote(code) + "'");
    for (; !withdrawn.eof(); withdrawn.next())
        Delete_Marks_Of(conn, comp, code, withdrawn.value("competitor_id"));

    RowSet orphans = conn.query(
        "SELECT competitor_groups.competitor_id AS competitor_id FROM competitor_groups LEFT JOIN competitors ON "
        "(competitor_groups.competition_id = competitors.competition_id) AND (competitor_groups.competitor_id = "
        "competitors.competitor_id) WHERE competitors.competitor_id is null AND competitor_groups.competition_id = "
        + id + " AND competitor_groups.group_id = '" + Sql_Quote(code) + "'");
    for (; !orphans.eof(); orphans.next()) {
        const QVariant competitor = orphans.value("competitor_id");
        Delete_Marks_Of(conn, comp, code, competitor);
        conn.execute("DELETE FROM competitor_groups WHERE " + Event_Where(comp, code)
                     + " AND competitor_id = " + QString::number(To_Int16(competitor)));
    }
}
