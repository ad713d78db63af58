// The save's writing part on its own, without a window.
#include "sample_grid.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QtTest>

class TestGridSave : public QObject
{
    Q_OBJECT
private slots:
    void a_fault_keeps_what_was_written_before_it();
    void empty_cells_write_null_or_empty_text();
};

namespace {

Grid_Cells cellsOf(RecordSet &rs, int fixedRows)
{
    Grid_Cells cells(fixedRows, 4);
    for (int r = 0; r < rs.rowCount(); ++r) {
        QStringList row;
        for (int f = 0; f < rs.fieldCount(); ++f)
            row << Grid_Text(rs.value(r, f));
        cells.appendRow(row);
    }
    return cells;
}

} // namespace

void TestGridSave::a_fault_keeps_what_was_written_before_it()
{
    TestDataFolder env;
    Connection c;
    c.open();
    c.execute("INSERT INTO competitions(competition_name, competition_date, competition_organiser) VALUES ('A','d1','o1')");
    SampleRules rules;
    RecordSet rs;
    rs.open(c, rules.table, rules.Select_Sql());
    Grid_Cells cells = cellsOf(rs, 1);
    cells.appendRow({"0", "New 1", "d2", ""});
    cells.appendRow({"0", "New '2", "d3", ""});
    cells.appendRow({"0", "New 3", "d4", ""});
    cells.setText(1, 3, "changed");

    const Grid_Save_Result r = Run_Grid_Save(rules, c, rs, cells, 3);
    QVERIFY(r.failed);
    QCOMPARE(r.row, 3);
    QCOMPARE(r.col, 1);
    QVERIFY(r.failureText.startsWith("There was an error updating record: New '2 Ensure all fields are populated!\n"));
    // The first new row stays written and committed; the rest never ran.
    QVERIFY(!c.inTransaction());
    QCOMPARE(Fixture::Count(c, "competitions"), 2);
    QCOMPARE(Fixture::Count(c, "competitions", "competition_name = 'New 1'"), 1);
    QCOMPARE(c.scalar("SELECT competition_organiser FROM competitions WHERE competition_name = 'A'").toString(),
             QString("o1"));
}

void TestGridSave::empty_cells_write_null_or_empty_text()
{
    TestDataFolder env;
    Connection c;
    c.open();
    c.execute("INSERT INTO competitions(competition_name, competition_date, competition_organiser) VALUES ('A','d1','o1')");
    c.execute("INSERT INTO competitions(competition_name, competition_date, competition_organiser) VALUES ('B','d2','o2')");
    for (bool asNull : {true, false}) {
        SampleRules rules;
        rules.emptyCellIsNull = asNull;
        RecordSet rs;
        rs.open(c, rules.table, rules.Select_Sql());
        Grid_Cells cells = cellsOf(rs, 1);
        cells.setText(1, 3, "");
        cells.setText(2, 3, "BAD");  // refused at save: row 2 keeps its stored values
        cells.setText(2, 1, "B2");
        const Grid_Save_Result r = Run_Grid_Save(rules, c, rs, cells, 0);
        QVERIFY(!r.failed);
        QVERIFY(r.refusal);
        QCOMPARE(r.refusal->text, QString("Bad organiser!"));
        QCOMPARE(r.row, 2);
        QCOMPARE(r.col, 3);
        QCOMPARE(c.scalar("SELECT typeof(competition_organiser) FROM competitions WHERE competition_id = 1").toString(),
                 QString(asNull ? "null" : "text"));
        QCOMPARE(Fixture::Count(c, "competitions", "competition_name = 'B' AND competition_organiser = 'o2'"), 1);
    }
}

QTEST_MAIN(TestGridSave)
#include "test_grid_save.moc"
