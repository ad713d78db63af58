#include "tally_fill.h"
#include "tally/three_judge/three_judge_tally.h"

#include <QtTest>

class TestThreeJudgeTally : public QObject
{
    Q_OBJECT
private slots:
    void judges_placings_summed_into_the_dance_result();
    void marks_that_place_nobody();
    void ties_at_the_top_and_at_sixth_for_a_judge();
    void twenty_second_row_is_a_fault_with_the_dance_half_written();
    void event_dances_are_tallied_by_literal_id();
};

void TestThreeJudgeTally::judges_placings_summed_into_the_dance_result()
{
    Tally_Event ev(QStringLiteral("C"));
    // Dancers A..H are 101..108, X is 109.
    const QList<int> judge1 = {90, 90, 85, 80, 75, 70, 70, 60};
    const QMap<int, int> judges23 = {{109, 95}, {101, 90}, {102, 90}, {103, 80}, {104, 70}, {105, 60}, {106, 50}};
    for (int i = 0; i < 8; ++i)
        ev.marks(101 + i, judge1[i], judges23.value(101 + i, 0), judges23.value(101 + i, 0));
    ev.marks(109, QVariant(), 95, 95);

    Tally_Dance(ev.conn);

    // H opens a new place with seven rows held: cut.
    QCOMPARE(ev.judgeRows(1, 1), QStringList({"101 1 137", "102 1 137", "103 3 71", "104 4 53", "105 5 37",
                                              "106 6 23", "107 6 23"}));
    const QStringList judge2 = {"109 1 137", "101 2 91", "102 2 91", "103 4 53", "104 5 37", "105 6 23"};
    QCOMPARE(ev.judgeRows(1, 2), judge2);
    QCOMPARE(ev.judgeRows(1, 3), judge2);

    // Place points by the summed judges' points; below sixth the row stays with 0.
    QCOMPARE(ev.danceRows(1), QStringList({"101 1[=] 137", "102 1[=] 137", "109 3[ ] 71", "103 4[ ] 53",
                                           "104 5[ ] 37", "105 6[ ] 23", "106 7[=] 0", "107 7[=] 0"}));
    QCOMPARE(ev.rows("overall_dance_results", " AND dance_id = 1", "total_dance_points"),
             QStringList({"101 1[=] 319", "102 1[=] 319", "109 3[ ] 274", "103 4[ ] 177", "104 5[ ] 127",
                          "105 6[ ] 83", "106 7[=] 23", "107 7[=] 23"}));
    QVERIFY(!ev.conn.inTransaction());

    // Run again: the rows are replaced, not added to.
    Tally_Dance(ev.conn);
    QCOMPARE(Fixture::Count(ev.conn, "dance_results"), 19);
    QCOMPARE(Fixture::Count(ev.conn, "overall_dance_results"), 8);
}

void TestThreeJudgeTally::marks_that_place_nobody()
{
    Tally_Event ev(QStringLiteral("PS"));
    ev.marks(101, -1, 90, QVariant());          // "D" from judge 1 only
    ev.marks(102, -1, -1, -1);                  // "D" from all three
    ev.marks(103, 0, 0, QVariant());            // zeros
    ev.marks(104, 80, 80, QVariant());
    ev.marks(105, 70, QVariant(), QVariant());
    // A three-way tie of the sums ends with "=" on all three.
    ev.select("E1", 2);
    ev.marks(201, 90, 80, 70);
    ev.marks(202, 70, 90, 80);
    ev.marks(203, 80, 70, 90);
    ev.marks(204, 60, 60, 60);
    ev.select("E1", 1);

    Tally_Dance(ev.conn);
    QCOMPARE(ev.judgeRows(1, 1), QStringList({"104 1 137", "105 2 91"}));
    QCOMPARE(ev.judgeRows(1, 2), QStringList({"101 1 137", "104 2 91"}));
    QCOMPARE(ev.judgeRows(1, 3), QStringList());
    // Judge 3 gave nothing: the totals are the sum of two judges.
    QCOMPARE(ev.rows("overall_dance_results", " AND dance_id = 1", "total_dance_points"),
             QStringList({"104 1[ ] 228", "101 2[ ] 137", "105 3[ ] 91"}));
    QCOMPARE(Fixture::Count(ev.conn, "dance_results", "competitor_id IN (102, 103)"), 0);

    ev.select("E1", 2);
    Tally_Dance(ev.conn);
    QCOMPARE(ev.danceRows(2), QStringList({"201 1[=] 137", "202 1[=] 137", "203 1[=] 137", "204 4[ ] 53"}));
    QCOMPARE(ev.rows("overall_dance_results", " AND dance_id = 2", "total_dance_points"),
             QStringList({"201 1[=] 299", "202 1[=] 299", "203 1[=] 299", "204 4[ ] 159"}));

    // Marks taken away: both tables end empty for the dance.
    ev.conn.execute("UPDATE judges_results SET points_awarded1 = NULL, points_awarded2 = 0, points_awarded3 = -1");
    Tally_Dance(ev.conn);
    QCOMPARE(Fixture::Count(ev.conn, "dance_results", "dance_id = 2"), 0);
    QCOMPARE(Fixture::Count(ev.conn, "overall_dance_results", "dance_id = 2"), 0);
}

