#include "tally_fill.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/prize_count.h"

#include <QtTest>

class TestDanceTally : public QObject
{
    Q_OBJECT
private slots:
    void ranks_marks_with_shared_places_and_full_points();
    void prize_count_cuts_only_when_a_new_place_opens_data();
    void prize_count_cuts_only_when_a_new_place_opens();
    void no_marks_leave_the_dance_empty();
    void twenty_second_dancer_is_a_fault_that_keeps_the_old_results();
    void prize_count_of_a_dance_and_its_write_through();
    void automatic_prize_count_follows_the_marked_cells();
};

void TestDanceTally::ranks_marks_with_shared_places_and_full_points()
{
    Tally_Event ev(QStringLiteral("H"), 8);
    ev.mark(101, 95);
    ev.mark(102, 95);
    ev.mark(103, 90);
    ev.mark(104, 87.5);
    ev.mark(105, 87.25);
    ev.mark(106, 87.5);
    ev.mark(107, 0);          // zero places nobody
    ev.mark(108, QVariant()); // nor does no mark
    ev.mark(109, 100);
    // Left over from the time the event was a three-judge one, and the next dance's result.
    ev.conn.execute("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, competitor_id, points, placing) "
                    "VALUES(1,'E1',1,1,101,137,1)");
    ev.conn.execute("INSERT INTO overall_dance_results(competition_id, group_id, dance_id, competitor_id, points, placing, tie) "
                    "VALUES(1,'E1',2,101,137,1,'')");

    short noPrizes = 8;
    Recalc_Dance(ev.conn, noPrizes);

    // Fractions are compared exactly: 87.5 ties 87.5 and beats 87.25.
    QCOMPARE(ev.danceRows(1), QStringList({"109 1[] 137", "101 2[=] 91", "102 2[=] 91", "103 4[] 53", "104 5[=] 37",
                                           "106 5[=] 37", "105 7[] 0"}));
    QCOMPARE(Fixture::Count(ev.conn, "dance_results", "dance_id = 1"), 0);
    QCOMPARE(ev.danceRows(2), QStringList({"101 1[] 137"}));
    QCOMPARE(noPrizes, short(8));
    QVERIFY(!ev.conn.inTransaction());
}

void TestDanceTally::prize_count_cuts_only_when_a_new_place_opens_data()
{
    QTest::addColumn<QList<double>>("marks");   // dancers 101, 102, ... in this order
    QTest::addColumn<int>("noPrizes");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("seven dancers, six prizes")
        << QList<double>{90, 80, 70, 60, 50, 40, 30} << 6
        << QStringList{"101 1[] 137", "102 2[] 91", "103 3[] 71", "104 4[] 53", "105 5[] 37", "106 6[] 23"};
    QTest::newRow("two tied on sixth are both placed")
        << QList<double>{90, 80, 70, 60, 50, 40, 40, 30} << 6
        << QStringList{"101 1[] 137", "102 2[] 91", "103 3[] 71", "104 4[] 53", "105 5[] 37", "106 6[=] 23",
                       "107 6[=] 23"};
    QTest::newRow("five equal, then the sixth place")
        << QList<double>{80, 80, 80, 80, 80, 79, 78} << 6
        << QStringList{"101 1[=] 137", "102 1[=] 137", "103 1[=] 137", "104 1[=] 137", "105 1[=] 137", "106 6[] 23"};
    QTest::newRow("entry 16 places nobody") << QList<double>{90, 80} << 0 << QStringList{};
    QTest::newRow("eight prizes among ten")
        << QList<double>{100, 99, 98, 97, 96, 95, 94, 93, 92, 91} << 8
        << QStringList{"101 1[] 137", "102 2[] 91", "103 3[] 71", "104 4[] 53", "105 5[] 37", "106 6[] 23",
                       "107 7[] 0", "108 8[] 0"};
    QTest::newRow("a tie at the cut keeps going past the count")
        << QList<double>{90, 90, 90, 90} << 2
        << QStringList{"101 1[=] 137", "102 1[=] 137", "103 1[=] 137", "104 1[=] 137"};
}

void TestDanceTally::prize_count_cuts_only_when_a_new_place_opens()
{
    QFETCH(QList<double>, marks);
    QFETCH(int, noPrizes);
    QFETCH(QStringList, expected);
    Tally_Event ev(QStringLiteral("H"), noPrizes);
    for (int i = 0; i < marks.size(); ++i)
        ev.mark(101 + i, marks[i]);
    short n = static_cast<short>(noPrizes);
    Recalc_Dance(ev.conn, n);
    QCOMPARE(ev.danceRows(1), expected);
}

