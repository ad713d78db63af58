// What the operator types reaches the store whole, once, and only through the
// checks of its screen; what is stored is never lost by a failed save.
#include "entries/frmCompetitors.h"
#include "setup/FrmEvents.h"
#include "setup/frmgroups.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "core/globals.h"
#include "ui/dialog_presenter.h"

#include <QMessageBox>
#include <QPushButton>

class TestDataSafety : public QObject
{
    Q_OBJECT
private slots:
    void typed_and_saved_data();
    void typed_and_saved();
    void escape_in_a_drawn_box();
};

void TestDataSafety::typed_and_saved_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("sql");
    QTest::addColumn<QString>("state");   // sql's answer | title of the last box | data rows | open or closed | Current_Competition_Name
    const QString events = "SELECT group_concat(competition_group_id || ':' || age_group || ':' || championship_title) FROM age_groups WHERE group_id > 5",
                  names = "SELECT group_concat(forename || ':' || ifnull(town, '') || ':' || ifnull(teacher, '') || ':' || ifnull(age, '')) FROM competitors",
                  entries = "SELECT group_concat(competitor_id || group_id) FROM (SELECT * FROM competitor_groups ORDER BY competitor_id, group_id)",
                  marks = "SELECT ifnull(max(points_awarded1), 'none') FROM %1 WHERE competitor_id = 101",
                  comp = "!LstGroup:Juvenile 10-12|@1,1|>", champ = "!LstGroup:Adult Scottish Championship|@1,4|>";
    QTest::newRow("FrmEvents: keys typed fast, a blank row, the new name") << "@2,1|>\n|>\x1b|@3,1|>Strathspey Open\n|@3,2|>01/07/2026\n|>\x1b|!CmdSave" << "SELECT group_concat(competition_name || ' ' || competition_date) FROM competitions WHERE competition_id > 2" << "Strathspey Open 01/07/2026|Confirmation|3|open|Strathspey Open";
    QTest::newRow("FrmEvents: copy of the chosen competition") << "@2,1|>Aaron\t|!CmdCopy|!TxtCompname|>Copy|!TxtCompDate|>d9|!cmdcreate" << "SELECT count(*) FROM age_groups JOIN competitions USING (competition_id) WHERE competition_name = 'Copy'" << "2|Confirmation|3|open|Alpha";
    QTest::newRow("FrmEvents: counters") << "$INSERT INTO competitions(competition_name) VALUES ('x')|$DELETE FROM competitions WHERE competition_id = 3|$INSERT INTO judges(competition_id) VALUES (3)|$DELETE FROM judges WHERE competition_id = 3|$INSERT INTO competitions(competition_name) VALUES ('x')|$INSERT INTO judges(competition_id) VALUES (4)" << "SELECT max(competition_id) || max(judge_id) FROM judges" << "45||2|open|Alpha";
    QTest::newRow("frmgroups: real names") << "!CmdAdd|>\x1b|=5,1,St Andrew's Premiership|=5,2,B'O|=5,3,H|=5,7,St Andrew's|!CmdSave" << events << "B'O:St Andrew's Premiership:ST ANDREW'S|Confirmation|4|open|Alpha";
    QTest::newRow("frmgroups: rows written before a fault") << "!CmdAdd|>\x1b|=5,1,U8|=5,2,A|=5,3,H|!CmdAdd|>\x1b|=6,1,U10|=6,2,B|=6,3,H|=6,4,x|!CmdSave|=6,4,6|!CmdSave" << events << "A:U8:,B:U10:|Confirmation|5|open|Alpha";
    QTest::newRow("frmgroups: duplicate codes at closing") << "!CmdAdd|>\x1b|=5,1,U8|=5,2,j|=5,3,H|#" << events << "|Validation Error|4|open|Alpha";
    QTest::newRow("frmCompetitors: keys typed fast") << "@1,2|>Catriona\n|!CmdSave" << names << "Anna:::,CATRIONA:::,Dan:::|Confirmation|2|open|Alpha";
    QTest::newRow("frmCompetitors: refused age, then clicks") << "@2,4|>-5|!CmdViewSearch|!CmdSave" << names << "Anna:::,Cara:::,Dan:::|Invalid Data|2|open|Alpha";
    QTest::newRow("frmCompetitors: new dancer saved twice") << "@2,1|>\n|>\x1b|@3,1|>103\n|@3,2|>Eve\n|@3,3|>Fox\n|>\x1b|=3,7,Bo'ness|=3,11,O'Neill|!CmdSave|!CmdSave" << names << "Anna:::,Cara:::,Dan:::,Eve:Bo'ness:O'NEILL:|Confirmation|3|open|Alpha";
    QTest::newRow("frmCompetitors: edit below a delete") << "@2,2|>Annie\t|@1,1|!cmdDel|!CmdSave" << names << "ANNIE:::,Dan:::|Confirmation|1|open|Alpha";
    QTest::newRow("frmCompetitors: Field4 with a quote") << "@2,16|>St Andrew's\t|!CmdSave" << entries << "101C1,101C2,101J,101St Andrew's,102C1,102C2,102J,201B1|Confirmation|2|open|Alpha";
    QTest::newRow("frmCompetitors: renumber onto a taken number") << "@2,1|>102\t|!CmdSave" << entries << "101C1,101C2,101J,102C1,102C2,102J,201B1|Data Error|2|open|Alpha";
    QTest::newRow("frmCompetitors: search O'Brien") << "!CmdViewSearch|!SearchSurname|>O'Brien|!CmdSearch" << entries << "101C1,101C2,101J,102C1,102C2,102J,201B1||1|open|Alpha";
    QTest::newRow("frmCompetitors: number box with no number") << "!CmdViewSearch|!SearchNo|>1 OR 1=1|!CmdSearch" << entries << "101C1,101C2,101J,102C1,102C2,102J,201B1|Invalid Data|2|open|Alpha";
    QTest::newRow("FrmTallyComp: keys typed fast") << comp + "87\n|!CmdTally" << marks.arg("comp_judges_results") << "87||2|open|Alpha";
    QTest::newRow("FrmTallyComp: 150, click on Tally") << comp + "150|!CmdTally" << marks.arg("comp_judges_results") << "none|Validation Error|2|open|Alpha";
    QTest::newRow("FrmTallyComp: Esc in the close question") << comp + "87\n|?-27|?-27|?6|>\x1b" << marks.arg("comp_judges_results") << "87|Save Changes Confirmation|2|closed|Alpha";
    QTest::newRow("FrmTallyChamp: keys typed fast") << champ + "87\n|!Cmd_Tally" << marks.arg("judges_results") << "87||2|open|Alpha";
    QTest::newRow("FrmTallyChamp: 150, click on Tally") << champ + "150|!Cmd_Tally" << marks.arg("judges_results") << "none|Validation Error|2|open|Alpha";
    QTest::newRow("FrmTallyChamp: 150, another event") << champ + "150|?6|!LstGroup:Under 16 Junior Championship" << marks.arg("judges_results") << "none|Validation Error|2|open|Alpha";
    QTest::newRow("FrmTallyChamp: 150, close") << champ + "150|?6|#" << marks.arg("judges_results") << "none|Validation Error|2|open|Alpha";
    QTest::newRow("FrmTallyChamp: Esc in the close question") << champ + "87\n|?-27|?-27|?6|>\x1b" << marks.arg("judges_results") << "87|Save Changes Confirmation|2|closed|Alpha";
}

