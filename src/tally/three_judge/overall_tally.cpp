#include "three_judge_tally.h"
#include "tie_break.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/pause.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"

#include <array>

namespace {

struct Entry
{
    bool held = false;
    short competitor = 0;
    short points = 0;
    short dancePoints = 0;
    short total = 0;
    short place = 0;
    short tied = 0;
};

// A deliberate pause of just over a second, so that the operator sees the
// result being worked out.
void Show_Progress(const Tally_Progress &progress)
{
    constexpr int steps = 20;
    if (progress)
        progress(0, steps);
    for (int wait = 1; wait <= steps + 1; ++wait) {
        Pause_Ms(50);
        if (progress && wait <= steps)
            progress(wait - 1, steps);
    }
}

} // namespace

void Tally_Overall(Connection &conn, const Tally_Progress &progress)
{
    Show_Progress(progress);

    Tally_Transaction t(conn);
    const QString id = QString::number(Current_Competition_Id);
    const QString event = QStringLiteral(" WHERE competition_id = ") + id + QStringLiteral(" AND group_id = '")
                          + Current_Group_Id + QStringLiteral("'");

    conn.execute(QStringLiteral("DELETE FROM highland_results") + event);
    // Ranked on the dances' place points, not on the judges' points.
    RowSet rs = conn.query(QStringLiteral("SELECT SUM(points) AS points, SUM(total_dance_points) AS tot_points, "
                                          "competitor_id FROM overall_dance_results")
                           + event + QStringLiteral(" AND total_dance_points IS NOT NULL GROUP BY competitor_id "
                                                    "ORDER BY 1 DESC"));
    std::array<Entry, Rank_Walk::Slots> entries;
    Rank_Walk walk(1000.0, 6);
    for (; !rs.eof(); rs.next()) {
        const Rank_Walk::Outcome outcome = walk.take(rs.toDouble(QStringLiteral("points")));
        if (outcome == Rank_Walk::Stopped)
            break;
        if (outcome == Rank_Walk::Skipped)
            continue;
        Entry &e = entries[static_cast<size_t>(walk.slot())];
        e.held = true;
        e.competitor = rs.toShort(QStringLiteral("competitor_id"));
        e.place = walk.place();
        e.points = Place_Points(e.place);
        e.dancePoints = To_Int16(rs.value(QStringLiteral("points")));
        e.total = To_Int16(rs.value(QStringLiteral("tot_points")));
        if (outcome == Rank_Walk::Same_Place) {
            e.tied = 1;
            if (walk.slot() > 0)
                entries[static_cast<size_t>(walk.slot() - 1)].tied = 1;
        }
    }
    const QString head = QStringLiteral("INSERT INTO highland_results(competition_id, group_id, competitor_id, points, "
                                        "dance_points, total_dance_points, placing, tied) VALUES (")
                         + id + QStringLiteral(",'") + Current_Group_Id + QStringLiteral("',");
    for (int i = 0; i < walk.count(); ++i) {
        const Entry &e = entries[static_cast<size_t>(i)];
        if (e.held)
            conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                         + QStringLiteral(", ") + QString::number(e.dancePoints) + QStringLiteral(", ")
                         + QString::number(e.total) + QStringLiteral(", ") + QString::number(e.place)
                         + QStringLiteral(", ") + QString::number(e.tied) + QLatin1Char(')'));
    }

    Break_Ties(conn);

    if (progress)
        progress(20, 20);
}