void TestDanceTally::no_marks_leave_the_dance_empty()
{
    Tally_Event ev;
    ev.mark(101, 90);
    short n = 6;
    Recalc_Dance(ev.conn, n);
    QCOMPARE(ev.danceRows(1).size(), 1);
    ev.conn.execute("UPDATE comp_judges_results SET points_awarded1 = NULL");
    Recalc_Dance(ev.conn, n);
    QCOMPARE(ev.danceRows(1), QStringList());
}

void TestDanceTally::twenty_second_dancer_is_a_fault_that_keeps_the_old_results()
{
    Tally_Event ev(QStringLiteral("H"), 6);
    for (int i = 0; i < 21; ++i)
        ev.mark(101 + i, 80);
    short n = 6;
    Recalc_Dance(ev.conn, n);
    const QStringList old = ev.danceRows(1);
    QCOMPARE(old.size(), 21);   // the most a dance holds

    ev.mark(122, 80);
    ev.conn.execute("INSERT INTO dance_results(competition_id, group_id, dance_id, result_no, competitor_id, points, placing) "
                    "VALUES(1,'E1',1,1,101,137,1)");
    try {
        Recalc_Dance(ev.conn, n);
        QFAIL("a 22nd placed dancer must be a fault");
    } catch (const AppError &e) {
        QCOMPARE(e.message(), QString("Subscript out of range"));
    }
    QVERIFY(!ev.conn.inTransaction());
    // What ran before the fault is committed; the old result is untouched.
    Connection other;
    other.open();
    QCOMPARE(Fixture::Count(other, "dance_results"), 0);
    QCOMPARE(ev.danceRows(1), old);
    QCOMPARE(Fixture::Count(other, "overall_dance_results"), 21);
}

void TestDanceTally::prize_count_of_a_dance_and_its_write_through()
{
    Tally_Event ev;
    const QString row = "SELECT ifnull(no_prizes,'null') || '/' || ifnull(auto,'null') FROM dance_no_prizes "
                        "WHERE competition_id = 1 AND group_id = 'E1' AND dance_id = 1";

    Prize_Choice c = Choose_No_Prizes(ev.conn, 6);
    QCOMPARE(c.No_Prizes, short(6));
    QVERIFY(!c.From_Dance);

    QCOMPARE(Set_Dance_No_Prizes(ev.conn, 3, 0), short(3));
    QCOMPARE(ev.conn.scalar(row).toString(), QString("3/null"));
    c = Choose_No_Prizes(ev.conn, 6);
    QCOMPARE(c.No_Prizes, short(3));
    QVERIFY(c.From_Dance);

    // The entry "16" is the value 0 and stays so.
    Set_Dance_No_Prizes(ev.conn, 0, 0);
    QCOMPARE(Choose_No_Prizes(ev.conn, 6).No_Prizes, short(0));

    // AUTO: the count follows the marked cells and is flagged as automatic.
    QCOMPARE(Set_Dance_No_Prizes(ev.conn, Auto_No_Prizes, 4), Auto_No_Prizes);
    QCOMPARE(ev.conn.scalar(row).toString(), QString("4/Y"));
    Set_Dance_No_Prizes(ev.conn, Auto_No_Prizes, 40);
    QCOMPARE(ev.conn.scalar(row).toString(), QString("6/Y"));
    Set_Dance_No_Prizes(ev.conn, Auto_No_Prizes, 0);
    QCOMPARE(Fixture::Count(ev.conn, "dance_no_prizes"), 0);

    // Other dances and events keep their own counts.
    Set_Dance_No_Prizes(ev.conn, 5, 0);
    ev.select("E1", 2);
    QCOMPARE(Choose_No_Prizes(ev.conn, 6).No_Prizes, short(6));
    ev.select("E2", 1);
    QCOMPARE(Choose_No_Prizes(ev.conn, 4).No_Prizes, short(4));
}

void TestDanceTally::automatic_prize_count_follows_the_marked_cells()
{
    Tally_Event ev;
    for (int i = 0; i < 5; ++i)
        ev.mark(101 + i, 90 - i);

    short n = 6;
    Recalc_Dance(ev.conn, n, true, 3);
    QCOMPARE(n, short(3));
    QCOMPARE(ev.danceRows(1).size(), 3);

    // No marked cell leaves the count as it was.
    n = 4;
    Recalc_Dance(ev.conn, n, true, 0);
    QCOMPARE(n, short(4));
    QCOMPARE(ev.danceRows(1).size(), 4);

    // Without a matching row the automatic mode is a fault and the result stays.
    ev.conn.execute("DELETE FROM system_no_prizes");
    QVERIFY_THROWS_EXCEPTION(DbError, Recalc_Dance(ev.conn, n, true, 5));
    QCOMPARE(ev.danceRows(1).size(), 4);
    QVERIFY(!ev.conn.inTransaction());
}

QTEST_GUILESS_MAIN(TestDanceTally)
#include "test_dance_tally.moc"
