#include "setup/event_logic.h"
#include "core/errors.h"

#include <QtTest>

class TestSetupChecks : public QObject
{
    Q_OBJECT
private slots:
    void event_cell_checks_data();
    void event_cell_checks();
    void event_numbers_that_are_no_numbers_fault();
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
    QVERIFY(Has_Duplicate_Codes({"1A", "2b", "1a"}));
    QVERIFY(!Has_Duplicate_Codes({"1A", "2B", "1A1"}));
}

QTEST_GUILESS_MAIN(TestSetupChecks)
#include "test_setup_checks.moc"
