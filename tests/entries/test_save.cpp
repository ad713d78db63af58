#include "grid_rows.h"
#include "entries/competitor_checks.h"
#include "entries/event_lists.h"
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
    void number_checks();
    void event_lookup_and_group_exists();
    void new_rows_keep_case_and_quote_by_column();
    void new_row_with_apostrophe_in_teacher_saves();
    void edited_row_upper_cases_and_nulls_empty_cells();
    void field4_of_edited_row_becomes_an_event();
    void renumbering_writes_events_under_new_number();
    void marks_stop_at_row_1500();
    void fault_keeps_rows_written_before_it();

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

void TestSave::number_checks()
{
    // The messages themselves are checked on the screen; here the rules behind them.
    const QStringList codes{"A1", ""};
    auto check = [&](int col, const QString &typed) {
        QString t = typed;
        return Check_Competitor_Cell(col, t, codes);
    };
    for (const char *bad : {"-3", "(12)", "1.0"})
        QCOMPARE(check(Number, bad).message, QString("Invalid number!"));
    for (const char *fault : {"12a", "1e9", "inf"})
        QVERIFY_THROWS_EXCEPTION(AppError, check(Number, fault));
    QVERIFY(check(Number, " 32767").ok);
    QVERIFY(check(Number, "0").ok);
    // Age and fee: a fraction is rounded only for the test, the text stays.
    QString fee = "12.5";
    QVERIFY(Check_Competitor_Cell(Fee, fee, codes).ok);
    QCOMPARE(fee, QString("12.5"));
    QVERIFY(check(Age, "").ok);
    QVERIFY(check(Fee, "-0.4").ok);
    QCOMPARE(check(Fee, "-1").message, QString("Value must be positive!"));
    QVERIFY_THROWS_EXCEPTION(AppError, check(Age, "ten"));
    QVERIFY(check(Notes, "anything (at all)").ok);
}

void TestSave::event_lookup_and_group_exists()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    s.conn.execute("UPDATE age_groups SET championship_title = 'Scottish' WHERE competition_group_id = 'C3'");
    const short other = Fixture::Competition(s.conn, "Other Games");
    Fixture::Event(s.conn, other, "Z9", "Elsewhere", "H");

    const Event_List list = Load_Event_Lookup(s.conn, s.comp);
    // Sorted by the shown name, title first; the codes follow by position, one spare place at the end.
    QCOMPARE(list.names, QStringList({" Under 10", " Under 8", "Scottish Open"}));
    QCOMPARE(list.codes, QStringList({"B2", "A1", "C3", ""}));
    QVERIFY(Group_Exists(list.codes, "a1"));
    QVERIFY(Group_Exists(list.codes, ""));     // an emptied event cell passes
    QVERIFY(!Group_Exists(list.codes, "Z9"));  // another competition's event
    QString t = "Z9";
    const Cell_Check c = Check_Competitor_Cell(First_Event + 3, t, list.codes);
    QCOMPARE(c.message, QString("Invalid event! Use 'F2' for list"));
    QCOMPARE(c.title, QString("Invalid Data"));

    const Event_List search = Load_Search_Events(s.conn, s.comp);
    QCOMPARE(search.names, QStringList({"Under 10 ", "Under 8 ", "Open Scottish"}));
    QCOMPARE(search.codes, QStringList({"B2", "A1", "C3"}));
}

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

void TestSave::new_row_with_apostrophe_in_teacher_saves()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    s.open();
    const int r = s.grid->addRow();
    s.grid->set(r, Number, "9");
    s.grid->set(r, Forename, "Ann");
    s.grid->set(r, Surname, "Bell");
    s.grid->set(r, 11, "Mrs O'Neil");
    QVERIFY(!s.save().failed);
    QCOMPARE(s.conn.scalar("SELECT teacher FROM competitors").toString(), QString("MRS O'NEIL"));
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

void TestSave::field4_of_edited_row_becomes_an_event()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    Fixture::Competitor(s.conn, s.comp, 5, "Kirsty", "Mackay", {"A1"});
    s.open();
    s.edit(5, Custom4, "vip");
    s.edit(5, First_Event + 1, "b2");
    s.save();
    QCOMPARE(s.field(5, "custom4").toString(), QString("VIP"));
    QCOMPARE(s.field(5, "group_id2").toString(), QString("B2"));
    // Events of an edited row are written as typed, Field4 among them.
    QCOMPARE(s.events(5), QStringList({"vip", "A1", "b2"}));
    // A new row reads its events from GRP1 on only.
    const int r = s.grid->addRow();
    s.grid->set(r, Number, "6");
    s.grid->set(r, Forename, "Ann");
    s.grid->set(r, Surname, "Bell");
    s.grid->set(r, Custom4, "vip");
    s.grid->set(r, First_Event, "a1");
    s.save();
    QCOMPARE(s.events(6), QStringList({"A1"}));
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

void TestSave::marks_stop_at_row_1500()
{
    Row_Marks marks;
    marks.set(1500);
    QVERIFY(marks.isSet(1500));
    QVERIFY_THROWS_EXCEPTION(AppError, marks.set(1501));
    QVERIFY(!marks.isSet(1501));
    marks.clear(1500);
    QVERIFY(!marks.isSet(1500));
}

void TestSave::fault_keeps_rows_written_before_it()
{
    TestDataFolder env;
    Screen s;
    setUp(s);
    Fixture::Competitor(s.conn, s.comp, 1, "Amy", "Bain", {"A1"});
    Fixture::Competitor(s.conn, s.comp, 2, "Beth", "Cox", {"A1"});
    s.open();
    const int r = s.grid->addRow();
    s.grid->set(r, Number, "3");
    s.grid->set(r, Forename, "Cara");
    s.grid->set(r, Surname, "Dunn");
    s.edit(2, Number, "1");   // a number already taken: the store refuses it
    const Grid_Save_Result result = s.save();
    QVERIFY(result.failed);
    QCOMPARE(s.grid->text(result.row, Number), QString("1"));
    QVERIFY(result.failureText.startsWith("There was an error updating Competitor Number: 1\n"));
    QVERIFY(!s.conn.inTransaction());
    QCOMPARE(s.field(3, "forename").toString(), QString("Cara"));   // the new row stays
    QCOMPARE(s.field(2, "forename").toString(), QString("Beth"));
    // The events under the number typed were rewritten before the refusal.
    QCOMPARE(s.events(1), QStringList({"A1"}));
    QCOMPARE(s.events(2), QStringList({"A1"}));
}

QTEST_MAIN(TestSave)
#include "test_save.moc"
