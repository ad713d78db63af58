// Splitting an event of sixty dancers by age, on the screen as the operator
// does it, and the band and code rules beneath it.
#include "entries/split/age_split.h"
#include "entries/split/frmSplitAges.h"

#include "core/db.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"

#include <QListWidget>
#include <QPushButton>
#include <QtTest>

namespace {

// Dancer n is 8 + n % 9 years old, 58 to 60 have no age. Dancer 1 is in eight
// events, dancer 2 has the event in the eighth column.
void Sixty_Dancers(Connection &c)
{
    Current_Competition_Id = Fixture::Competition(c);
    Fixture::Event(c, Current_Competition_Id, "U17", "Under 17 Highland", "H");
    c.execute("UPDATE age_groups SET split_ages = 'Y' WHERE competition_group_id = 'U17'");
    Fixture::Event(c, Current_Competition_Id, "FL", "Fling Special", "H");
    const QStringList others = {"E2", "E3", "E4", "E5", "E6", "E7", "E8"};
    for (int n = 1; n <= 60; ++n)
        Fixture::Competitor(c, Current_Competition_Id, n, "Dancer", QString::number(n),
                            n == 1 ? QStringList{"U17"} + others : n == 2 ? others + QStringList{"U17"}
                                                                          : QStringList{"U17"});
    c.execute("UPDATE competitors SET age = 8 + competitor_id % 9 WHERE competitor_id <= 57");
}

QStringList Items(QListWidget *list)
{
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

void Click_Items(QListWidget *list, const QStringList &texts)
{
    for (const QString &t : texts) {
        QListWidgetItem *item = list->findItems(t, Qt::MatchStartsWith).value(0);
        QVERIFY2(item, qPrintable(t));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
    }
}

QString Children(Connection &c)
{
    RowSet rs = c.query("SELECT a.competition_group_id || ':' || a.age_group || ':' || a.category || a.no_prizes "
                        "|| a.split_overalls || a.split_ages || ':' || (SELECT count(*) FROM competitor_groups g "
                        "WHERE g.group_id = a.competition_group_id) AS t FROM age_groups a WHERE parent_group_id = "
                        "'U17' ORDER BY 1");
    QStringList out;
    for (; !rs.eof(); rs.next())
        out << rs.text("t");
    return out.join(" | ");
}

} // namespace

class TestSplit : public QObject
{
    Q_OBJECT
private slots:
    void bands_data();
    void bands();
    void codes_data();
    void codes();
    void sixty_dancers_split_twice();
    void a_failing_band_leaves_the_bands_before_it();
};

void TestSplit::bands_data()
{
    QTest::addColumn<QList<int>>("ages");        // one dancer per year, 10 per 12 year-olds
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QList<int>>("listed");      // low, high pairs
    QTest::addColumn<QString>("outcome");
    const QList<int> ages{9, 10, 11, 12, 13};
    QTest::newRow("one age") << ages << QList<int>{1} << QList<int>{} << "10 yrs (1 dancers) 1-1";
    QTest::newRow("gap taken in") << ages << QList<int>{1, 2, 4} << QList<int>{} << "10 - 13 yrs (13 dancers) 1-4";
    QTest::newRow("encloses a band") << ages << QList<int>{0, 3} << QList<int>{10, 11} << "refused";
    QTest::newRow("encloses one age") << ages << QList<int>{0, 2} << QList<int>{10, 10} << "refused";
    QTest::newRow("partial overlap") << ages << QList<int>{2, 4} << QList<int>{10, 11} << "11 - 13 yrs (12 dancers) 2-4";
    QTest::newRow("same low") << ages << QList<int>{1, 3} << QList<int>{10, 11} << "10 - 12 yrs (12 dancers) 1-3";
    QTest::newRow("none selected") << ages << QList<int>{} << QList<int>{10, 11} << "fault";
}

void TestSplit::bands()
{
    QFETCH(QList<int>, ages);
    QFETCH(QList<int>, selected);
    QFETCH(QList<int>, listed);
    QFETCH(QString, outcome);
    QList<Age_Count> counts;
    QList<bool> picked;
    for (int i = 0; i < ages.size(); ++i) {
        counts << Age_Count{short(ages[i]), short(ages[i] == 12 ? 10 : 1)};
        picked << selected.contains(i);
    }
    QList<Age_Band> bands;
    for (int i = 0; i + 1 < listed.size(); i += 2)
        bands << Age_Band{short(listed[i]), short(listed[i + 1])};
    QString got;
    try {
        const Band_Choice b = Make_Band(counts, picked, bands);
        got = b.refused ? "refused" : QString("%1 %2-%3").arg(b.text).arg(b.firstRow).arg(b.lastRow);
    } catch (const AppError &) {
        got = "fault";
    }
    QCOMPARE(got, outcome);
}

void TestSplit::codes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QString>("code");
    QTest::newRow("two letters") << "P1" << QStringList{} << "P2";
    QTest::newRow("Under") << "Under 12" << QStringList{"UNDE"} << "UNDF";
    QTest::newRow("next free") << "Under 12" << QStringList{"UNDF", "undg"} << "UNDH";
    QTest::newRow("carry from Z") << "Baz" << QStringList{} << "BB0";
    QTest::newRow("apostrophe") << "St Andrew's" << QStringList{"STAO"} << "STAP";
}

