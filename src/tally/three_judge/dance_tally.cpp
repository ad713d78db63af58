#include "three_judge_tally.h"

#include "core/db.h"
#include "core/globals.h"
#include "tally/place_table.h"
#include "tally/rank_walk.h"

#include <array>

namespace {

// A value above any mark and any sum of a dance (3 x 137).
constexpr double Walk_Start = 1000.0;
constexpr int Judges_Prizes = 6;

struct Entry
{
    bool held = false;
    short competitor = 0;
    short points = 0;
    short total = 0;
    short place = 0;
    QString tie;
};

QString danceWhere(const QString &id, const QString &dance)
{
    return QStringLiteral(" WHERE competition_id = ") + id + QStringLiteral(" AND group_id = '") + Current_Group_Id
           + QStringLiteral("' AND dance_id = ") + dance;
}

// One judge's marks into that judge's placings.
void Judge_Pass(Connection &conn, int resultNo, const QString &id, const QString &dance)
{
    const QString col = QStringLiteral("points_awarded") + QString::number(resultNo);
    RowSet rs = conn.query(QStringLiteral("SELECT competitor_id, ") + col + QStringLiteral(" FROM judges_results")
                           + danceWhere(id, dance) + QStringLiteral(" AND ") + col + QStringLiteral(" > 0 AND ") + col
                           + QStringLiteral(" IS NOT NULL ORDER BY ") + col + QStringLiteral(" DESC"));
    std::array<Entry, Rank_Walk::Slots> entries;
    Rank_Walk walk(Walk_Start, Judges_Prizes);
    for (; !rs.eof(); rs.next()) {
        const Rank_Walk::Outcome outcome = walk.take(rs.toDouble(col));
        if (outcome == Rank_Walk::Stopped)
            break;
        if (outcome == Rank_Walk::Skipped)
            continue;
        Entry &e = entries[static_cast<size_t>(walk.slot())];
        e.held = true;
        e.competitor = rs.toShort(QStringLiteral("competitor_id"));
        e.place = walk.place();
        e.points = Place_Points(e.place);
    }
    const QString head = QStringLiteral("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, "
                                        "competitor_id, points, placing) VALUES (")
                         + id + QStringLiteral(",'") + Current_Group_Id + QStringLiteral("',") + dance
                         + QLatin1Char(',') + QString::number(resultNo) + QStringLiteral(", ");
    for (int i = 0; i < walk.count(); ++i) {
        const Entry &e = entries[static_cast<size_t>(i)];
        if (e.held)
            conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                         + QStringLiteral(", ") + QString::number(e.place) + QLatin1Char(')'));
    }
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
    std::array<Entry, Rank_Walk::Slots> entries;
    Rank_Walk walk(Walk_Start, Rank_Walk::No_Limit);
    for (; !rs.eof(); rs.next()) {
        const Rank_Walk::Outcome outcome = walk.take(rs.toDouble(QStringLiteral("points")));
        if (outcome == Rank_Walk::Skipped)
            continue;
        Entry &e = entries[static_cast<size_t>(walk.slot())];
        e.held = true;
        e.competitor = rs.toShort(QStringLiteral("competitor_id"));
        e.total = To_Int16(rs.value(QStringLiteral("points")));
        e.place = walk.place();
        e.points = e.place <= 6 ? Place_Points(e.place) : short(0);
        if (outcome == Rank_Walk::Same_Place) {
            e.tie = QStringLiteral("=");
            if (walk.slot() > 0)
                entries[static_cast<size_t>(walk.slot() - 1)].tie = QStringLiteral("=");
        } else {
            // Joined with the place on screens and reports: an untied place reads "3 ".
            e.tie = QStringLiteral(" ");
        }
    }
    const QString head = QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, "
                                        "competitor_id, points, total_dance_points, placing, tie) VALUES (")
                         + id + QStringLiteral(",'") + Current_Group_Id + QStringLiteral("',") + dance
                         + QLatin1Char(',');
    for (int i = 0; i < walk.count(); ++i) {
        const Entry &e = entries[static_cast<size_t>(i)];
        if (e.held)
            conn.execute(head + QString::number(e.competitor) + QStringLiteral(", ") + QString::number(e.points)
                         + QStringLiteral(", ") + QString::number(e.total) + QStringLiteral(", ")
                         + QString::number(e.place) + QStringLiteral(", '") + e.tie + QStringLiteral("')"));
    }
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