void TestDataSafety::typed_and_saved()
{
    QFETCH(QString, script);
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c, "Alpha");
    Current_Competition_Name = "Alpha";
    Fixture::Competition(c, "Beta");
    for (const char *e : {"J:Juvenile 10-12:PRI", "C1:Adult:C", "C2:Under 16:C", "B1:Under 8:H", "B2:Under 10:H"})
        Fixture::Event(c, e[0] == 'B' ? 2 : 1, QString(e).section(':', 0, 0), QString(e).section(':', 1, 1), QString(e).section(':', 2));
    c.execute("UPDATE age_groups SET championship_title = CASE group_id WHEN 2 THEN 'Scottish Championship' WHEN 3 THEN 'Junior Championship' ELSE '' END");
    for (const char *d : {"101 Anna O'Brien", "102 Cara Dunn", "201 Dan Ross"})
        Fixture::Competitor(c, d[0] - '0', QString(d).left(3).toInt(), QString(d).section(' ', 1, 1), QString(d).section(' ', 2), d[0] == '1' ? QStringList{"J", "C1", "C2"} : QStringList{"B1"});
    c.execute("INSERT INTO judges(competition_id, forename) VALUES (1, 'Ann'), (1, 'Bob'), (1, 'Cath')");
    const QString form = QString(QTest::currentDataTag()).section(':', 0, 0);
    std::unique_ptr<GridScreen> s;
    if (form == "FrmEvents") s.reset(new FrmEvents);
    if (form == "frmgroups") s.reset(new frmgroups);
    if (form == "frmCompetitors") s.reset(new frmCompetitors);
    if (form == "FrmTallyComp") s.reset(new FrmTallyComp);
    if (form == "FrmTallyChamp") s.reset(new ThreeJudgeScreen(Championship_Kind()));
    Run_Script(s.get(), c, script);
    QFETCH(QString, sql);
    QTEST(QStringList({c.scalar(sql).toString(), Dialogs::lastRecord().title, QString::number(s->Row_Count() - s->Fixed_Rows()),
                       s->isVisible() ? "open" : "closed", Current_Competition_Name}).join('|'), "state");
    s->Set_Dirty(false);
}

void TestDataSafety::escape_in_a_drawn_box()
{
    Install_Dialog_Presenter();
    Dialogs::setScripted(false);
    QTimer::singleShot(0, [] {
        QPointer<QMessageBox> box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QTest::keyClick(box, Qt::Key_Escape);
        QVERIFY(box && box->isVisible());
        box->button(QMessageBox::Yes)->click();
    });
    QCOMPARE(Msg_Box("Do you want to save your changes? ", vbYesNo + vbQuestion), int(vbYes));
}

QTEST_MAIN(TestDataSafety)
#include "test_data_safety.moc"
