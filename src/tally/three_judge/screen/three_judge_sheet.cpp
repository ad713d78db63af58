#include "three_judge_sheet.h"
#include "three_judge_kind.h"
#include "core/db.h"
#include "core/routines.h"

namespace ThreeJudge {

namespace {

QString Num(int v)
{
    return QString::number(v);
}

QString Event_Where(short comp, const QString &group)
{
    return "competition_id = " + Num(comp) + " AND group_id = '" + Sql_Quote(group) + "'";
}

QList<QStringList> Texts(RowSet rs)
{
    QList<QStringList> rows;
    for (; !rs.eof(); rs.next()) {
        QStringList row;
        for (int f = 0; f < rs.fieldCount(); ++f)
            row << rs.text(rs.fieldName(f));
        rows << row;
    }
    return rows;
}

} // namespace

QList<Event_Entry> Load_Events(Connection &conn, short comp, const QString &category)
{
    RowSet rs = conn.query("Select competition_group_id, age_group, category, championship_title from age_groups "
                           "where competition_id = " + Num(comp) + " AND category = '" + category
                           + "' ORDER BY orderby, championship_title, age_group");
    QList<Event_Entry> events;
    for (; !rs.eof(); rs.next())
        events << Event_Entry{rs.text("competition_group_id"), rs.text("age_group") + " " + rs.text("championship_title")};
    return events;
}

QList<Judge_Entry> Load_Judge_Lists(Connection &conn, short comp, bool surnameFirst)
{
    const QString columns = surnameFirst ? " surname as n1, forename as n2" : " forename as n1, surname as n2";
    RowSet rs = conn.query("SELECT " + columns + ", judge_id FROM judges WHERE competition_id  = " + Num(comp)
                           + " ORDER BY surname, forename");
    QList<Judge_Entry> judges;
    for (; !rs.eof(); rs.next())
        judges << Judge_Entry{rs.text("n1") + " " + rs.text("n2"), rs.value("judge_id").toInt()};
    return judges;
}

int Premiership_Dance_Count(Connection &conn, short comp, const QString &group)
{
    return conn.scalar("SELECT count (dance_id) as no_of_dances from (select distinct d.dance_id FROM category_dances cd, "
                       "dances d, age_groups a WHERE cd.competition_id = " + Num(comp)
                       + " AND a.competition_group_id = '" + Sql_Quote(group)
                       + "' AND cd.competition_id = a.competition_id AND cd.dance_id = d.dance_id AND a.category = "
                         "cd.category_id)")
        .toInt();
}

QList<Event_Dance> Load_Event_Dances(Connection &conn, short comp, const QString &group)
{
    RowSet rs = conn.query("SELECT d.dance_id, d.dance FROM category_dances cd, dances d, age_groups a WHERE "
                           "cd.competition_id = " + Num(comp) + " AND a.competition_group_id = '" + Sql_Quote(group)
                           + "' AND cd.competition_id = a.competition_id AND cd.dance_id = d.dance_id AND a.category = "
                             "cd.category_id ORDER BY cd.orderby");
    QList<Event_Dance> dances;
    for (; !rs.eof(); rs.next())
        dances << Event_Dance{rs.toShort("dance_id"), rs.text("dance")};
    return dances;
}

std::array<QString, 4> Load_Dance_Names(Connection &conn, short comp, const QString &group)
{
    std::array<QString, 4> names = Default_Dance_Names();
    RowSet rs = conn.query("SELECT dance_id, name FROM championship_dance_names WHERE " + Event_Where(comp, group));
    for (; !rs.eof(); rs.next()) {
        const short n = rs.toShort("dance_id");
        if (n >= 1 && n <= 4)
            names[n - 1] = rs.text("name");
    }
    return names;
}

bool Save_Dance_Name(Connection &conn, short comp, const QString &group, int n, const QString &name)
{
    const bool named = name != Default_Dance_Names().at(n - 1);
    // The old name goes only with the new one written: one unit.
    In_Savepoint(conn, [&] {
        conn.execute("DELETE FROM championship_dance_names WHERE " + Event_Where(comp, group)
                     + " AND dance_id = " + Num(n));
        if (named)
            conn.execute("INSERT INTO championship_dance_names (competition_id, group_id, dance_id, name) VALUES("
                         + Num(comp) + ",'" + Sql_Quote(group) + "'," + Num(n) + ",'" + Sql_Quote(name) + "')");
    });
    return named;
}

void Reset_Dance_Names(Connection &conn, short comp, const QString &group)
{
    conn.execute("DELETE FROM championship_dance_names WHERE " + Event_Where(comp, group)
                 + " AND (dance_id = 1 OR dance_id = 2 OR dance_id = 3 OR dance_id = 4)");
}

void Sync_Entries(Connection &conn, short comp, const QString &group, const std::array<short, 4> &dances)
{
    Transaction t(conn);
    const QString id = Num(comp);
    RowSet missing = conn.query(
        "SELECT DISTINCT competitor_groups.competitor_id FROM competitor_groups LEFT JOIN judges_results ON "
        "(competitor_groups.group_id = judges_results.group_id) AND (competitor_groups.competition_id = "
        "judges_results.competition_id) AND (competitor_groups.competitor_id = judges_results.competitor_id) "
        "WHERE judges_results.group_id IS NULL AND competitor_groups.competition_id = " + id
        + " AND competitor_groups.group_id = '" + Sql_Quote(group) + "'");
    for (; !missing.eof(); missing.next()) {
        const QString dancer = Num(missing.toShort("competitor_id"));
        for (short dance : dances)
            conn.execute("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id) VALUES(" + id
                         + ",'" + Sql_Quote(group) + "'," + Num(dance) + "," + dancer + ")");
    }

    // Withdrawn from the event, or gone from the competitors: the marks go
    // with no question asked.
    const QString notEntered =
        "SELECT DISTINCT judges_results.competitor_id AS competitor_id FROM judges_results LEFT JOIN competitor_groups "
        "ON (judges_results.group_id = competitor_groups.group_id) AND (judges_results.competition_id = "
        "competitor_groups.competition_id) AND (judges_results.competitor_id = competitor_groups.competitor_id) "
        "WHERE competitor_groups.group_id IS NULL AND judges_results.competition_id = " + id
        + " AND judges_results.group_id = '" + Sql_Quote(group) + "'";
    const QString noCompetitor =
        "SELECT DISTINCT judges_results.competitor_id AS competitor_id FROM judges_results LEFT JOIN competitors ON "
        "(judges_results.competition_id = competitors.competition_id) AND (judges_results.competitor_id = "
        "competitors.competitor_id) WHERE competitors.competitor_id IS NULL AND judges_results.competition_id = " + id
        + " AND judges_results.group_id = '" + Sql_Quote(group) + "'";
    for (const QString &sql : {notEntered, noCompetitor}) {
        RowSet gone = conn.query(sql);
        for (; !gone.eof(); gone.next())
            conn.execute("DELETE FROM judges_results WHERE " + Event_Where(comp, group)
                         + " AND competitor_id = " + Num(gone.toShort("competitor_id")));
    }
}

short Read_No_Overall_Prizes(Connection &conn, short comp, const QString &group)
{
    RowSet rs = conn.query("SELECT no_overall_prizes FROM age_groups WHERE competition_id = " + Num(comp)
                           + " AND competition_group_id = '" + Sql_Quote(group) + "'");
    return rs.eof() ? short(0) : rs.toShort("no_overall_prizes");
}

int Count_Event_Dancers(Connection &conn, short comp, const QString &group)
{
    return conn.scalar("Select count(*) as no_dancers from competitor_groups where " + Event_Where(comp, group)).toInt();
}

bool Flag_Small_Event(Connection &conn, short comp, const QString &group)
{
    if (Count_Event_Dancers(conn, comp, group) >= 6)
        return false;
    Transaction t(conn);
    conn.execute("DELETE FROM dance_no_dancers WHERE " + Event_Where(comp, group));
    for (int n = 1; n <= 4; ++n)
        conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES (" + Num(comp) + ",'"
                     + Sql_Quote(group) + "'," + Num(n) + ")");
    return true;
}

bool Flag_Small_Dance(Connection &conn, short comp, const QString &group, short dance)
{
    const QString where = Event_Where(comp, group) + " AND dance_id = " + Num(dance);
    if (conn.scalar("SELECT COUNT(*) as num_comps FROM judges_results where " + where).toInt() >= 6)
        return false;
    Transaction t(conn);
    conn.execute("DELETE FROM dance_no_dancers WHERE " + where);
    conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES (" + Num(comp) + ",'" + Sql_Quote(group)
                 + "'," + Num(dance) + ")");
    return true;
}

bool Dance_Flagged_No_Dancers(Connection &conn, short comp, const QString &group, short dance)
{
    RowSet rs = conn.query("Select dance_id FROM dance_no_dancers where " + Event_Where(comp, group)
                           + " AND dance_id =" + Num(dance));
    return !rs.eof();
}

void Set_Include_In_Trophies(Connection &conn, short comp, const QString &group, short dance, int value)
{
    Transaction t(conn);
    conn.execute("DELETE FROM dance_no_dancers WHERE " + Event_Where(comp, group) + " AND dance_id = " + Num(dance));
    if (value != 1)
        conn.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES (" + Num(comp) + ",'"
                     + Sql_Quote(group) + "'," + Num(dance) + ")");
}

QString Judge_Name(Connection &conn, int judgeId)
{
    RowSet rs = conn.query("SELECT ifnull(forename,'') || ' ' || ifnull(surname,'') AS name FROM judges WHERE judge_id = "
                           + Num(judgeId));
    return rs.eof() ? QString() : rs.text("name");
}

void Set_Dance_Judge(Connection &conn, short comp, const QString &group, short dance, int n, int judgeId)
{
    Transaction t(conn);
    conn.execute("DELETE FROM judges_results_judges WHERE " + Event_Where(comp, group) + " AND dance_id = " + Num(dance)
                 + " AND result_no = " + Num(n));
    conn.execute("INSERT INTO judges_results_judges(competition_id, group_id, dance_id, result_no, judge_id) VALUES("
                 + Num(comp) + ",'" + Sql_Quote(group) + "'," + Num(dance) + "," + Num(n) + "," + Num(judgeId) + ")");
}

std::array<std::optional<QString>, 3> Load_Dance_Judges(Connection &conn, short comp, const QString &group,
                                                        short dance)
{
    std::array<std::optional<QString>, 3> names;
    for (int n = 1; n <= 3; ++n) {
        RowSet rs = conn.query("SELECT j.forename, j.surname, j.judge_id FROM judges j, judges_results_judges r WHERE "
                               "j.competition_id = r.competition_id AND j.judge_id = r.judge_id AND r.group_id = '"
                               + Sql_Quote(group) + "' AND r.dance_id = " + Num(dance) + " AND r.competition_id = " + Num(comp)
                               + " AND r.result_no = " + Num(n));
        // Each row writes the header in turn: the last one found stands.
        for (; !rs.eof(); rs.next())
            names[n - 1] = rs.text("forename") + " " + rs.text("surname");
    }
    return names;
}

QList<QStringList> Overall_Result_Rows(Connection &conn, short comp, const QString &group)
{
    return Texts(conn.query(
        "Select ifnull(h.placing,'') || ifnull(h.tie,'') AS Place, h.competitor_id As Num, h.dance_points, "
        "ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name from highland_results h, competitors c where "
        "h.competition_id = " + Num(comp) + " AND c.competition_id = " + Num(comp) + " AND h.group_id = '" + Sql_Quote(group)
        + "' AND c.competitor_id = h.competitor_id Order by placing"));
}

QList<QStringList> Dance_Result_Rows(Connection &conn, short comp, const QString &group, short dance)
{
    return Texts(conn.query(
        "Select ifnull(o.placing,'') || ifnull(o.tie,'') AS Place, o.competitor_id As Num, "
        "ifnull(c.forename,'') || ' ' || ifnull(c.surname,'') as name from overall_dance_results o, competitors c where "
        "o.competition_id = " + Num(comp) + " AND c.competition_id = " + Num(comp) + " AND o.group_id = '" + Sql_Quote(group)
        + "' AND o.dance_id = " + Num(dance) + " AND o.points  > 0 AND o.competitor_id = c.competitor_id order by placing"));
}

void Write_Random_Draw(Connection &conn, short comp, const QString &group, const QStringList &dancers,
                       const QList<int> &numbers)
{
    Transaction t(conn);
    int next = 0;
    // Dances 1 to 4 by number, as the re-tally on selection does.
    for (int n = 1; n <= 4; ++n)
        for (const QString &dancer : dancers) {
            if (next >= numbers.size())
                throw AppError(QStringLiteral("Subscript out of range"));
            conn.execute("UPDATE judges_results SET orderby = " + Num(numbers.at(next++)) + " WHERE "
                         + Event_Where(comp, group) + " AND dance_id = " + Num(n) + " AND competitor_id = " + dancer);
        }
}

} // namespace ThreeJudge
