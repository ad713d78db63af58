#include "tally_fill.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/overall_tally.h"

#include <QtTest>

class TestOverallTally : public QObject
{
    Q_OBJECT
private slots:
    void sums_place_points_and_keeps_ties_at_the_cut();
    void overall_place_points_past_six();
    void trophy_and_special_fling_left_out_by_exact_name();
    void split_overall_by_dance_id();
    void event_with_nobody_placed();
    void from_marks_to_overall();
};

void TestOverallTally::sums_place_points_and_keeps_ties_at_the_cut()
{
    Tally_Event ev(QStringLiteral("H"), 6, QStringLiteral("N"), 3);
    // Sums 300, 280, 280, 280, 250 with three overall prizes.
    ev.danceResult(101, 1, 137); ev.danceResult(101, 2, 163);
    ev.danceResult(102, 1, 280);
    ev.danceResult(103, 2, 280);
    ev.danceResult(104, 3, 140); ev.danceResult(104, 4, 140);
    ev.danceResult(105, 1, 250);
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results"),
             QStringList({"101 1[] 137", "102 2[=] 91", "103 2[=] 91", "104 2[=] 91"}));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"),
             QStringList({"101 1[] 300", "102 2[=] 280", "103 2[=] 280", "104 2[=] 280"}));

    // Two wins against three seconds: 274 beats 273, however many dances.
    ev.conn.execute("DELETE FROM overall_dance_results");
    for (int d : {1, 2})
        ev.danceResult(201, d, 137);
    for (int d : {1, 2, 3})
        ev.danceResult(202, d, 91);
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"), QStringList({"201 1[] 274", "202 2[] 273"}));
    QVERIFY(!ev.conn.inTransaction());
}

void TestOverallTally::overall_place_points_past_six()
{
    Tally_Event ev(QStringLiteral("H"), 6, QStringLiteral("N"), 7);
    for (int i = 0; i < 8; ++i)
        ev.danceResult(101 + i, 1, 100 - i);
    Overall_Settings s = Read_Overall_Settings(ev.conn);
    Recalc_Overall(ev.conn, s);
    QCOMPARE(ev.rows("overall_results").size(), 7);
    QCOMPARE(ev.rows("overall_results").last(), QString("107 7[] 0"));

    // An eighth overall place has no points to read: the fault of a prize count the screens keep from 1 to 6.
    s.No_Overall_Prizes = 8;
    try {
        Recalc_Overall(ev.conn, s);
        QFAIL("an eighth overall place must be a fault");
    } catch (const AppError &e) {
        QCOMPARE(e.message(), QString("Subscript out of range"));
    }
    QVERIFY(!ev.conn.inTransaction());
}

void TestOverallTally::trophy_and_special_fling_left_out_by_exact_name()
{
    Tally_Event ev(QStringLiteral("H"), 6, QStringLiteral("Y"), 6, QStringLiteral("N"));
    QCOMPARE(Read_Overall_Settings(ev.conn).Dance_Filter, QString(" AND dance_id <> 16 AND dance_id <> 17"));
    QCOMPARE(Build_Dance_Filter(ev.conn, "Y"), QString());

    ev.danceResult(101, 1, 137);
    ev.danceResult(102, 1, 91);
    ev.danceResult(102, 16, 137);   // Trophy Fling
    ev.danceResult(103, 17, 137);   // Special Fling only
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"), QStringList({"101 1[] 137", "102 2[] 91"}));
    QCOMPARE(ev.rows("highland_results", {}, "dance_points"), QStringList({"101 1[] 137", "102 2[] 91"}));
    QCOMPARE(ev.rows("national_results"), QStringList());

    // Any case of the name is left out...
    ev.conn.execute("UPDATE dances SET dance = 'trophy FLING' WHERE dance_id = 16");
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"), QStringList({"101 1[] 137", "102 2[] 91"}));

    // ...but only the exact name: with two blanks the dance counts.
    ev.conn.execute("UPDATE dances SET dance = 'Trophy  Fling' WHERE dance_id = 16");
    QCOMPARE(Read_Overall_Settings(ev.conn).Dance_Filter, QString(" AND dance_id <> 17"));
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"), QStringList({"102 1[] 228", "101 2[] 137"}));
    // Dance 16 is above 5: a National dance by id.
    QCOMPARE(ev.rows("national_results", {}, "dance_points"), QStringList({"102 1[] 137"}));

    // With the flings included every dance counts.
    ev.conn.execute("UPDATE age_groups SET inc_t_fling = 'Y'");
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"),
             QStringList({"102 1[] 228", "101 2[=] 137", "103 2[=] 137"}));
}

