#include "core/errors.h"
#include "core/globals.h"
#include "core/routines.h"

#include <QSet>
#include <QtTest>

class TestRoutines : public QObject
{
    Q_OBJECT
private slots:
    void place_text_names_only_nineteen_places();
    void sql_quote_doubles_every_quote();
    void format_address_moves_lines_up();
    void next_code_carries();
    void duplicates_and_nulls();
    void random_sample();
    void folders_and_files();
};

void TestRoutines::place_text_names_only_nineteen_places()
{
    Opt_Locale = true;
    QCOMPARE(Place_Text(1), QString("Win"));
    QCOMPARE(Place_Text(2), QString("1RU"));
    QCOMPARE(Place_Text(4), QString("3RU"));
    QCOMPARE(Place_Text(19), QString("18RU"));
    QCOMPARE(Place_Text(20), QString());   // the twentieth place is lost on reports
    QCOMPARE(Place_Text(0), QString());
    Opt_Locale = false;
    QCOMPARE(Place_Text(1), QString("1"));
    QCOMPARE(Place_Text(20), QString("20"));
    Opt_Locale = true;
}

void TestRoutines::sql_quote_doubles_every_quote()
{
    QCOMPARE(Sql_Quote("O'Brien"), QString("O''Brien"));
    QCOMPARE(Sql_Quote("''"), QString("''''"));
    QCOMPARE(Sql_Quote("plain"), QString("plain"));
}

void TestRoutines::format_address_moves_lines_up()
{
    // Town, blank, postcode is trimmed on the right only: a lone postcode keeps its blank.
    QCOMPARE(Format_Address(QVariant(), QVariant(), QVariant(), "AB1 2CD"), QString(" AB1 2CD||"));
    QCOMPARE(Format_Address("1 High St", "", "Oban", "PA34"), QString("1 High St|Oban PA34|"));
    QCOMPARE(Format_Address("", "Flat 2", "Oban", ""), QString("Flat 2|Oban|"));
    QCOMPARE(Format_Address("1 High St", "Flat 2", "Oban", "PA34"), QString("1 High St|Flat 2|Oban PA34"));
    QCOMPARE(Format_Address("", "", "Oban", ""), QString("Oban||"));
    const QString blank = Format_Address(QVariant(), QVariant(), QVariant(), QVariant());
    const QStringList lines = blank.split('|');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].startsWith("Address....."));
    QVERIFY(lines[1].startsWith(".....") && lines[2] == lines[1]);
}

void TestRoutines::next_code_carries()
{
    QCOMPARE(Next_Code("A1"), QString("A2"));
    QCOMPARE(Next_Code("A9"), QString("AA"));
    QCOMPARE(Next_Code("AZ"), QString("B0"));
    QCOMPARE(Next_Code("9Z"), QString("A0"));
    QCOMPARE(Next_Code("ZZ"), QString("100"));
}

void TestRoutines::duplicates_and_nulls()
{
    QVERIFY(!Has_Duplicates({"A1", "A2", "B1"}));
    QVERIFY(Has_Duplicates({"A1", "A2", "A1"}));
    QVERIFY(Has_Duplicates({"a1", "A1"}));   // keys compare without case
    QVERIFY(!Has_Duplicates({}));
    QVariantList v{"A", QVariant(), "B", "A", QVariant()};
    QCOMPARE(Remove_Nulls(v), 3);
    QCOMPARE(v, QVariantList({"A", "B"}));
}

void TestRoutines::random_sample()
{
    const QList<int> draw = Random_Sample(10, 1, 10, true);
    QCOMPARE(draw.size(), 10);
    QCOMPARE(QSet<int>(draw.begin(), draw.end()).size(), 10);
    for (int n : draw)
        QVERIFY(n >= 1 && n <= 10);
    // Without uniqueness repeats are allowed and more than the pool can be drawn.
    QCOMPARE(Random_Sample(30, 1, 3, false).size(), 30);
    QVERIFY_THROWS_EXCEPTION(AppError, Random_Sample(11, 1, 10, true));
    for (int i = 0; i < 50; ++i) {
        const short r = Random_Between(3, 5);
        QVERIFY(r >= 3 && r <= 5);
    }
    const QString noise = Noise_Char(65, 65);
    QCOMPARE(noise, QString("<SPAN class=no>A</SPAN>"));
}

void TestRoutines::folders_and_files()
{
    QTemporaryDir dir;
    QVERIFY(Is_Folder(dir.path()));
    QVERIFY(!Is_Folder(dir.path() + "/nothing"));
    QVERIFY(!Is_Folder(QString()));
    QFile f(dir.path() + "/a.txt");
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    QVERIFY(File_Exists(dir.path() + "/a.txt"));
    QVERIFY(!Is_Folder(dir.path() + "/a.txt"));
    QVERIFY(!File_Exists(dir.path() + "/b.txt"));
    QVERIFY(!Computer_Name().contains(QChar(0)));
}

QTEST_GUILESS_MAIN(TestRoutines)
#include "test_routines.moc"