void TestSplit::codes()
{
    QFETCH(QString, name);
    QFETCH(QStringList, taken);
    QFETCH(QString, code);
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Fixture::Competition(c);
    for (const QString &t : taken)
        Fixture::Event(c, comp, t, t, "H");
    QCOMPARE(Free_Code(c, comp, Code_Stem(name)), code);
}

void TestSplit::sixty_dancers_split_twice()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Sixty_Dancers(c);
    frmSplitAges s;
    s.show();
    QCOMPARE(Items(s.lstGroups), QStringList{"Under 17 Highland"});
    s.lstGroups->setCurrentRow(0);
    QCOMPARE(Items(s.lstcounts).join(", "), QString("8 yrs (6 dancers), 9 yrs (7 dancers), 10 yrs (7 dancers), "
                                                    "11 yrs (7 dancers), 12 yrs (6 dancers), 13 yrs (6 dancers), "
                                                    "14 yrs (6 dancers), 15 yrs (6 dancers), 16 yrs (6 dancers)"));
    Click_Items(s.lstcounts, {"10 ", "11 ", "13 "});
    QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
    Click_Items(s.lstcounts, {"9 ", "14 "});
    QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
    QCOMPARE(Dialogs::lastRecord().text, QString("This age group would overlap another age group!"));
    Click_Items(s.lstcounts, {"14 ", "8 "});   // 9 stays selected
    QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
    Click_Items(s.lstcounts, {"14 ", "16 "});
    QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
    QCOMPARE(Items(s.lstcreategroups),
             QStringList({"10 - 13 yrs (26 dancers)", "8 - 9 yrs (13 dancers)", "14 - 16 yrs (18 dancers)"}));
    QCOMPARE(s.lstcounts->count(), 0);
    QTest::mouseClick(s.CmdCreate, Qt::LeftButton);
    QCOMPARE(Dialogs::texts().mid(Dialogs::texts().size() - 2),
             QStringList({"Confirm you wish to split Under 17 Highland into 3 age group(s) and enter competitors "
                          "based on age?",
                          "Age group Under 17 Highland split successfully!"}));
    QCOMPARE(Children(c), QString("UNDF:Under 17 Highland 10 - 13 yrs:H6NN:26 | UNDG:Under 17 Highland 8 - 9 yrs:H6NN:13"
                                  " | UNDH:Under 17 Highland 14 - 16 yrs:H6NN:18"));
    // The eighth column takes the band: dancer 1 loses E8, dancer 2 the event itself.
    QCOMPARE(c.scalar("SELECT group_id7 || group_id8 FROM competitors WHERE competitor_id = 1").toString(), "E7UNDG");
    QCOMPARE(c.scalar("SELECT group_id8 FROM competitors WHERE competitor_id = 2").toString(), "UNDF");
    QCOMPARE(Fixture::Count(c, "competitor_groups", "group_id = 'U17'"), 60);
    QCOMPARE(Fixture::Count(c, "competitors", "group_id8 IS NULL AND age IS NULL"), 3);

    // Again: the warning, No leaves the lists empty; Yes and one band replaces the three.
    Dialogs::queueAnswer(vbNo);
    s.lstGroups->setCurrentRow(-1);
    s.lstGroups->setCurrentRow(0);
    QCOMPARE(Dialogs::lastRecord().title, QString("Continue Confirmation"));
    QCOMPARE(s.lstcounts->count(), 0);
    QTest::mouseClick(s.CmdReset, Qt::LeftButton);
    QCOMPARE(s.lstcounts->item(2)->text(), QString("10 yrs (6 dancers)"));   // dancer 2 is no longer entered
    Click_Items(s.lstcounts, {"8 ", "11 "});
    QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
    QCOMPARE(Items(s.lstcreategroups), QStringList{"8 - 11 yrs (26 dancers)"});
    QTest::mouseClick(s.CmdCreate, Qt::LeftButton);
    // UNDF again: the 12 and 13 year-olds that held it stay out, dancer 2 (10) is in.
    QCOMPARE(Children(c), QString("UNDF:Under 17 Highland 8 - 11 yrs:H6NN:27"));
    QCOMPARE(Fixture::Count(c, "competitor_groups", "group_id IN ('UNDG', 'UNDH')"), 0);
}

void TestSplit::a_failing_band_leaves_the_bands_before_it()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Sixty_Dancers(c);
    c.execute("CREATE TRIGGER refuse BEFORE INSERT ON competitor_groups WHEN NEW.group_id = 'UNDG' "
              "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    frmSplitAges s;
    s.show();
    s.lstGroups->setCurrentRow(0);
    for (const QStringList &band : {QStringList{"8 ", "9 "}, QStringList{"10 ", "16 "}}) {
        Click_Items(s.lstcounts, band);
        QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
    }
    QTest::mouseClick(s.CmdCreate, Qt::LeftButton);
    QVERIFY(Dialogs::lastRecord().text.startsWith("There was an error in splitting this group. Please take an export"));
    c.close();
    c.open();
    QCOMPARE(Children(c), QString("UNDF:Under 17 Highland 8 - 9 yrs:H6NN:13"));
    QCOMPARE(Fixture::Count(c, "competitors", "group_id8 = 'UNDG'"), 0);
}

QTEST_MAIN(TestSplit)
#include "test_split.moc"
