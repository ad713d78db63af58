// The Premiership screen: its four dances from the category, the refusal of
// three, a run of all four dances by keys, the small event and the draw.
#include "screen_driver.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "tally/three_judge/screen/mark_rules.h"

#include <QGroupBox>

using namespace Drive;
using namespace ThreeJudge;

class TestPremScreen : public QObject
{
    Q_OBJECT
private slots:
    void premiership_by_keys();
    void filter_and_trophies();
};

namespace {

const QStringList Forenames = {"Abbie", "Beth", "Chloe", "Daisy", "Ellie", "Freya", "Gemma", "Hannah"};
const QStringList Surnames = {"Morrison", "Fraser", "Campbell", "Stewart", "Robertson", "Murray", "Sinclair", "Cameron"};

// Judge j's mark of dancer i in dance d: spread enough to give placings,
// close enough to give ties now and then.
QString Mark(int i, int j, int d)
{
    return QString::number(60 + (i * 7 + j * 3 + d * 5 + i * j * d) % 36);
}

} // namespace

void TestPremScreen::premiership_by_keys()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn, "Braemar Gathering", "05/09/2026");
    Current_Competition_Id = comp;
    Fixture::Category_Dances(conn, comp, "PS", {16, 2, 3});
    Fixture::Event(conn, comp, "P1", "Under 12", "PS");
    Fixture::Event(conn, comp, "P2", "Under 16", "PS");
    conn.execute("UPDATE age_groups SET championship_title = 'Premiership', orderby = 2 WHERE competition_group_id = 'P1'");
    conn.execute("UPDATE age_groups SET championship_title = 'Premiership', orderby = 1 WHERE competition_group_id = 'P2'");
    for (int i = 0; i < 8; ++i)
        Fixture::Competitor(conn, comp, 201 + i, Forenames[i], Surnames[i], i < 5 ? QStringList{"P1", "P2"} : QStringList{"P2"});
    Fixture::Judge(conn, comp, "Moira", "Allan");
    Fixture::Judge(conn, comp, "Neil", "Docherty");
    Fixture::Judge(conn, comp, "Fiona", "Watt");
    Opt_Judges_Order = true;   // surname first in the judges' lists

    ThreeJudgeScreen s(Premiership_Kind());
    Open(s);
    QCOMPARE(Current_Dance_Id, short(-99));
    QCOMPARE(s.LstJudge[0]->item(0)->text(), QString("Allan Moira"));
    QCOMPARE(s.LstGroup->item(0)->text(), QString("Under 16 Premiership"));

    // Three dances in the category: refused, nothing made, nothing tallied.
    Select_Event(s, "Under 12 Premiership");
    QCOMPARE(Dialogs::lastRecord().text, QString("Premierships require 4 dances in dance categories!"));
    QVERIFY(!s.Cmd_Tally->isEnabled());
    QVERIFY(!s.findChild<QPushButton *>("Cmd1")->isEnabled());
    QCOMPARE(Fixture::Count(conn, "judges_results"), 0);
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers"), 0);

    // With a fourth dance the event opens on its first dance.
    conn.execute("INSERT INTO category_dances(competition_id, category_id, dance_id, orderby) VALUES(?, 'PS', 4, 4)",
                 {comp});
    Select_Event(s, "Under 16 Premiership");
    QStringList captions;
    for (int n = 1; n <= 4; ++n)
        captions << s.findChild<QPushButton *>(QString("Cmd%1").arg(n))->text();
    QCOMPARE(captions, (QStringList{"Trophy Fling", "Swords", "Seann Truibhas", "Reel"}));
    QCOMPARE(Current_Dance_Id, short(16));
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P2'"), 32);
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P2' AND dance_id = 16"), 8);
    QVERIFY(s.lstnodancers->isEnabled());

    for (int d = 0; d < 4; ++d) {
        if (d > 0) {
            Opt_Auto_Save = true;
            Click(s.findChild<QPushButton *>(QString("Cmd%1").arg(d + 1)));
        }
        for (int j = 0; j < 3; ++j)
            Click_Item(s.LstJudge[j], j);
        Go(s, 1, First_Judge_Column);
        for (int j = 0; j < 3; ++j) {
            QStringList column;
            for (int i = 0; i < 8; ++i)
                column << Mark(i, j, d);
            Type_Column(column);
        }
    }
    Click(s.Cmd_Tally);
    QCOMPARE(Current_Dance_Id, short(4));
    QCOMPARE(Fixture::Count(conn, "judges_results_judges", "group_id = 'P2' AND dance_id = 16"), 3);

    const QList<QStringList> overall = Stored_Overall(conn, "P2");
    QVERIFY(overall.size() >= 6);
    QCOMPARE(Grid_Rows(s.GrdHR), overall);
    QCOMPARE(Grid_Rows(s.GrdODR), Stored_Dance(conn, "P2", 4));
    // Each dance was tallied at its save, the category's own ids included.
    for (int dance : {16, 2, 3, 4})
        QVERIFY(Fixture::Count(conn, "overall_dance_results", QString("group_id = 'P2' AND dance_id = %1").arg(dance)) > 0);
    Click(s.findChild<QPushButton *>("Cmd1"));
    QCOMPARE(Grid_Rows(s.GrdODR), Stored_Dance(conn, "P2", 16));
    QCOMPARE(s.MSFlexGrid1->Text(0, Last_Judge_Column), QString("Fiona Watt"));

    // Another event keeps the dance; a small one counts for no trophy, under
    // dance ids 1 to 4 by number.
    Click(s.findChild<QPushButton *>("Cmd3"));
    Select_Event(s, "Under 12 Premiership");
    QCOMPARE(Current_Dance_Id, short(3));
    QCOMPARE(s.MSFlexGrid1->rowCount(), 6);
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'P1'"), 4);
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'P1' AND dance_id = 16"), 0);
    QVERIFY(!s.lstnodancers->isEnabled());
    QCOMPARE(s.lstnodancers->selectedItems().value(0)->text(), QString("No"));

    // The draw numbers every dancer in dances 1 to 4 by number, without repeats.
    Select_Event(s, "Under 16 Premiership");
    Dialogs::clearRecords();
    Click(s.CmdRand);
    QCOMPARE(Dialogs::texts(), QStringList{"9"});
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P2' AND orderby IS NOT NULL"), 24);
    QCOMPARE(conn.scalar("SELECT count(DISTINCT orderby) FROM judges_results WHERE group_id = 'P2'").toInt(), 24);
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'P2' AND dance_id = 16 AND orderby IS NOT NULL"), 0);
    QCOMPARE(s.MSFlexGrid1->Text(1, 0), QString("201"));   // the grid still sorts by number
}

