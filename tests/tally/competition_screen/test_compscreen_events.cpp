// The Competition mark screen and the entries: the registered filter,
// withdrawn dancers, small events and the trophy flag of a dance.
#include "screen_driver.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"

#include <QtTest>

using namespace Drive;

namespace {

short Build(Connection &c, int dancers, const QString &category = "H")
{
    const short comp = Fixture::Competition(c, "Cowal Gathering", "28/08/2026");
    Fixture::Event(c, comp, "A", "Pre-Premier 10 & Under", category);
    Fixture::Event(c, comp, "B", "Beginners 7 & Under", "H");
    for (int n = 1; n <= dancers; ++n)
        Fixture::Competitor(c, comp, 20 + n, "Dancer", QString::number(20 + n), {"A"});
    Current_Competition_Id = comp;
    Current_Competition_Name = "Cowal Gathering";
    return comp;
}

QString Marks_Of(Connection &c, int competitor)
{
    RowSet rs = c.query(QString("SELECT dance_id, points_awarded1 FROM comp_judges_results WHERE group_id = 'A' AND "
                                "competitor_id = %1 ORDER BY dance_id").arg(competitor));
    QStringList out;
    for (; !rs.eof(); rs.next())
        out << rs.text("dance_id") + ":" + rs.text("points_awarded1");
    return out.join(' ');
}

} // namespace

class TestCompScreenEvents : public QObject
{
    Q_OBJECT
private slots:
    void filter_yes_hides_unregistered_dancers_without_touching_their_marks();
    void withdrawn_dancer_loses_marks_at_the_next_event_selection();
    void event_of_five_is_flagged_in_every_dance();
    void trophy_flag_of_a_dance_follows_the_list();
};

void TestCompScreenEvents::filter_yes_hides_unregistered_dancers_without_touching_their_marks()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build(c, 8);
    Fixture::Competitor(c, Current_Competition_Id, 40, "Unsigned", "Dancer", {"B"});
    c.execute("UPDATE competitors SET registered = 1 WHERE competitor_id IN (21, 23, 25)");
    c.execute("UPDATE competitors SET registered = 0 WHERE competitor_id = 27");
    FrmTallyComp s;
    s.show();
    Pick(List(s, "LstGroup"), "Pre-Premier 10 & Under");
    Type_Column(s, {"70", "71", "72", "73", "74", "75", "76", "77"});
    Click(Button(s, "CmdTally"));

    QListWidget *filter = List(s, "lst_filter");
    QCOMPARE(filter->currentItem()->text(), QString("No"));
    Pick(filter, "Yes");
    // Signed in (1) and no card shown (0) are both shown; not signed in is hidden.
    QCOMPARE(Column(Grid(s, "MSFlexGrid1"), 0), QStringList({"21", "23", "25", "27"}));
    QCOMPARE(Column(Grid(s, "MSFlexGrid1"), 1), QStringList({"70", "72", "74", "76"}));
    Type_Column(s, {"90", "", "", ""});
    Key(Grid(s, "MSFlexGrid1"), Qt::Key_Up);
    Key(Grid(s, "MSFlexGrid1"), Qt::Key_Delete);
    Key(Editor(s), Qt::Key_Return);
    Click(Button(s, "CmdTally"));
    QCOMPARE(Marks_Of(c, 21), QString("1:90 2: 3: 4:"));
    QCOMPARE(Marks_Of(c, 25), QString("1: 2: 3: 4:"));
    // The hidden dancers keep their marks and their places.
    for (int n : {22, 24, 26, 28})
        QCOMPARE(Marks_Of(c, n), QString("1:%1 2: 3: 4:").arg(70 + n - 21));
    QCOMPARE(Column(Grid(s, "GrdODR"), 0), QStringList({"21", "28", "27", "26", "24", "23"}));

    // Back to all dancers after a change: the filter saves first, as a dance button does.
    QCOMPARE(s.Current_Row(), 4);
    Type(s, "65");
    Dialogs::queueAnswer(vbYes);
    Pick(filter, "No");
    QCOMPARE(Dialogs::lastRecord().text, QString("Do you want to save your changes? "));
    QCOMPARE(Grid(s, "MSFlexGrid1")->rowCount(), 9);
    QCOMPARE(Marks_Of(c, 27), QString("1:65 2: 3: 4:"));

    // An event where nobody is signed in shows nothing to mark or save.
    Pick(filter, "Yes");
    c.execute("UPDATE competitors SET registered = NULL WHERE competitor_id = 40");
    Pick(List(s, "LstGroup"), "Beginners 7 & Under");
    QCOMPARE(filter->currentItem()->text(), QString("Yes"));
    QVERIFY(!Grid(s, "MSFlexGrid1")->isEnabled());
    QVERIFY(!Button(s, "CmdTally")->isEnabled());
    QVERIFY(!Button(s, "CmdRpt")->isEnabled());
    QVERIFY(!List(s, "LstJudge")->isEnabled());
    QVERIFY(filter->isEnabled());
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'B' AND competitor_id = 40"), 4);
}

