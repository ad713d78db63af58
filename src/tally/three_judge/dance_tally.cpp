#include "three_judge_tally.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"

namespace {

// A value above any mark and any sum of a dance (3 x 137).
constexpr double Walk_Start = 1000.0;
constexpr int Judges_Prizes = 6;

// A judge's placing: no tie mark.
using Judge_Entry = Ranked_Entry;

struct Summed_Entry : Ranked_Entry
{
    static inline const QString Tie_Mark = QStringLiteral("=");
    short total = 0;
    // Joined with the place on screens and reports: an untied place reads "3 ".
    QString tie = QStringLiteral(" ");
};

QString danceWhere(const QString &id, const QString &dance)
{
    return QStringLiteral(" WHERE competition_id = ") + id + QStringLiteral(" AND group_id = '") + Sql_Quote(Current_Group_Id)
           + QStringLiteral("' AND dance_id = ") + dance;
}

// One judge's marks into that judge's placings.
void Judge_Pass(Connection &conn, int resultNo, const QString &id, const QString &dance)
{
    const QString col = QStringLiteral("points_awarded") + QString::number(resultNo);
    RowSet rs = conn.query(QStringLiteral("SELECT competitor_id, ") + col + QStringLiteral(" FROM judges_results")
                           + danceWhere(id, dance) + QStringLiteral(" AND ") + col + QStringLiteral(" > 0 AND ") + col
                           + QStringLiteral(" IS NOT NULL ORDER BY ") + col + QStringLiteral(" DESC"));
    const auto placed = Rank_Rows<Judge_Entry>(rs, col, Rank_Walk(Walk_Start, Judges_Prizes),
                                               [](Judge_Entry &e) { e.points = Place_Points(e.place); });
    const QString head = QStringLiteral("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, "
                                        "competitor_id, points, placing) VALUES (")
                         + id + QStringLiteral(",'") + Sql_Quote(Current_Group_Id) + QStringLiteral("',") + dance
                         + QLatin1Char(',') + QString::number(resultNo) + QStringLiteral(", ");
    for (const Judge_Entry &e : placed)
        conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                     + QStringLiteral(", ") + QString::number(e.place) + QLatin1Char(')'));
}

} // namespace

void Tally_Dance(Connection &conn)
{
    Tally_Transaction t(conn);
    const QString id = QString::number(Current_Competition_Id);
    const QString dance = QString::number(Current_Dance_Id);
    const QString where = danceWhere(id, dance);

    conn.execute(QStringLiteral("DELETE FROM dance_results") + where);
    for (int n = 1; n <= 3; ++n)
        Judge_Pass(conn, n, id, dance);

    conn.execute(QStringLiteral("DELETE FROM overall_dance_results") + where);
    RowSet rs = conn.query(QStringLiteral("SELECT SUM(points) AS points, competitor_id FROM dance_results") + where
                           + QStringLiteral(" GROUP BY competitor_id ORDER BY 1 DESC"));
    const auto fill = [&rs](Summed_Entry &e) {
        e.total = To_Int16(rs.value(QStringLiteral("points")));
        e.points = e.place <= 6 ? Place_Points(e.place) : short(0);
    };
    const auto placed =
        Rank_Rows<Summed_Entry>(rs, QStringLiteral("points"), Rank_Walk(Walk_Start, Rank_Walk::No_Limit), fill);
    const QString head = QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, "
                                        "competitor_id, points, total_dance_points, placing, tie) VALUES (")
                         + id + QStringLiteral(",'") + Sql_Quote(Current_Group_Id) + QStringLiteral("',") + dance
                         + QLatin1Char(',');
    for (const Summed_Entry &e : placed)
        conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                     + QStringLiteral(", ") + QString::number(e.total) + QStringLiteral(", ")
                     + QString::number(e.place) + QStringLiteral(", '") + e.tie + QStringLiteral("')"));
}

void Tally_Event_Dances(Connection &conn)
{
    Tally_Transaction t(conn);
    // By literal id on both screens, even where a Premiership's dances have others.
    for (short dance = 1; dance <= 4; ++dance) {
        Current_Dance_Id = dance;
        Tally_Dance(conn);
    }
}
