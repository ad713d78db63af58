#include "setup/category_logic.h"
#include "setup/event_logic.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include "core/db.h"

#include <QtTest>

using Fixture::Count;

class TestSetupChecks : public QObject
{
    Q_OBJECT
private slots:
    void event_cell_checks_data();
    void event_cell_checks();
    void event_numbers_that_are_no_numbers_fault();
    void event_saved_cell_checks();
    void event_insert_and_codes();
    void category_lookup_and_split_default();
    void category_dance_add_remove_and_moves();
    void category_codes_used();
    void category_insert_update_delete();
};

void TestSetupChecks::event_cell_checks_data()
{
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");  // empty: accepted
    QTest::addColumn<QString>("title");

    const QString v = "Validation Error";
    const QString req = "All fields are required! If you wish to delete this record, enter a value first";
    QTest::newRow("empty name") << 1 << "" << req << "validation Error";
    QTest::newRow("empty prizes") << 4 << "" << req << "validation Error";
    QTest::newRow("name") << 1 << "Under 8" << "" << "";
    QTest::newRow("code") << 2 << "1a" << "" << "";
    QTest::newRow("category h") << 3 << "h" << "" << "";
    QTest::newRow("category c") << 3 << "C" << "" << "";
    QTest::newRow("category pri") << 3 << "pri" << "" << "";
    QTest::newRow("category dnc1 absent")
        << 3 << "DNC1" << "You must select an existing category. 'H' and 'C' are valid or use 'F2' for list" << v;
    QTest::newRow("prizes 1") << 4 << "1" << "" << "";
    QTest::newRow("prizes 0") << 4 << "0" << "Value must be greater than 1!" << v;
    QTest::newRow("prizes -3") << 4 << "-3" << "Value must be greater than 1!" << v;
    QTest::newRow("split y") << 5 << "y" << "" << "";
    QTest::newRow("split x") << 5 << "X" << "Split Highland/ National Award must be set to Y or N" << v;
    QTest::newRow("split empty") << 5 << "" << "Split Highland/ National Award must be set to Y or N" << v;
    QTest::newRow("ages n") << 6 << "n" << "" << "";
    QTest::newRow("ages empty") << 6 << "" << "Split Ages must be set to Y or N" << v;
    QTest::newRow("title empty") << 7 << "" << "" << "";
    QTest::newRow("type empty") << 8 << "" << "" << "";
    QTest::newRow("type o") << 8 << "o" << "" << "";
    QTest::newRow("type x") << 8 << "X" << "Open/ Closed must be set to O or C. Only for championships!" << v;
    QTest::newRow("overall 6") << 9 << "6" << "" << "";
    QTest::newRow("overall 7") << 9 << "7" << "Number Overall Prizes must be between 1 and 6" << v;
    QTest::newRow("overall 0") << 9 << "0" << "Number Overall Prizes must be between 1 and 6" << v;
    QTest::newRow("order d") << 10 << "d" << "" << "";
    QTest::newRow("order empty") << 10 << "" << "" << "";
    QTest::newRow("order x") << 10 << "Z" << "Dancer Order must be set to A (Ascending) or D (Descending)!" << v;
    QTest::newRow("group 05") << 11 << "05" << "" << "";
    QTest::newRow("group empty") << 11 << "" << "" << "";
    QTest::newRow("group -1") << 11 << "-1" << "Group Order must be a numberic value" << "";
    QTest::newRow("group 1.5") << 11 << "1.5" << "Group Order must be a numberic value" << "";
    QTest::newRow("fling y") << 12 << "Y" << "" << "";
    QTest::newRow("fling empty") << 12 << "" << "Include Trophy Fling in Group Trophy must be Y or N" << v;
}

