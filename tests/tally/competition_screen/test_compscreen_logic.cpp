#include "tally/competition/screen/mark_values.h"

#include <QtTest>

// What the mark editor takes: the screen tests type a few of these, the table
// holds the edges of the number reading.
class TestCompScreenLogic : public QObject
{
    Q_OBJECT
private slots:
    void marks_are_checked_as_the_grid_accepts_them_data();
    void marks_are_checked_as_the_grid_accepts_them();
};

void TestCompScreenLogic::marks_are_checked_as_the_grid_accepts_them_data()
{
    QTest::addColumn<QString>("texts");
    QTest::addColumn<int>("check");
    QTest::newRow("accepted") << "|0|100|87.5|99.75| 64 " << int(Mark_Check::Accepted);
    QTest::newRow("out of range") << "101|100.01|-1|-0.5|32767" << int(Mark_Check::Out_Of_Range);
    // Beyond a 16-bit whole number the conversion itself fails.
    QTest::newRow("invalid") << "abc|40000|32767.6|-32769|8O|1,5|inf|nan" << int(Mark_Check::Invalid);
}

void TestCompScreenLogic::marks_are_checked_as_the_grid_accepts_them()
{
    QFETCH(QString, texts);
    QFETCH(int, check);
    for (const QString &text : texts.split('|'))
        QVERIFY2(int(Check_Mark(text)) == check, qPrintable(text));
}

QTEST_GUILESS_MAIN(TestCompScreenLogic)
#include "test_compscreen_logic.moc"
