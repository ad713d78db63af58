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

// Clicks the ages (each click turns its selection over), then "Add Group >".
void Add_Band(frmSplitAges &s, const QStringList &texts)
{
    for (const QString &t : texts) {
        QListWidgetItem *item = s.lstcounts->findItems(t, Qt::MatchStartsWith).value(0);
        QVERIFY2(item, qPrintable(t));
        QTest::mouseClick(s.lstcounts->viewport(), Qt::LeftButton, {}, s.lstcounts->visualItemRect(item).center());
    }
    QTest::mouseClick(s.CmdAdd, Qt::LeftButton);
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
    void bands_data()
    {
        QTest::addColumn<QList<int>>("selected");   // rows of ages 9 to 13
        QTest::addColumn<QList<Age_Band>>("listed");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("one age") << QList<int>{1} << QList<Age_Band>{} << "10 yrs (1 dancers) 1-1";
        QTest::newRow("gap taken in") << QList<int>{1, 2, 4} << QList<Age_Band>{} << "10 - 13 yrs (13 dancers) 1-4";
        QTest::newRow("encloses a band") << QList<int>{0, 3} << QList<Age_Band>{{10, 11}} << "refused";
        QTest::newRow("encloses one age") << QList<int>{0, 2} << QList<Age_Band>{{10, 10}} << "refused";
        QTest::newRow("partial overlap") << QList<int>{2, 4} << QList<Age_Band>{{10, 11}}
                                         << "11 - 13 yrs (12 dancers) 2-4";
        QTest::newRow("none selected") << QList<int>{} << QList<Age_Band>{{10, 11}} << "fault";
    }

    void bands()
    {
        QFETCH(QList<int>, selected);
        QFETCH(QList<Age_Band>, listed);
        QFETCH(QString, outcome);
        const QList<Age_Count> counts{{9, 1}, {10, 1}, {11, 1}, {12, 10}, {13, 1}};
        QList<bool> picked;
        for (int i = 0; i < counts.size(); ++i)
            picked << selected.contains(i);
        QString got;
        try {
            const Band_Choice b = Make_Band(counts, picked, listed);
            got = b.refused ? "refused" : QString("%1 %2-%3").arg(b.text).arg(b.firstRow).arg(b.lastRow);
        } catch (const AppError &) {
            got = "fault";
        }
        QCOMPARE(got, outcome);
    }

    void codes_data()
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

    void codes()
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

    void sixty_dancers_split_twice()
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
        Add_Band(s, {"10 ", "11 ", "13 "});
        Add_Band(s, {"9 ", "14 "});
        QCOMPARE(Dialogs::lastRecord().text, QString("This age group would overlap another age group!"));
        Add_Band(s, {"14 ", "8 "});   // 9 stays selected
        Add_Band(s, {"14 ", "16 "});
        QCOMPARE(Items(s.lstcreategroups),
                 QStringList({"10 - 13 yrs (26 dancers)", "8 - 9 yrs (13 dancers)", "14 - 16 yrs (18 dancers)"}));
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
        QTest::mouseClick(s.CmdReset, Qt::LeftButton);
        QCOMPARE(s.lstcounts->item(2)->text(), QString("10 yrs (6 dancers)"));   // dancer 2 is no longer entered
        Add_Band(s, {"8 ", "11 "});
        QCOMPARE(Items(s.lstcreategroups), QStringList{"8 - 11 yrs (26 dancers)"});
        QTest::mouseClick(s.CmdCreate, Qt::LeftButton);
        // UNDF again: the 12 and 13 year-olds that held it stay out, dancer 2 (10) is in.
        QCOMPARE(Children(c), QString("UNDF:Under 17 Highland 8 - 11 yrs:H6NN:27"));
        QCOMPARE(Fixture::Count(c, "competitor_groups", "group_id IN ('UNDG', 'UNDH')"), 0);

        // A band that fails is undone whole; the band before it stays, and the box comes.
        c.execute("CREATE TRIGGER refuse BEFORE INSERT ON competitor_groups WHEN NEW.group_id = 'UNDG' "
                  "BEGIN SELECT RAISE(ABORT, 'refused'); END");
        s.lstGroups->setCurrentRow(-1);
        s.lstGroups->setCurrentRow(0);
        Add_Band(s, {"8 ", "9 "});
        Add_Band(s, {"10 ", "16 "});
        QTest::mouseClick(s.CmdCreate, Qt::LeftButton);
        QVERIFY(Dialogs::lastRecord().text.startsWith("There was an error in splitting this group. Please take an export"));
        QCOMPARE(Children(c), QString("UNDF:Under 17 Highland 8 - 9 yrs:H6NN:13"));
        QCOMPARE(Fixture::Count(c, "competitors", "group_id8 = 'UNDG'"), 0);
    }
};

QTEST_MAIN(TestSplit)
#include "test_split.moc"