void TestSetupChecks::event_cell_checks()
{
    QFETCH(int, col);
    QFETCH(QString, text);
    QFETCH(QString, message);
    QFETCH(QString, title);
    const QStringList codes = {"PS", "PRI", "H", "C"};
    const Cell_Check r = Check_Event_Cell(col, text, codes);
    if (message.isEmpty()) {
        QVERIFY2(!r, qPrintable(r ? r->text : QString()));
        return;
    }
    QVERIFY(r);
    QCOMPARE(r->text, message);
    QCOMPARE(r->title, title);
    // The group order box has neither title nor icon; every other one warns.
    QCOMPARE(r->style, col == 11 ? int(vbOKOnly) : int(vbExclamation));
}

void TestSetupChecks::event_numbers_that_are_no_numbers_fault()
{
    const QStringList codes;
    for (const QString &t : {QString("six"), QString("1.5"), QString("40000"), QString("+")})
        QVERIFY_THROWS_EXCEPTION(AppError, Check_Event_Cell(4, t, codes));
    // An empty overall prize number passes the first step and fails as a number.
    for (const QString &t : {QString(""), QString("six"), QString("-70000")})
        QVERIFY_THROWS_EXCEPTION(AppError, Check_Event_Cell(9, t, codes));
    QVERIFY(!Check_Event_Cell(4, " 12 ", codes));
    QVERIFY(!Check_Event_Cell(9, "06", codes));
    QVERIFY(Check_Event_Cell(3, "DNC1", {"DNC1"}) == std::nullopt);
    QVERIFY(Check_Event_Cell(3, "dnc1", {"DNC1"}) == std::nullopt);
    QVERIFY(Is_Digits("0123"));
    QVERIFY(!Is_Digits(""));
    QVERIFY(!Is_Digits(" 1"));
}

void TestSetupChecks::event_saved_cell_checks()
{
    const QStringList codes = {"PS"};
    QCOMPARE(Check_Event_Saved_Cell(3, "DNC2", codes)->text,
             QString("You must select an existing category. (Use 'F2' for list)"));
    QVERIFY(!Check_Event_Saved_Cell(3, "ps", codes));
    QCOMPARE(Check_Event_Saved_Cell(5, "", codes)->text, QString("Split Highland/ National Award must be set to Y or N"));
    QCOMPARE(Check_Event_Saved_Cell(12, "x", codes)->text, QString("Include T Fling in group trophy must be set to Y or N"));
    QCOMPARE(Check_Event_Saved_Cell(12, "x", codes)->title, QString("Validation Error"));
    QVERIFY(!Check_Event_Saved_Cell(6, "anything", codes));

    QCOMPARE(Event_Field_Value(1, "Under 8's"), QVariant("Under 8's"));
    QCOMPARE(Event_Field_Value(3, "h"), QVariant("H"));
    QCOMPARE(Event_Field_Value(9, "6"), QVariant("6"));
    QVERIFY(Event_Field_Value(11, "").isNull());
    QCOMPARE(Event_Field_Value(7, ""), QVariant(""));
}

void TestSetupChecks::event_insert_and_codes()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    QStringList cells = {"", "Under 8's", "1a", "pri", "6", "n", "n", "scottish", "", "1", "a", "", "y"};
    Insert_Event(c, comp, cells);
    QCOMPARE(c.scalar("SELECT competition_group_id || category || split_overalls || split_ages || championship_title || "
                      "dancer_order || inc_t_fling || ifnull(orderby,'null') || no_prizes || no_overall_prizes "
                      "FROM age_groups").toString(),
             QString("1APRINNSCOTTISHAYnull61"));
    QCOMPARE(c.scalar("SELECT age_group FROM age_groups").toString(), QString("Under 8's"));
    cells[2] = "2B";
    cells[11] = "7";
    Insert_Event(c, comp, cells);
    QCOMPARE(c.scalar("SELECT orderby FROM age_groups WHERE competition_group_id='2B'").toInt(), 7);
    // A title with a quote saves; a prize number that is no number is a fault.
    cells[2] = "3C";
    cells[7] = "Scotland's";
    Insert_Event(c, comp, cells);
    cells[2] = "4D";
    cells[4] = "6, 1";
    QVERIFY_THROWS_EXCEPTION(AppError, Insert_Event(c, comp, cells));
    QCOMPARE(Count(c, "age_groups", "championship_title = 'SCOTLAND''S'"), 1);

    QVERIFY(Has_Duplicate_Codes({"1A", "2b", "1a"}));
    QVERIFY(!Has_Duplicate_Codes({"1A", "2B", "1A1"}));
}

