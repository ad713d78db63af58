#pragma once
#include "core/db.h"
#include "support/fixtures.h"

#include <QString>

// Tables that hold one row per result, mark or link of an event's dance.
inline const char *const Event_Tables[] = {"dance_results", "highland_results", "judges_results",
                                           "comp_judges_results", "judges_results_judges", "overall_dance_results",
                                           "overall_results", "national_results", "tie_break", "dance_no_prizes",
                                           "dance_no_dancers", "competitor_groups"};

// One row in every result table, mark table and link table for a dance of an
// event, as a tally and the mark screens would leave them.
inline void Fill_Event_Rows(Connection &c, short comp, const QString &code, int dance, int judgeId = 1)
{
    const QVariantList k{comp, code, dance};
    c.execute("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, competitor_id, points, placing) "
              "VALUES(?,?,?,1,101,137,1)", k);
    c.execute("INSERT INTO judges_results(competition_id, group_id, dance_id, competitor_id, points_awarded1) "
              "VALUES(?,?,?,101,90)", k);
    c.execute("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, points_awarded1) "
              "VALUES(?,?,?,101,88.5)", k);
    c.execute("INSERT INTO judges_results_judges(competition_id, group_id, dance_id, result_no, judge_id) "
              "VALUES(?,?,?,1,?)", {comp, code, dance, judgeId});
    c.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, placing, tie) "
              "VALUES(?,?,?,101,137,1,'')", k);
    c.execute("INSERT INTO dance_no_prizes(competition_id, group_id, dance_id, no_prizes, auto) VALUES(?,?,?,3,'Y')", k);
    c.execute("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES(?,?,?)", k);
    if (Fixture::Count(c, "highland_results", QString("competition_id=%1 AND group_id='%2'").arg(comp).arg(code)) == 0) {
        const QVariantList e{comp, code};
        c.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, points, placing) VALUES(?,?,101,137,1)", e);
        c.execute("INSERT INTO overall_results(competition_id, group_id, competitor_id, points, placing) VALUES(?,?,101,137,1)", e);
        c.execute("INSERT INTO national_results(competition_id, group_id, competitor_id, points, placing) VALUES(?,?,101,137,1)", e);
        c.execute("INSERT INTO tie_break(competition_id, group_id, competitor_id, placing) VALUES(?,?,101,1)", e);
        c.execute("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES(?,101,?)", {comp, code});
    }
}

// A trophy of a competition with one event, one dance and one field value.
inline int Add_Trophy(Connection &c, short comp, const QString &name, const QString &code)
{
    c.execute("INSERT INTO custom_reports(competition_id, name) VALUES(?,?)", {comp, name});
    const int id = static_cast<int>(c.lastInsertId());
    c.execute("INSERT INTO custom_reports_groups(id, group_id) VALUES(?,?)", {id, code});
    c.execute("INSERT INTO custom_reports_dances(id, dance_id) VALUES(?,1)", {id});
    c.execute("INSERT INTO custom_reports_fields(id, fvalue) VALUES(?,'Aberdeen')", {id});
    return id;
}
