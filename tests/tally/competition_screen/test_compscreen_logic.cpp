#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/db.h"
#include "tally/competition/screen/dance_settings.h"
#include "tally/competition/screen/entries_sync.h"
#include "tally/competition/screen/mark_rules.h"
#include "tally/competition/screen/mark_values.h"

#include <QtTest>

namespace {

QString Marks_Of(Connection &c, short comp, const QString &code, int competitor)
{
    RowSet rs = c.query(QString("SELECT dance_id, points_awarded1 FROM comp_judges_results WHERE competition_id = %1 "
                                "AND group_id = '%2' AND competitor_id = %3 ORDER BY dance_id")
                            .arg(comp)
                            .arg(code)
                            .arg(competitor));
    QStringList out;
    for (; !rs.eof(); rs.next())
        out << rs.text("dance_id") + ":" + rs.text("points_awarded1");
    return out.join(' ');
}

// The grid as the screen would hand it to a save: caption row, then number and mark.
Grid_Cells Grid_Of(const RecordSet &rs, const QStringList &marks)
{
    Grid_Cells cells(0, 2);
    cells.appendRow({"Num", "Mark"});
    for (int r = 0; r < rs.rowCount(); ++r)
        cells.appendRow({Mark_Text(rs.value(r, 0)), marks.value(r)});
    return cells;
}

} // namespace

class TestCompScreenLogic : public QObject
{
    Q_OBJECT
private slots:
    void sync_adds_rows_and_drops_withdrawn_dancers();
    void small_events_and_dances_count_for_no_trophy();
    void marks_are_checked_as_the_grid_accepts_them();
    void mark_rules_write_fractions_and_nulls_and_stop_at_a_refused_row();
    void registered_filter_hides_rows_without_touching_their_marks();
};

void TestCompScreenLogic::sync_adds_rows_and_drops_withdrawn_dancers()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    Fixture::Event(c, comp, "A", "Novice", "H");
    Fixture::Event(c, comp, "B", "Intermediate", "H");
    for (int n = 101; n <= 106; ++n)
        Fixture::Competitor(c, comp, n, "Dancer", QString::number(n), {"A", "B"});
    const QList<short> dances = {1, 2, 3, 4};

    Sync_Entries(c, comp, "A", dances);
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'A'"), 24);
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "points_awarded1 IS NULL"), 24);
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'B'"), 0);

    // A second run adds nothing and keeps the marks.
    c.execute("UPDATE comp_judges_results SET points_awarded1 = 80 WHERE competitor_id = 101");
    c.execute("UPDATE comp_judges_results SET points_awarded1 = 75.5 WHERE competitor_id = 102");
    Sync_Entries(c, comp, "A", dances);
    QCOMPARE(Fixture::Count(c, "comp_judges_results"), 24);
    QCOMPARE(Marks_Of(c, comp, "A", 102), QString("1:75.5 2:75.5 3:75.5 4:75.5"));

    // Withdrawn from the event: the marks go from every dance, the other event is untouched.
    Sync_Entries(c, comp, "B", dances);
    c.execute(QString("DELETE FROM competitor_groups WHERE competitor_id = 101 AND group_id = 'A'"));
    Sync_Entries(c, comp, "A", dances);
    QCOMPARE(Marks_Of(c, comp, "A", 101), QString());
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'A'"), 20);
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'B' AND competitor_id = 101"), 4);
    QCOMPARE(Marks_Of(c, comp, "A", 102), QString("1:75.5 2:75.5 3:75.5 4:75.5"));

    // A late entry gets empty rows; a dance added to the list gets rows for all.
    Fixture::Competitor(c, comp, 107, "Late", "Entry", {"A"});
    Sync_Entries(c, comp, "A", {1, 2, 3, 4, 5});
    QCOMPARE(Marks_Of(c, comp, "A", 107), QString("1: 2: 3: 4: 5:"));
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'A' AND dance_id = 5"), 6);

    // An entry whose dancer is gone from competitors goes with its marks.
    c.execute("DELETE FROM competitors WHERE competitor_id = 103");
    Sync_Entries(c, comp, "A", dances);
    QCOMPARE(Marks_Of(c, comp, "A", 103), QString());
    QCOMPARE(Fixture::Count(c, "competitor_groups", "competitor_id = 103 AND group_id = 'A'"), 0);
    QCOMPARE(Fixture::Count(c, "competitor_groups", "competitor_id = 103 AND group_id = 'B'"), 1);
    QVERIFY(!c.inTransaction());
}