void TestSetupChecks::category_lookup_and_split_default()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    const short other = Fixture::Competition(c, "Other", "x");
    c.execute("INSERT INTO categories(competition_id, category_id, category) VALUES(?,'DNC1','Dance Category 1')", {other});
    const Category_Lookup l = Read_Category_Lookup(c, comp);
    QCOMPARE(l.names, QStringList({"Primary Dances", "Premiership", "Highland", "Championship"}));
    QCOMPARE(l.codes, QStringList({"PRI", "PS", "H", "C"}));

    Fixture::Event(c, comp, "1A", "Under 8", "PRI");
    Default_Split_Ages(c, comp);  // nothing to change: every row already has a value
    QCOMPARE(Count(c, "age_groups", "split_ages = 'N'"), 1);
}

void TestSetupChecks::category_dance_add_remove_and_moves()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    const short other = Fixture::Competition(c, "Other", "x");

    QList<Dance_Item> sel = Read_Selected_Dances(c, comp, "PRI");
    QCOMPARE(sel.size(), 4);
    QCOMPARE(sel[0].id, 6);
    QCOMPARE(sel[0].name, QString("Pas de Basque"));
    QList<Dance_Item> avail = Read_Available_Dances(c, comp, "PRI");
    QCOMPARE(avail.size(), 13);
    QCOMPARE(avail.first().id, 17);  // highest first
    QCOMPARE(Read_Available_Dances(c, comp, "PS").size(), 17);

    // Added at the list's count, counted from 0: it ties with the third dance.
    Add_Category_Dance(c, comp, "PRI", 12, sel.size());
    QCOMPARE(c.scalar(QString("SELECT orderby FROM category_dances WHERE competition_id=%1 AND category_id='PRI' "
                              "AND dance_id=12").arg(comp)).toInt(), 4);
    sel = Read_Selected_Dances(c, comp, "PRI");
    QCOMPARE(sel.size(), 5);
    QCOMPARE(Read_Available_Dances(c, comp, "PRI").size(), 12);

    auto orders = [&](short k) {
        QStringList out;
        RowSet rs = c.query(QString("SELECT dance_id || '=' || orderby FROM category_dances WHERE competition_id=%1 "
                                    "AND category_id='PRI' ORDER BY dance_id").arg(k));
        for (; !rs.eof(); rs.next())
            out << rs.value(0).toString();
        return out;
    };
    const QStringList otherBefore = orders(other);

    // sel is 6,7,1,2,12 (or 6,7,1,12,2 where the tie falls). Move position 2 up.
    const int d2 = sel[2].id, d1 = sel[1].id;
    QCOMPARE(Move_Dance_Up(c, comp, "PRI", sel, 2), 1);
    QCOMPARE(sel[1].id, d2);
    QCOMPARE(sel[2].id, d1);
    // Only the two swapped rows take list positions counted from 0.
    QStringList o = orders(comp);
    QVERIFY(o.contains(QString("%1=1").arg(d2)));
    QVERIFY(o.contains(QString("%1=2").arg(d1)));
    QVERIFY(o.contains("6=1"));  // untouched, now tied with the moved dance
    QCOMPARE(orders(other), otherBefore);

    QCOMPARE(Move_Dance_Up(c, comp, "PRI", sel, 0), 0);
    QCOMPARE(Move_Dance_Down(c, comp, "PRI", sel, 4), 4);
    QCOMPARE(Move_Dance_Up(c, comp, "PRI", sel, -1), -1);
    QCOMPARE(orders(comp), o);

    const int last = sel[3].id, after = sel[4].id;
    QCOMPARE(Move_Dance_Down(c, comp, "PRI", sel, 3), 4);
    QCOMPARE(sel[4].id, last);
    o = orders(comp);
    QVERIFY(o.contains(QString("%1=4").arg(last)));
    QVERIFY(o.contains(QString("%1=3").arg(after)));

    Remove_Category_Dance(c, comp, "PRI", 7);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PRI'").arg(comp)), 4);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PRI'").arg(other)), 4);
    for (int id : {1, 2, 6, 7})
        Remove_Category_Dance(c, comp, "PRI", id);
    Remove_Category_Dance(c, comp, "PRI", 12);
    QVERIFY(Read_Selected_Dances(c, comp, "PRI").isEmpty());

    QVERIFY(Is_Fixed_Category("C"));
    QVERIFY(Is_Fixed_Category("H"));
    QVERIFY(!Is_Fixed_Category("PS"));
}

