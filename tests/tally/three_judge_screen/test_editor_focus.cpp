// Marks typed fast land whole, a refused mark never leaves the box by a
// click, and Esc in the save question does not throw the marks away: on both
// mark screens.
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "core/globals.h"

class TestEditorFocus : public QObject
{
    Q_OBJECT
private slots:
    void marks_typed_and_left_data();
    void marks_typed_and_left();
};

void TestEditorFocus::marks_typed_and_left_data()
{
    QTest::addColumn<bool>("threeJudge");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("mark");   // dancer 101's mark as stored | title of the last box
    const QString comp = "!LstGroup:Juvenile 10-12|@1,1|>", champ = "!LstGroup:Adult Scottish Championship|@1,4|>";
    QTest::newRow("competition: burst") << false << comp + "87\n|!CmdTally" << "87|";
    QTest::newRow("competition: 150, click on Tally") << false << comp + "150|!CmdTally" << "none|Validation Error";
    QTest::newRow("competition: 150, click on a dance") << false << comp + "150|?6|!Cmd2" << "none|Validation Error";
    QTest::newRow("competition: Esc in the close question") << false << comp + "87\n|?-27|?-27|?6|>\x1b" << "87|Save Changes Confirmation";
    QTest::newRow("three judges: burst") << true << champ + "87\n|!Cmd_Tally" << "87|";
    QTest::newRow("three judges: 150, click on Tally") << true << champ + "150|!Cmd_Tally" << "none|Validation Error";
    QTest::newRow("three judges: 150, click on the filter") << true << champ + "150|!lst_filter" << "none|Validation Error";
    QTest::newRow("three judges: 150, another event") << true << champ + "150|?6|!LstGroup:Under 16 Junior Championship" << "none|Validation Error";
    QTest::newRow("three judges: 150, close") << true << champ + "150|?6|#" << "none|Validation Error";
    QTest::newRow("three judges: Esc in the close question") << true << champ + "87\n|?-27|?-27|?6|>\x1b" << "87|Save Changes Confirmation";
}

void TestEditorFocus::marks_typed_and_left()
{
    QFETCH(bool, threeJudge);
    QFETCH(QString, script);
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c, "Cowal Gathering");
    Fixture::Event(c, 1, "J", "Juvenile 10-12", "PRI");
    Fixture::Event(c, 1, "C1", "Adult", "C");
    Fixture::Event(c, 1, "C2", "Under 16", "C");
    c.execute("UPDATE age_groups SET championship_title = CASE group_id WHEN 1 THEN NULL WHEN 2 THEN 'Scottish Championship' ELSE 'Junior Championship' END");
    for (int n = 101; n <= 104; ++n)
        Fixture::Competitor(c, 1, n, "Ailsa", "Grant", {"J", "C1", "C2"});
    for (const char *name : {"Ann", "Bob", "Cath"})
        Fixture::Judge(c, 1, name, "Reid");
    std::unique_ptr<GridScreen> s(threeJudge ? static_cast<GridScreen *>(new ThreeJudgeScreen(Championship_Kind()))
                                             : new FrmTallyComp);
    Show_Screen(s.get());
    Run_Script(s.get(), script);
    const QString mark = c.scalar(QString("SELECT ifnull(max(points_awarded1), 'none') FROM %1 WHERE competitor_id = 101 AND group_id IN ('J', 'C1')")
                                      .arg(threeJudge ? "judges_results" : "comp_judges_results")).toString();
    QTEST(mark + "|" + Dialogs::lastRecord().title, "mark");
}

QTEST_MAIN(TestEditorFocus)
#include "test_editor_focus.moc"