void TestCompScreenLogic::small_events_and_dances_count_for_no_trophy()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    Fixture::Event(c, comp, "S", "Small", "PRI");
    Fixture::Event(c, comp, "L", "Large", "H");
    for (int n = 1; n <= 5; ++n)
        Fixture::Competitor(c, comp, n, "Small", QString::number(n), {"S"});
    for (int n = 11; n <= 16; ++n)
        Fixture::Competitor(c, comp, n, "Large", QString::number(n), {"L"});

    c.execute(QString("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES(%1, 'S', 9)").arg(comp));
    QVERIFY(Flag_Small_Event(c, comp, "S", "PRI"));
    RowSet rs = c.query("SELECT dance_id FROM dance_no_dancers WHERE group_id = 'S' ORDER BY dance_id");
    QStringList flagged;
    for (; !rs.eof(); rs.next())
        flagged << rs.text("dance_id");
    QCOMPARE(flagged, QStringList({"1", "2", "6", "7"}));

    // Six dancers: nothing is written, and a flag set by hand stays.
    c.execute(QString("INSERT INTO dance_no_dancers(competition_id, group_id, dance_id) VALUES(%1, 'L', 2)").arg(comp));
    QVERIFY(!Flag_Small_Event(c, comp, "L", "H"));
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'L'"), 1);

    // The dance rule counts mark rows: five rows flag, six do not.
    Sync_Entries(c, comp, "L", {1, 2, 3, 4});
    QVERIFY(!Flag_Small_Dance(c, comp, "L", 1));
    c.execute("DELETE FROM comp_judges_results WHERE group_id = 'L' AND dance_id = 3 AND competitor_id = 11");
    QVERIFY(Flag_Small_Dance(c, comp, "L", 3));
    QVERIFY(Flag_Small_Dance(c, comp, "L", 3));
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'L'"), 2);
    QVERIFY(Has_No_Dancers_Flag(c, comp, "L", 3));
    QVERIFY(!Has_No_Dancers_Flag(c, comp, "L", 1));
}

void TestCompScreenLogic::marks_are_checked_as_the_grid_accepts_them()
{
    for (const char *ok : {"", "0", "100", "87.5", "99.75", " 64 "})
        QVERIFY2(Check_Mark(ok) == Mark_Check::Accepted, ok);
    for (const char *range : {"101", "100.01", "-1", "-0.5", "32767"})
        QVERIFY2(Check_Mark(range) == Mark_Check::Out_Of_Range, range);
    // Beyond a 16-bit whole number the conversion itself fails.
    for (const char *bad : {"abc", "40000", "32767.6", "-32769", "8O", "1,5", "inf", "nan"})
        QVERIFY2(Check_Mark(bad) == Mark_Check::Invalid, bad);

    QVERIFY(Mark_Value("").isNull());
    QCOMPARE(Mark_Value("87.5").toDouble(), 87.5);
    QCOMPARE(Mark_Value("90").typeId(), QMetaType::LongLong);
    QCOMPARE(Mark_Text(QVariant(87.25)), QString("87.25"));
    QCOMPARE(Mark_Text(QVariant(qlonglong(90))), QString("90"));
}