void TestSetupChecks::category_codes_used()
{
    const QStringList codes = {"C", "H", "PRI", "PS", "dnc1"};
    QVERIFY(Category_Code_Used("", codes, 1, 0));
    QVERIFY(Category_Code_Used("PS", codes, 1, 0));
    QVERIFY(!Category_Code_Used("DNC2", codes, 1, 0));
    // The table holds what was stored; the comparison minds case.
    QVERIFY(!Category_Code_Used("DNC1", codes, 1, 0));
    // An edit is not compared with its own entry.
    QVERIFY(!Category_Code_Used("PS", codes, 2, 3));
    QVERIFY(Category_Code_Used("PS", codes, 2, 2));
    QVERIFY(Category_Code_Used("", codes, 2, 3));
}

void TestSetupChecks::category_insert_update_delete()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    const short other = Fixture::Competition(c, "Other", "x");
    Insert_Category(c, comp, "DNC1", "Dance Category 1");
    Fixture::Category_Dances(c, comp, "DNC1", {8, 9});
    Fixture::Category_Dances(c, other, "PS", {1, 2, 3, 4});
    Fixture::Event(c, comp, "1A", "Under 8", "DNC1");
    QList<Category_Item> cats = Read_Categories(c, comp);
    QCOMPARE(cats.size(), 5);
    QCOMPARE(cats[0].name, QString("Championship"));
    QCOMPARE(cats[1].code, QString("DNC1"));

    Insert_Category(c, comp, "DNC2", "Dancer's");
    // A code stored twice is refused by the store.
    QVERIFY_THROWS_EXCEPTION(DbError, Insert_Category(c, comp, "dnc1", "Again"));

    // A changed code leaves its dances and events under the old code.
    Update_Category(c, comp, "DNC9", "Ninth", "DNC1");
    QCOMPARE(Count(c, "categories", QString("competition_id=%1 AND category_id='DNC9' AND category='Ninth'").arg(comp)), 1);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='DNC1'").arg(comp)), 2);
    QCOMPARE(Count(c, "age_groups", "category='DNC1'"), 1);

    Delete_Category(c, comp, "PS");
    Delete_Category(c, comp, "PRI");
    QCOMPARE(Count(c, "categories", QString("competition_id=%1").arg(comp)), 4);   // Dancer's stays
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PRI'").arg(comp)), 0);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PRI'").arg(other)), 4);
    QCOMPARE(Count(c, "category_dances", QString("competition_id=%1 AND category_id='PS'").arg(other)), 4);
    QCOMPARE(Count(c, "categories", QString("competition_id=%1").arg(other)), 4);
}

QTEST_GUILESS_MAIN(TestSetupChecks)
#include "test_setup_checks.moc"
