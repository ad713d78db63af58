#include "three_judge_tally.h"
#include "tie_break.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "core/pause.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"

namespace {

struct Entry : Ranked_Entry
{
    // Written to the tied column, which the tie-break reads.
    static constexpr short Tie_Mark = 1;
    short dancePoints = 0;
    short total = 0;
    short tie = 0;
};

// A deliberate pause of just over a second, so that the operator sees the
// result being worked out.
void Show_Progress(const Tally_Progress &progress)
{
    constexpr int steps = 20;
    if (progress)
        progress(0, steps);
    for (int wait = 1; wait <= steps + 1; ++wait) {
        Pause_Ms(50, Pause_Input::Held);
        if (progress && wait <= steps)
            progress(wait - 1, steps);
    }
}

} // namespace

void Tally_Overall(Connection &conn, const Tally_Progress &progress)
{
    const Held_Event held;
    Show_Progress(progress);
    held.Restore();

    Tally_Transaction t(conn);
    const QString id = QString::number(Current_Competition_Id);
    const QString event = QStringLiteral(" WHERE competition_id = ") + id + QStringLiteral(" AND group_id = '")
                          + Sql_Quote(Current_Group_Id) + QStringLiteral("'");

    conn.execute(QStringLiteral("DELETE FROM highland_results") + event);
    // Ranked on the dances' place points, not on the judges' points.
    RowSet rs = conn.query(QStringLiteral("SELECT SUM(points) AS points, SUM(total_dance_points) AS tot_points, "
                                          "competitor_id FROM overall_dance_results")
                           + event + QStringLiteral(" AND total_dance_points IS NOT NULL GROUP BY competitor_id "
                                                    "ORDER BY 1 DESC"));
    const auto placed = Rank_Rows<Entry>(rs, QStringLiteral("points"), Rank_Walk(1000.0, 6), [&rs](Entry &e) {
        e.points = Place_Points(e.place);
        e.dancePoints = To_Int16(rs.value(QStringLiteral("points")));
        e.total = To_Int16(rs.value(QStringLiteral("tot_points")));
    });
    const QString head = QStringLiteral("INSERT INTO highland_results(competition_id, group_id, competitor_id, points, "
                                        "dance_points, total_dance_points, placing, tied) VALUES (")
                         + id + QStringLiteral(",'") + Sql_Quote(Current_Group_Id) + QStringLiteral("',");
    for (const Entry &e : placed)
        conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                     + QStringLiteral(", ") + QString::number(e.dancePoints) + QStringLiteral(", ")
                     + QString::number(e.total) + QStringLiteral(", ") + QString::number(e.place)
                     + QStringLiteral(", ") + QString::number(e.tie) + QLatin1Char(')'));

    Break_Ties(conn);

    if (progress)
        progress(20, 20);
}
