#include "tie_break.h"

#include "core/db.h"
#include "core/globals.h"
#include "core/routines.h"

namespace {

QString eventWhere()
{
    return QStringLiteral(" WHERE competition_id = ") + QString::number(Current_Competition_Id)
           + QStringLiteral(" AND group_id = '") + Sql_Quote(Current_Group_Id) + QStringLiteral("'");
}

QString dancerWhere(const QString &competitor)
{
    return eventWhere() + QStringLiteral(" AND competitor_id = ") + competitor;
}

// The three measures of every tied dancer, one tie_break row each.
void Gather_Measures(Connection &conn)
{
    conn.execute(QStringLiteral("DELETE FROM tie_break") + eventWhere());
    RowSet tied = conn.query(QStringLiteral("select competitor_id, placing FROM highland_results") + eventWhere()
                             + QStringLiteral(" AND tied = 1"));
    for (; !tied.eof(); tied.next()) {
        const QString competitor = tied.text(QStringLiteral("competitor_id"));
        // Judges' placings over all dances, at most 12.
        const QString noPrizes = conn.query(QStringLiteral("select count(*) AS no_prizes FROM dance_results")
                                            + dancerWhere(competitor))
                                     .text(QStringLiteral("no_prizes"));
        // Called dance_points in tie_break, but it is the sum of the judges' points.
        const QString dancePoints = conn.query(QStringLiteral("SELECT SUM(total_dance_points) AS tot_points FROM "
                                                              "overall_dance_results")
                                               + dancerWhere(competitor)
                                               + QStringLiteral(" And total_dance_points Is Not Null"))
                                        .text(QStringLiteral("tot_points"));
        // A dance won jointly counts for every winner.
        const QString noFirsts = conn.query(QStringLiteral("select count(*) AS no_firsts FROM overall_dance_results")
                                            + dancerWhere(competitor) + QStringLiteral(" AND points=137"))
                                     .text(QStringLiteral("no_firsts"));
        conn.execute(QStringLiteral("INSERT INTO tie_break(competition_id, group_id, competitor_id, placing, no_firsts, "
                                    "no_prizes, dance_points) VALUES (")
                     + QString::number(Current_Competition_Id) + QStringLiteral(",'") + Sql_Quote(Current_Group_Id)
                     + QStringLiteral("',") + competitor + QLatin1Char(',') + tied.text(QStringLiteral("placing"))
                     + QLatin1Char(',') + noFirsts + QLatin1Char(',') + noPrizes + QLatin1Char(',') + dancePoints
                     + QLatin1Char(')'));
    }
}

// Walks each tied group best first. shift counts the distinct steps inside a
// group, not the dancers passed, and the gap the ranking left behind the group
// stays as it was.
void Settle_Ties(Connection &conn)
{
    RowSet rs = conn.query(QStringLiteral("select competitor_id, placing, no_firsts, no_prizes, dance_points FROM tie_break")
                           + eventWhere()
                           + QStringLiteral(" ORDER BY placing, no_firsts DESC , dance_points DESC, no_prizes DESC"));
    double lastPlacing = 1000, lastFirsts = 1000, lastPrizes = 1000, lastPoints = 1000;
    QString lastCompetitor;
    int shift = 0;
    for (; !rs.eof(); rs.next()) {
        const QString competitor = rs.text(QStringLiteral("competitor_id"));
        const double placing = rs.toDouble(QStringLiteral("placing"));
        const double firsts = rs.toDouble(QStringLiteral("no_firsts"));
        const double prizes = rs.toDouble(QStringLiteral("no_prizes"));
        const double points = rs.toDouble(QStringLiteral("dance_points"));
        const QString measures = QStringLiteral(" no_firsts = ") + rs.text(QStringLiteral("no_firsts"))
                                 + QStringLiteral(", no_prizes = ") + rs.text(QStringLiteral("no_prizes"));
        if (placing != lastPlacing) {
            shift = 0;
            conn.execute(QStringLiteral("UPDATE highland_results set") + measures + dancerWhere(competitor));
        } else if (firsts != lastFirsts || prizes != lastPrizes || points != lastPoints) {
            ++shift;
            conn.execute(QStringLiteral("UPDATE highland_results set placing = placing + ") + QString::number(shift)
                         + QStringLiteral(" ,") + measures + QStringLiteral(", tie = ''") + dancerWhere(competitor));
        } else {
            conn.execute(QStringLiteral("UPDATE highland_results set placing = placing + ") + QString::number(shift)
                         + QStringLiteral(" ,") + measures + QStringLiteral(", tie = '='") + dancerWhere(competitor));
            conn.execute(QStringLiteral("UPDATE highland_results set tie = '='") + dancerWhere(lastCompetitor));
        }
        lastPlacing = placing;
        lastFirsts = firsts;
        lastPrizes = prizes;
        lastPoints = points;
        lastCompetitor = competitor;
    }
}

} // namespace

void Break_Ties(Connection &conn)
{
    Gather_Measures(conn);
    Settle_Ties(conn);
}