void TestPremScreen::filter_and_trophies()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    const short comp = Fixture::Competition(conn, "Braemar Gathering", "05/09/2026");
    Current_Competition_Id = comp;
    Fixture::Category_Dances(conn, comp, "PS", {1, 2, 3, 4});
    Fixture::Event(conn, comp, "P2", "Under 16", "PS");
    Fixture::Event(conn, comp, "P3", "Adult", "PS");
    for (int i = 0; i < 8; ++i)
        Fixture::Competitor(conn, comp, 201 + i, Forenames[i], Surnames[i], {"P2"});
    conn.execute("UPDATE competitors SET registered = 1 WHERE competitor_id = 201");
    conn.execute("UPDATE competitors SET registered = 0 WHERE competitor_id = 203");   // no card, but present

    ThreeJudgeScreen s(Premiership_Kind());
    Open(s);
    Select_Event(s, "Under 16 ");
    conn.execute("UPDATE judges_results SET points_awarded1 = 50 WHERE competitor_id = 202 AND dance_id = 1");

    // Filtered: only the signed-in dancers, and the others' marks stay as they were.
    Click_Item(s.lst_filter, 1);
    QCOMPARE(s.MSFlexGrid1->rowCount(), 3);
    QCOMPARE(s.MSFlexGrid1->Text(2, 0), QString("203"));
    Go(s, 1, First_Judge_Column);
    Type("88");
    Press(Qt::Key_Return);
    Dialogs::queueAnswer(vbYes);
    Click_Item(s.lst_filter, 0);
    QCOMPARE(s.MSFlexGrid1->rowCount(), 9);
    QCOMPARE(s.MSFlexGrid1->Text(1, First_Judge_Column), QString("88"));
    QCOMPARE(s.MSFlexGrid1->Text(2, First_Judge_Column), QString("50"));

    // Include in Trophies writes the dance's flag at once.
    QVERIFY(s.lstnodancers->isEnabled());
    Click_Item(s.lstnodancers, 1);
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'P2' AND dance_id = 1"), 1);
    Click_Item(s.lstnodancers, 0);
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'P2'"), 0);
    QVERIFY(!s.Unsaved_Marks());

    // An event without dancers: nothing to mark, but the filter can change.
    Select_Event(s, "Adult ");
    QCOMPARE(s.MSFlexGrid1->rowCount(), 1);
    QVERIFY(!s.Cmd_Tally->isEnabled());
    QVERIFY(!s.findChild<QPushButton *>("Cmd2")->isEnabled());
    QVERIFY(s.lst_filter->isEnabled());
    QCOMPARE(Fixture::Count(conn, "dance_no_dancers", "group_id = 'P3'"), 4);

    // A failed save keeps the event, in the list too; an event refused for its
    // dances leaves no unsaved marks behind.
    conn.execute("CREATE TRIGGER refuse_66 BEFORE UPDATE ON judges_results WHEN NEW.points_awarded1 = 66 "
                 "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    Select_Event(s, "Under 16 ");
    Go(s, 1, First_Judge_Column);
    Type("66");
    Dialogs::queueAnswer(vbYes);
    Select_Event(s, "Adult ");
    QCOMPARE(s.LstGroup->selectedItems().value(0)->text(), QString("Under 16 "));
    conn.execute("DELETE FROM category_dances WHERE dance_id = 4");
    Dialogs::queueAnswer(vbNo);
    Select_Event(s, "Adult ");
    QCOMPARE(Dialogs::lastRecord().text, Premiership_Dances_Message);
    QVERIFY(!s.Unsaved_Marks());
}

QTEST_MAIN(TestPremScreen)
#include "test_prem_screen.moc"