void TestCompScreenEvents::withdrawn_dancer_loses_marks_at_the_next_event_selection()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build(c, 6);
    FrmTallyComp s;
    s.show();
    Pick(List(s, "LstGroup"), "Pre-Premier 10 & Under");
    for (int n = 1; n <= 4; ++n) {
        if (s.Changed())
            Dialogs::queueAnswer(vbYes);
        Click(Button(s, QString("Cmd%1").arg(n)));
        Type_Column(s, {"80", "81", "82", "83", "84", "85"});
    }
    Click(Button(s, "CmdTally"));
    QCOMPARE(Marks_Of(c, 23), QString("1:82 2:82 3:82 4:82"));
    QCOMPARE(Column(Grid(s, "GrdOR"), 0), QStringList({"26", "25", "24", "23", "22", "21"}));
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'A'"), 0);

    // Withdrawn elsewhere while the screen is open: nothing changes until the event is taken up again.
    c.execute("DELETE FROM competitor_groups WHERE competitor_id = 23 AND group_id = 'A'");
    Click(Button(s, "Cmd1"));
    QCOMPARE(Grid(s, "MSFlexGrid1")->rowCount(), 7);
    Pick(List(s, "LstGroup"), "Beginners 7 & Under");
    Pick(List(s, "LstGroup"), "Pre-Premier 10 & Under");
    QCOMPARE(Marks_Of(c, 23), QString());
    QCOMPARE(Column(Grid(s, "MSFlexGrid1"), 0), QStringList({"21", "22", "24", "25", "26"}));
    QCOMPARE(Marks_Of(c, 24), QString("1:83 2:83 3:83 4:83"));
    // Five dancers left: the event now counts for no trophy.
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'A'"), 4);
    // The next save re-tallies without the withdrawn dancer.
    Type(s, "86");
    Click(Button(s, "CmdTally"));
    QVERIFY(!Column(Grid(s, "GrdODR"), 0).contains("23"));
}

void TestCompScreenEvents::event_of_five_is_flagged_in_every_dance()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build(c, 5, "PRI");
    FrmTallyComp s;
    s.show();
    Pick(List(s, "LstGroup"), "Pre-Premier 10 & Under");
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'A'"), 4);
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'A' AND dance_id IN (6, 7, 1, 2)"), 4);
    QListWidget *trophies = List(s, "lstnodancers");
    for (int n = 1; n <= 4; ++n) {
        Click(Button(s, QString("Cmd%1").arg(n)));
        QVERIFY2(!trophies->isEnabled(), qPrintable(QString::number(n)));
        QCOMPARE(trophies->currentItem()->text(), QString("No"));
        QVERIFY(Button(s, "CmdTally")->isEnabled());
    }
}

void TestCompScreenEvents::trophy_flag_of_a_dance_follows_the_list()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build(c, 7);
    FrmTallyComp s;
    s.show();
    Pick(List(s, "LstGroup"), "Pre-Premier 10 & Under");
    QListWidget *trophies = List(s, "lstnodancers");
    QVERIFY(trophies->isEnabled());
    QCOMPARE(trophies->currentItem()->text(), QString("Yes"));
    Click(Button(s, "Cmd2"));
    Pick(trophies, "No");
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'A' AND dance_id = 2"), 1);
    QVERIFY(!s.Changed());
    Click(Button(s, "Cmd1"));
    QCOMPARE(trophies->currentItem()->text(), QString("Yes"));
    Click(Button(s, "Cmd2"));
    QCOMPARE(trophies->currentItem()->text(), QString("No"));
    Pick(trophies, "Yes");
    QCOMPARE(Fixture::Count(c, "dance_no_dancers", "group_id = 'A'"), 0);
}

QTEST_MAIN(TestCompScreenEvents)
#include "test_compscreen_events.moc"