void TestThreeJudgeTally::ties_at_the_top_and_at_sixth_for_a_judge()
{
    Tally_Event ev(QStringLiteral("C"));
    // Judge 1: six equal at the top, a seventh below is cut.
    // Judge 2: five apart and seven equal at sixth, all kept.
    for (int i = 0; i < 7; ++i)
        ev.marks(101 + i, i < 6 ? 85 : 84, QVariant(), QVariant());
    for (int i = 0; i < 12; ++i)
        ev.marks(201 + i, QVariant(), i < 5 ? 95 - i : 60, QVariant());
    Tally_Dance(ev.conn);

    const QStringList judge1 = ev.judgeRows(1, 1);
    QCOMPARE(judge1.size(), 6);
    for (const QString &r : judge1)
        QVERIFY2(r.endsWith(" 1 137"), qPrintable(r));
    QVERIFY(!judge1.join(' ').contains("107"));

    const QStringList judge2 = ev.judgeRows(1, 2);
    QCOMPARE(judge2.size(), 12);
    QCOMPARE(judge2.mid(0, 5), QStringList({"201 1 137", "202 2 91", "203 3 71", "204 4 53", "205 5 37"}));
    for (const QString &r : judge2.mid(5))
        QVERIFY2(r.endsWith(" 6 23"), qPrintable(r));
}

void TestThreeJudgeTally::twenty_second_row_is_a_fault_with_the_dance_half_written()
{
    Tally_Event ev(QStringLiteral("C"));
    // Judge 2 holds 21 rows: five apart and sixteen equal at sixth, the most a pass holds.
    for (int i = 0; i < 21; ++i)
        ev.marks(101 + i, i < 3 ? 90 - i : QVariant(), i < 5 ? 95 - i : 60, QVariant());
    Tally_Dance(ev.conn);
    QCOMPARE(ev.judgeRows(1, 2).size(), 21);
    const QStringList old = ev.danceRows(1);
    QCOMPARE(old.size(), 21);

    ev.marks(122, QVariant(), 60, QVariant());
    try {
        Tally_Dance(ev.conn);
        QFAIL("a 22nd row must be a fault");
    } catch (const AppError &e) {
        QCOMPARE(e.message(), QString("Subscript out of range"));
    }
    QVERIFY(!ev.conn.inTransaction());
    // Judge 1 was written anew, judge 2 not at all, the dance result not yet touched.
    Connection other;
    other.open();
    QCOMPARE(Fixture::Count(other, "dance_results", "result_no = 1"), 3);
    QCOMPARE(Fixture::Count(other, "dance_results", "result_no = 2"), 0);
    QCOMPARE(ev.danceRows(1), old);

    // More than 21 dancers in the summed list fail in the same way, after the dance result is cleared.
    ev.conn.execute("DELETE FROM judges_results");
    // Each judge places other dancers: 8, 8 and 6 of them, with ties at sixth.
    for (int i = 0; i < 22; ++i) {
        const int judge = i < 8 ? 1 : i < 16 ? 2 : 3;
        const int k = i < 8 ? i : i < 16 ? i - 8 : i - 16;
        const QVariant m = k < 5 ? 90 - k : 85;
        ev.marks(301 + i, judge == 1 ? m : QVariant(), judge == 2 ? m : QVariant(), judge == 3 ? m : QVariant());
    }
    QVERIFY_THROWS_EXCEPTION(AppError, Tally_Dance(ev.conn));
    QCOMPARE(Fixture::Count(other, "dance_results"), 22);
    QCOMPARE(Fixture::Count(other, "overall_dance_results"), 0);
}

void TestThreeJudgeTally::event_dances_are_tallied_by_literal_id()
{
    // A Premiership whose category dances are 6, 7, 1 and 2.
    Tally_Event ev(QStringLiteral("PRI"));
    for (short d : {1, 2, 3, 4, 6, 7}) {
        ev.select("E1", d);
        ev.marks(100 + d, 90, 90, 90);
    }
    ev.select("E1", 7);
    Tally_Event_Dances(ev.conn);
    QCOMPARE(Current_Dance_Id, short(4));
    for (short d : {1, 2, 3, 4})
        QCOMPARE(ev.danceRows(d), QStringList({QString("%1 1[ ] 137").arg(100 + d)}));
    QCOMPARE(Fixture::Count(ev.conn, "overall_dance_results", "dance_id >= 6"), 0);
}

QTEST_GUILESS_MAIN(TestThreeJudgeTally)
#include "test_three_judge_tally.moc"
