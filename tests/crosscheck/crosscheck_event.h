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
    Crosscheck_Event()
    {
        conn.open();
        Current_Competition_Id = Fixture::Competition(conn);
        Current_Group_Id = QStringLiteral("E1");
        for (int n : {12, 17, 20})
            Fixture::Competitor(conn, Current_Competition_Id, n, "Ann", "O'Neill", {"E1"});
        const QString c = QString::number(Current_Competition_Id);
        // Another event's row and a place 7 with no points are among them.
        conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, placing, "
                     "tie) VALUES(" + c + ",'E1',1,20,91,2,'='),(" + c + ",'E1',1,12,137,1,' '),(" + c + ",'E1',1,17,91,2,'='),("
                     + c + ",'E1',2,17,137,1,' '),(" + c + ",'E1',2,20,0,7,' '),(" + c + ",'E2',1,12,137,1,' ')");
        conn.execute("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, competitor_id, points, "
                     "placing) VALUES(" + c + ",'E1',1,2,12,0,1),(" + c + ",'E1',1,1,17,0,2),(" + c + ",'E1',1,1,12,0,1),("
                     + c + ",'E1',2,1,17,0,1)");
    }
};
