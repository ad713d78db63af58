#pragma once
// Test data for the tallies: one competition with one event selected, marks
// and dance results written as the screens and tallies write them.
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/globals.h"

#include <QStringList>
#include <QVariant>

struct Tally_Event
{
    TestDataFolder env;
    Connection conn;
    short comp = 0;

    explicit Tally_Event(const QString &category = QStringLiteral("H"), int noPrizes = 6,
                         const QString &split = QStringLiteral("N"), int noOverallPrizes = 6,
                         const QString &incTFling = QStringLiteral("Y"))
    {
        conn.open();
        comp = Fixture::Competition(conn);
        Fixture::Event(conn, comp, QStringLiteral("E1"), QStringLiteral("Under 12"), category, noPrizes, split,
                       noOverallPrizes, incTFling);
        Fixture::Event(conn, comp, QStringLiteral("E2"), QStringLiteral("Over 12"), category, noPrizes, split,
                       noOverallPrizes, incTFling);
        select(QStringLiteral("E1"), 1);
    }

    void select(const QString &code, short dance)
    {
        Current_Competition_Id = comp;
        Current_Group_Id = code;
        Current_Dance_Id = dance;
    }

    // One judge's mark (Competition event) of the current event and dance.
    void mark(int dancer, const QVariant &mark)
    {
        conn.execute(QStringLiteral("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                                    "points_awarded1) VALUES(?,?,?,?,?)"),
                     {comp, Current_Group_Id, Current_Dance_Id, dancer, mark});
    }

    // The three judges' marks of the current event and dance; -1 is "D".
    void marks(int dancer, const QVariant &j1, const QVariant &j2, const QVariant &j3)
    {
        conn.execute(QStringLiteral("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, "
                                    "points_awarded1, points_awarded2, points_awarded3) VALUES(?,?,?,?,?,?,?)"),
                     {comp, Current_Group_Id, Current_Dance_Id, dancer, j1, j2, j3});
    }

    // A dance result of the current event as a tally leaves it.
    void danceResult(int dancer, int dance, int points, const QVariant &total = QVariant())
    {
        conn.execute(QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, "
                                    "points, total_dance_points, placing, tie) VALUES(?,?,?,?,?,?,1,'')"),
                     {comp, Current_Group_Id, dance, dancer, points, total});
    }

    // "dancer place[tie] points" per row of a result table for the current
    // event, best first; a NULL tie shows no brackets at all.
    QStringList rows(const QString &table, const QString &extraWhere = QString(),
                     const QString &pointsColumn = QStringLiteral("points"))
    {
        RowSet rs = conn.query(QStringLiteral("SELECT competitor_id, placing, tie, ") + pointsColumn
                               + QStringLiteral(" AS p FROM ") + table + QStringLiteral(" WHERE competition_id = ")
                               + QString::number(comp) + QStringLiteral(" AND group_id = '") + Current_Group_Id
                               + QStringLiteral("'") + extraWhere + QStringLiteral(" ORDER BY placing, competitor_id"));
        QStringList out;
        for (; !rs.eof(); rs.next()) {
            const QString tie = rs.isNull(QStringLiteral("tie"))
                                    ? QString()
                                    : QLatin1Char('[') + rs.text(QStringLiteral("tie")) + QLatin1Char(']');
            out << rs.text(QStringLiteral("competitor_id")) + QLatin1Char(' ') + rs.text(QStringLiteral("placing")) + tie
                       + QLatin1Char(' ') + rs.text(QStringLiteral("p"));
        }
        return out;
    }

    QStringList danceRows(short dance)
    {
        return rows(QStringLiteral("overall_dance_results"), QStringLiteral(" AND dance_id = ") + QString::number(dance));
    }

    // "dancer place points" of one judge's placings of a dance.
    QStringList judgeRows(short dance, int resultNo)
    {
        RowSet rs = conn.query(QStringLiteral("SELECT competitor_id, placing, points FROM dance_results WHERE "
                                              "competition_id = ?  AND group_id = ? AND dance_id = ? AND result_no = ? "
                                              "ORDER BY placing, competitor_id"),
                               {comp, Current_Group_Id, dance, resultNo});
        QStringList out;
        for (; !rs.eof(); rs.next())
            out << rs.text(QStringLiteral("competitor_id")) + QLatin1Char(' ') + rs.text(QStringLiteral("placing"))
                       + QLatin1Char(' ') + rs.text(QStringLiteral("points"));
        return out;
    }
};