void TestOverallTally::split_overall_by_dance_id()
{
    Tally_Event ev(QStringLiteral("PRI"), 6, QStringLiteral("Y"));
    ev.danceResult(101, 5, 137);   // the last Highland id
    ev.danceResult(101, 6, 23);    // the first National id
    ev.danceResult(102, 1, 91);
    ev.danceResult(102, 2, 91);
    ev.danceResult(103, 7, 137);   // National dances only
    ev.danceResult(103, 6, 91);
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"),
             QStringList({"103 1[] 228", "102 2[] 182", "101 3[] 160"}));
    QCOMPARE(ev.rows("highland_results", {}, "dance_points"), QStringList({"102 1[] 182", "101 2[] 137"}));
    QCOMPARE(ev.rows("national_results", {}, "dance_points"), QStringList({"103 1[] 228", "101 2[] 23"}));
    QCOMPARE(ev.rows("highland_results"), QStringList({"102 1[] 137", "101 2[] 91"}));

    // Only Highland dances: the National result is empty.
    ev.conn.execute("DELETE FROM overall_dance_results WHERE dance_id >= 6");
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("national_results"), QStringList());

    // No longer split: the old Highland and National rows are left as they were.
    ev.conn.execute("UPDATE age_groups SET split_overalls = 'N'");
    ev.conn.execute("DELETE FROM overall_dance_results");
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results"), QStringList());
    QCOMPARE(ev.rows("highland_results").size(), 2);
}

void TestOverallTally::event_with_nobody_placed()
{
    Tally_Event ev(QStringLiteral("H"), 6, QStringLiteral("Y"));
    ev.danceResult(101, 1, 137);
    ev.danceResult(101, 6, 137);
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    ev.select("E2", 1);
    ev.danceResult(201, 1, 137);
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));

    ev.select("E1", 1);
    ev.conn.execute("DELETE FROM overall_dance_results WHERE group_id = 'E1'");
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    for (const char *table : {"overall_results", "highland_results", "national_results"})
        QCOMPARE(Fixture::Count(ev.conn, table, "group_id = 'E1'"), 0);
    // The other event is not touched.
    ev.select("E2", 1);
    QCOMPARE(ev.rows("overall_results"), QStringList({"201 1[] 137"}));
}

void TestOverallTally::from_marks_to_overall()
{
    // Eight prizes a dance: places 7 and 8 earn nothing but still count as placed.
    Tally_Event ev(QStringLiteral("H"), 8, QStringLiteral("N"), 6);
    const QList<QList<double>> marks = {
        {90, 89, 88, 87, 86, 85, 84, 83},   // dance 1, dancers 101..108
        {90, 90, 88, 87, 86, 85, 84, 83},   // dance 2
    };
    for (short d = 1; d <= 2; ++d) {
        ev.select("E1", d);
        for (int i = 0; i < 8; ++i)
            ev.mark(101 + i, marks[d - 1][i]);
        short n = 8;
        Recalc_Dance(ev.conn, n);
    }
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    // 107 and 108 hold 0 + 0 and open a seventh place: cut.
    QCOMPARE(ev.rows("overall_results", {}, "dance_points"),
             QStringList({"101 1[] 274", "102 2[] 228", "103 3[] 142", "104 4[] 106", "105 5[] 74", "106 6[] 46"}));
    // Placed without points, 105, 107 and 108 tie for sixth on 0: all listed with the sixth place's points.
    ev.conn.execute("UPDATE overall_dance_results SET points = 0 WHERE competitor_id = 105");
    Recalc_Overall(ev.conn, Read_Overall_Settings(ev.conn));
    QCOMPARE(ev.rows("overall_results"),
             QStringList({"101 1[] 137", "102 2[] 91", "103 3[] 71", "104 4[] 53", "106 5[] 37", "105 6[=] 23",
                          "107 6[=] 23", "108 6[=] 23"}));
}

QTEST_GUILESS_MAIN(TestOverallTally)
#include "test_overall_tally.moc"
