#pragma once
// One event with dance results and judges' placings, written with plain SQL.
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/globals.h"

struct Crosscheck_Event
{
    TestDataFolder env;
    Connection conn;
    short comp = 0;

    Crosscheck_Event()
    {
        conn.open();
        comp = Fixture::Competition(conn);
        Fixture::Event(conn, comp, QStringLiteral("E1"), QStringLiteral("Under 12"), QStringLiteral("C"));
        Fixture::Event(conn, comp, QStringLiteral("E2"), QStringLiteral("Over 12"), QStringLiteral("C"));
        for (int n : {12, 17, 20})
            Fixture::Competitor(conn, comp, n, QStringLiteral("Ann"), QStringLiteral("O'Neill"), {QStringLiteral("E1")});
        // dance, dancer, points, place, tie
        const QList<QVariantList> places = {{1, 20, 91, 2, "="}, {1, 12, 137, 1, " "}, {1, 17, 91, 2, "="},
                                            {2, 17, 137, 1, " "}, {2, 20, 0, 7, " "}};
        for (const QVariantList &p : places)
            conn.execute(QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, "
                                        "competitor_id, points, placing, tie) VALUES(?,'E1',?,?,?,?,?)"),
                         {comp, p[0], p[1], p[2], p[3], p[4]});
        conn.execute(QStringLiteral("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, "
                                    "competitor_id, points, placing, tie) VALUES(?,'E2',1,12,137,1,' ')"),
                     {comp});
        // dance, judge, dancer, place
        const QList<QVariantList> judged = {{1, 2, 12, 1}, {1, 1, 17, 2}, {1, 1, 12, 1}, {2, 1, 17, 1}};
        for (const QVariantList &p : judged)
            conn.execute(QStringLiteral("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, "
                                        "competitor_id, points, placing) VALUES(?,'E1',?,?,?,0,?)"),
                         {comp, p[0], p[1], p[2], p[3]});
        Current_Competition_Id = comp;
        Current_Group_Id = QStringLiteral("E1");
    }
};
