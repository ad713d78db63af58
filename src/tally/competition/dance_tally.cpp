#include "dance_tally.h"

#include "prize_count.h"

#include "core/db.h"
#include "core/globals.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"
#include "tally/tally_transaction.h"

#include <array>

namespace {

struct Entry
{
    bool held = false;
    short competitor = 0;
    short points = 0;
    short place = 0;
    QString tie;
};

} // namespace

void Recalc_Dance(Connection &conn, short &noPrizes, bool autoSelected, int markedCells)
{
    Tally_Transaction t(conn);
    const QString id = QString::number(Current_Competition_Id);
    const QString dance = QString::number(Current_Dance_Id);
    const QString where = QStringLiteral(" WHERE competition_id = ") + id + QStringLiteral(" AND group_id = '")
                          + Current_Group_Id + QStringLiteral("' AND dance_id = ") + dance;

    // Competition events never fill this; it stays clean when a category changes kind.
    conn.execute(QStringLiteral("DELETE FROM dance_results") + where);

    if (autoSelected && markedCells > 0)
        noPrizes = System_No_Prizes(conn, markedCells);

    RowSet rs = conn.query(QStringLiteral("SELECT competitor_id, points_awarded1 FROM comp_judges_results") + where
                           + QStringLiteral(" AND points_awarded1 <> 0 AND points_awarded1 IS NOT NULL "
                                            "ORDER BY points_awarded1 DESC"));
    std::array<Entry, Rank_Walk::Slots> entries;
    Rank_Walk walk(10000.0, noPrizes);
    for (; !rs.eof(); rs.next()) {
        const Rank_Walk::Outcome outcome = walk.take(rs.toDouble(QStringLiteral("points_awarded1")));
        if (outcome == Rank_Walk::Stopped)
            break;
        if (outcome == Rank_Walk::Skipped)
            continue;
        Entry &e = entries[static_cast<size_t>(walk.slot())];
        e.held = true;
        e.competitor = rs.toShort(QStringLiteral("competitor_id"));
        e.place = walk.place();
        e.points = e.place < 7 ? Place_Points(e.place) : short(0);
        if (outcome == Rank_Walk::Same_Place) {
            e.tie = QStringLiteral("=");
            if (walk.slot() > 0)
                entries[static_cast<size_t>(walk.slot() - 1)].tie = QStringLiteral("=");
        }
    }

    conn.execute(QStringLiteral("DELETE FROM overall_dance_results") + where);
    for (int i = 0; i < walk.count(); ++i) {
        const Entry &e = entries[static_cast<size_t>(i)];
        if (!e.held)
            continue;
        conn.execute(QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, "
                                    "points, placing, tie) VALUES (")
                     + id + QStringLiteral(",'") + Current_Group_Id + QStringLiteral("',") + dance + QStringLiteral(", ")
                     + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                     + QStringLiteral(", ") + QString::number(e.place) + QStringLiteral(",'") + e.tie
                     + QStringLiteral("')"));
    }
}
