#include "grid_rows.h"
#include "entries/row_marks.h"

#include "core/db.h"
#include "core/errors.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QtTest>
#include <memory>

using namespace Competitor_Col;

class TestSave : public QObject
{
    Q_OBJECT
private slots:
    void new_rows_keep_case_and_quote_by_column();
    void edited_row_upper_cases_and_nulls_empty_cells();
    void renumbering_writes_events_under_new_number();

private:
    struct Screen
    {
        Connection conn;
        short comp = 0;
        std::unique_ptr<Grid_Rows> grid;

        void open() { grid->open(); }
        Grid_Save_Result save() { return grid->save(); }
        void edit(int number, int col, const QString &text) { grid->edit(number, col, text); }
        QStringList events(int number)
        {
            QStringList out;
            RowSet rs = conn.query("SELECT group_id FROM competitor_groups WHERE competition_id = ? AND competitor_id = ? "
                                   "ORDER BY rowid",
                                   {comp, number});
            for (; !rs.eof(); rs.next())
                out << rs.text("group_id");
            return out;
        }
        QVariant field(int number, const QString &name)
        {
            return conn.scalar("SELECT " + name + " FROM competitors WHERE competition_id = ? AND competitor_id = ?",
                               {comp, number});
        }
    };

    void setUp(Screen &s)
    {
        s.conn.open();
        s.comp = Fixture::Competition(s.conn);
        Fixture::Event(s.conn, s.comp, "A1", "Under 8", "H");
        Fixture::Event(s.conn, s.comp, "B2", "Under 10", "H");
        Fixture::Event(s.conn, s.comp, "C3", "Open", "C");
        s.grid = std::make_unique<Grid_Rows>(s.conn, s.comp);
    }
};

void TestSave::new_rows_keep_case_and_quote_by_column()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    s.open();
    Grid_Rows &g = *s.grid;
    const int r = g.addRow();
    auto put = [&](int row, int col, const char *text) { g.set(row, col, text); };
    put(r, Number, "7");
    put(r, Forename, "Mhairi");
    put(r, Surname, "O'Brien");
    put(r, 5, "1 Burns' Rd");
    put(r, 7, "Oban");
    put(r, Postcode, "pa34");
    put(r, Fee, "12.5");
    put(r, Date_Received, "1 may");
    put(r, 11, "mrs grant");
    put(r, Notes, "late entry");
    put(r, Custom1, "ab");
    put(r, First_Event, "a1");
    put(r, First_Event + 2, "c3");
    const int r2 = g.addRow();
    put(r2, Number, "8");
    put(r2, Forename, "Iain");
    put(r2, Surname, "Ross");
    QVERIFY(!s.save().failed);

    QCOMPARE(s.field(7, "forename").toString(), QString("Mhairi"));
    QCOMPARE(s.field(7, "surname").toString(), QString("O'Brien"));
    QCOMPARE(s.field(7, "address1").toString(), QString("1 Burns' Rd"));
    QCOMPARE(s.field(7, "postcode").toString(), QString("pa34"));   // unescaped, as typed
    QCOMPARE(s.field(7, "fee").toDouble(), 12.5);
    QCOMPARE(s.field(7, "date_received").toString(), QString("1 MAY"));
    QCOMPARE(s.field(7, "teacher").toString(), QString("MRS GRANT"));
    QCOMPARE(s.field(7, "notes").toString(), QString("late entry"));
    QCOMPARE(s.field(7, "custom1").toString(), QString("AB"));
    QVERIFY(s.field(7, "age").isNull());
    QVERIFY(s.field(7, "custom2").isNull());
    QCOMPARE(s.field(7, "group_id1").toString(), QString("A1"));
    QVERIFY(s.field(7, "group_id2").isNull());
    QCOMPARE(s.events(7), QStringList({"A1", "C3"}));
    // Empty text columns of the INSERT are empty strings, not NULL.
    QCOMPARE(s.field(8, "town").toString(), QString(""));
    QVERIFY(!s.field(8, "town").isNull());
    QVERIFY(s.events(8).isEmpty());
    // After the refresh the highest number stands first.
    QCOMPARE(g.text(1, Number), QString("8"));
    QCOMPARE(g.text(2, Fee), QString("12.5"));
}

void TestSave::edited_row_upper_cases_and_nulls_empty_cells()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    Fixture::Competitor(s.conn, s.comp, 5, "Kirsty", "Mackay", {"A1"});
    s.conn.execute("UPDATE competitors SET town = 'Perth', age = 9 WHERE competitor_id = 5");
    s.open();
    s.edit(5, Forename, "Kirsty Ann");
    s.edit(5, 7, "");
    s.edit(5, Date_Received, "1 may");
    s.edit(5, Notes, "paid cash");
    s.edit(5, Custom1, "gold");
    s.edit(5, 11, "mrs o'neil");   // goes through the row set: the quote is harmless here
    s.save();
    QCOMPARE(s.field(5, "forename").toString(), QString("KIRSTY ANN"));
    QCOMPARE(s.field(5, "surname").toString(), QString("MACKAY"));   // the whole row is rewritten
    QVERIFY(s.field(5, "town").isNull());
    QCOMPARE(s.field(5, "age").toInt(), 9);
    QCOMPARE(s.field(5, "date_received").toString(), QString("1 may"));
    QCOMPARE(s.field(5, "notes").toString(), QString("paid cash"));
    QCOMPARE(s.field(5, "custom1").toString(), QString("gold"));
    QCOMPARE(s.field(5, "teacher").toString(), QString("MRS O'NEIL"));
    QCOMPARE(s.events(5), QStringList({"A1"}));
    QVERIFY(!s.grid->rules.marks().isSet(1));   // cleared as written
}

void TestSave::renumbering_writes_events_under_new_number()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    Fixture::Competitor(s.conn, s.comp, 5, "Kirsty", "Mackay", {"A1", "B2"});
    s.open();
    s.edit(5, Number, "50");
    s.save();
    QVERIFY(s.field(5, "forename").isNull());
    QCOMPARE(s.field(50, "forename").toString(), QString("KIRSTY"));
    QCOMPARE(s.events(50), QStringList({"A1", "B2"}));
    QCOMPARE(s.events(5), QStringList({"A1", "B2"}));   // the old number's rows stay
}

QTEST_MAIN(TestSave)
#include "test_save.moc"