void TestCompScreenLogic::mark_rules_write_fractions_and_nulls_and_stop_at_a_refused_row()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    Fixture::Event(c, comp, "A", "Novice", "H");
    for (int n : {12, 5, 30, 7})
        Fixture::Competitor(c, comp, n, "D", QString::number(n), {"A"});
    Sync_Entries(c, comp, "A", {1, 2});
    c.execute("UPDATE comp_judges_results SET points_awarded1 = 50 WHERE competitor_id = 7 AND dance_id = 1");

    Mark_Rules rules;
    rules.comp = comp;
    rules.code = "A";
    rules.dance = 1;
    rules.orderSql = "DESC";
    RecordSet rs;
    rs.open(c, rules.table, rules.Select_Sql());
    QCOMPARE(rs.rowCount(), 4);
    QCOMPARE(Mark_Text(rs.value(0, 0)), QString("30"));
    QCOMPARE(Mark_Text(rs.value(3, 0)), QString("5"));
    QCOMPARE(Mark_Text(rs.value(2, 1)), QString("50"));

    Grid_Save_Result saved = Run_Grid_Save(rules, c, rs, Grid_Of(rs, {"87.5", "87.25", "", "100"}), 0);
    QVERIFY(!saved.failed && !saved.refusal);
    QCOMPARE(Marks_Of(c, comp, "A", 30), QString("1:87.5 2:"));
    QCOMPARE(Marks_Of(c, comp, "A", 12), QString("1:87.25 2:"));
    QCOMPARE(Marks_Of(c, comp, "A", 7), QString("1: 2:"));
    QCOMPARE(Marks_Of(c, comp, "A", 5), QString("1:100 2:"));
    QCOMPARE(c.scalar("SELECT points_awarded1 > 87.25 FROM comp_judges_results WHERE competitor_id = 30 AND "
                      "dance_id = 1").toInt(), 1);

    // A text the column refuses stops the save at its row; the rows before stay.
    saved = Run_Grid_Save(rules, c, rs, Grid_Of(rs, {"60", "61", "abc", "63"}), 0);
    QVERIFY(saved.failed);
    QCOMPARE(saved.row, 3);
    QVERIFY(rs.value(2, 1).isNull());
    QCOMPARE(Marks_Of(c, comp, "A", 30), QString("1:60 2:"));
    QCOMPARE(Marks_Of(c, comp, "A", 12), QString("1:61 2:"));
    QCOMPARE(Marks_Of(c, comp, "A", 5), QString("1:100 2:"));
    QVERIFY(!c.inTransaction());

    // The grid's checks, with the exact words of the boxes.
    QString text = "101";
    QCOMPARE(rules.Check_Cell(1, 1, text)->text, QString("Nunber must be between 0 and 100! Re-enter or Hit <Escape> to exit"));
    QVERIFY(rules.outOfRangeRefused);
    text = "40000";
    QCOMPARE(rules.Check_Cell(1, 1, text)->text, QString("Invalid Number! Re-enter or Hit <Escape> to exit"));
    QCOMPARE(rules.Check_Cell(1, 1, text)->title, QString("Validation Error"));
    text = "87.5";
    QVERIFY(!rules.Check_Cell(1, 1, text));
    QCOMPARE(text, QString("87.5"));
}

void TestCompScreenLogic::registered_filter_hides_rows_without_touching_their_marks()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    Fixture::Event(c, comp, "A", "Novice", "H");
    for (int n = 1; n <= 4; ++n)
        Fixture::Competitor(c, comp, n, "D", QString::number(n), {"A"});
    c.execute("UPDATE competitors SET registered = 1 WHERE competitor_id = 2");
    c.execute("UPDATE competitors SET registered = 0 WHERE competitor_id = 4");
    Sync_Entries(c, comp, "A", {1});
    c.execute("UPDATE comp_judges_results SET points_awarded1 = 70");

    Mark_Rules rules;
    rules.comp = comp;
    rules.code = "A";
    rules.dance = 1;
    rules.registeredOnly = true;
    RecordSet rs;
    rs.open(c, rules.table, rules.Select_Sql());
    QCOMPARE(rs.rowCount(), 2);
    QCOMPARE(Mark_Text(rs.value(0, 0)), QString("2"));
    QCOMPARE(Mark_Text(rs.value(1, 0)), QString("4"));
    const Grid_Save_Result saved = Run_Grid_Save(rules, c, rs, Grid_Of(rs, {"81", ""}), 0);
    QVERIFY(!saved.failed);
    QCOMPARE(Marks_Of(c, comp, "A", 1), QString("1:70"));
    QCOMPARE(Marks_Of(c, comp, "A", 2), QString("1:81"));
    QCOMPARE(Marks_Of(c, comp, "A", 3), QString("1:70"));
    QCOMPARE(Marks_Of(c, comp, "A", 4), QString("1:"));
}

QTEST_GUILESS_MAIN(TestCompScreenLogic)
#include "test_compscreen_logic.moc"
