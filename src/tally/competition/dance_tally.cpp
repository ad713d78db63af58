#include "dance_tally.h"

#include "prize_count.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"
#include "tally/tally_transaction.h"

namespace {

struct Entry : Ranked_Entry
{
    static inline const QString Tie_Mark = QStringLiteral("=");
    QString tie;
};

} // namespace

void Recalc_Dance(Connection &conn, short &noPrizes, bool autoSelected, int markedCells)
{
    Tally_Transaction t(conn);
    const QString id = QString::number(Current_Competition_Id);
    const QString dance = QString::number(Current_Dance_Id);
    const QString where = QStringLiteral(" WHERE competition_id = ") + id + QStringLiteral(" AND group_id = '")
                          + Sql_Quote(Current_Group_Id) + QStringLiteral("' AND dance_id = ") + dance;

    // Competition events never fill this; it stays clean when a category changes kind.
    conn.execute(QStringLiteral("DELETE FROM dance_results") + where);

    if (autoSelected && markedCells > 0)
        noPrizes = System_No_Prizes(conn, markedCells);

    RowSet rs = conn.query(QStringLiteral("SELECT competitor_id, points_awarded1 FROM comp_judges_results") + where
                           + QStringLiteral(" AND points_awarded1 <> 0 AND points_awarded1 IS NOT NULL "
                                            "ORDER BY points_awarded1 DESC"));
    const auto placed = Rank_Rows<Entry>(rs, QStringLiteral("points_awarded1"), Rank_Walk(10000.0, noPrizes),
                                          [](Entry &e) { e.points = e.place < 7 ? Place_Points(e.place) : short(0); });

    conn.execute(QStringLiteral("DELETE FROM overall_dance_results") + where);
    for (const Entry &e : placed) {
        conn.execute(QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, "
                                    "points, placing, tie) VALUES (")
                     + id + QStringLiteral(",'") + Sql_Quote(Current_Group_Id) + QStringLiteral("',") + dance + QStringLiteral(", ")
                     + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                     + QStringLiteral(", ") + QString::number(e.place) + QStringLiteral(",'") + e.tie
                     + QStringLiteral("')"));
    }
}
