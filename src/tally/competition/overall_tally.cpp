#include "overall_tally.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"
#include "core/pause.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"

namespace {

struct Entry : Ranked_Entry
{
    static inline const QString Tie_Mark = QStringLiteral("=");
    short dancePoints = 0;
    QString tie;
};

// One ranking of summed points into a result table.
void Overall_Pass(Connection &conn, const QString &sumSql, const QString &table, short noOverallPrizes)
{
    RowSet rs = conn.query(sumSql);
    const auto fill = [&rs](Entry &e) {
        // No place test here: a seventh place reads the empty slot, an eighth is a fault.
        e.points = Place_Points(e.place);
        e.dancePoints = To_Int16(rs.value(QStringLiteral("points")));
    };
    const auto placed = Rank_Rows<Entry>(rs, QStringLiteral("points"), Rank_Walk(10000.0, noOverallPrizes), fill);

    const QString head = QStringLiteral("INSERT INTO ") + table
                         + QStringLiteral("(competition_id, group_id, competitor_id, points, dance_points, placing, tie) "
                                          "VALUES (")
                         + QString::number(Current_Competition_Id) + QStringLiteral(",'") + Sql_Quote(Current_Group_Id)
                         + QStringLiteral("',");
    for (const Entry &e : placed) {
        conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                     + QStringLiteral(", ") + QString::number(e.dancePoints) + QStringLiteral(", ")
                     + QString::number(e.place) + QStringLiteral(", '") + e.tie + QStringLiteral("')"));
    }
}

} // namespace

void Recalc_Overall(Connection &conn, const Overall_Settings &settings, const Tally_Progress &progress)
{
    // The operator sees the result being worked out, whatever the size of the event.
    const Held_Event held;
    constexpr int steps = 20;
    if (progress)
        progress(0, steps);
    for (int k = 1; k <= steps; ++k) {
        Pause_Ms(50, Pause_Input::Held);
        if (progress)
            progress(k, steps);
    }
    held.Restore();

    Tally_Transaction t(conn);
    const QString event = QStringLiteral(" WHERE competition_id = ") + QString::number(Current_Competition_Id)
                          + QStringLiteral(" AND group_id = '") + Sql_Quote(Current_Group_Id) + QStringLiteral("'");
    const QString sum = QStringLiteral("SELECT SUM(points) AS points, competitor_id FROM overall_dance_results") + event
                        + settings.Dance_Filter;
    const QString grouped = QStringLiteral(" GROUP BY competitor_id ORDER BY 1 DESC");

    conn.execute(QStringLiteral("DELETE FROM overall_results") + event);
    Overall_Pass(conn, sum + grouped, QStringLiteral("overall_results"), settings.No_Overall_Prizes);

    if (settings.Split_Overalls == QLatin1String("Y")) {
        conn.execute(QStringLiteral("DELETE FROM highland_results") + event);
        conn.execute(QStringLiteral("DELETE FROM national_results") + event);
        Overall_Pass(conn, sum + QStringLiteral(" AND dance_id <= 5") + grouped, QStringLiteral("highland_results"),
                     settings.No_Overall_Prizes);
        Overall_Pass(conn, sum + QStringLiteral(" AND dance_id >= 6") + grouped, QStringLiteral("national_results"),
                     settings.No_Overall_Prizes);
    }
}
