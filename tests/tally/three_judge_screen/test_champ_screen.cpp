// The Championship screen run by keys: judges, marks with a disqualification,
// save and tally, results shown as stored, dance names.
#include "screen_driver.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "core/pause.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "tally/three_judge/screen/mark_rules.h"
#include "ui/frmMain.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QPlainTextEdit>

using namespace Drive;
using namespace ThreeJudge;

class TestChampScreen : public QObject
{
    Q_OBJECT
private slots:
    void championship_by_keys();
    void dance_names();
    void keys_and_checks();
    void quick_find();
    void inside_the_main_window();
    void bursts_of_marks_land_on_their_dancers_data();
    void bursts_of_marks_land_on_their_dancers();
};

namespace {

const QStringList Names = {"Amy Bell", "Cara Dunn", "Eve Fyfe", "Isla Grant", "Kirsty Hay", "Lucy Innes", "Mhairi Kerr"};

short Make_Competition(Connection &conn, int dancers)
{
    const short comp = Fixture::Competition(conn, "Cowal Gathering", "28/08/2026");
    Current_Competition_Id = comp;
    Current_Competition_Name = "Cowal Gathering";
    Fixture::Event(conn, comp, "C1", "Adult", "C");
    Fixture::Event(conn, comp, "U-16", "Under 16", "C");   // "-1" in the code shows as "D" in the hidden column
    conn.execute("UPDATE age_groups SET championship_title = 'Scottish Championship' WHERE competition_group_id = 'C1'");
    conn.execute("UPDATE age_groups SET championship_title = 'Junior Championship' WHERE competition_group_id = 'U-16'");
    for (int i = 0; i < dancers; ++i) {
        const QStringList name = Names.at(i).split(' ');
        Fixture::Competitor(conn, comp, 101 + i, name[0], name[1], i < 2 ? QStringList{"C1", "U-16"} : QStringList{"C1"});
    }
    Fixture::Judge(conn, comp, "Ann", "MacLeod");
    Fixture::Judge(conn, comp, "Bob", "Brown");
    Fixture::Judge(conn, comp, "Cath", "Reid");
    return comp;
}

// Marks stored for the event so far.
int stored_count(Connection &conn)
{
    return Fixture::Count(conn, "judges_results", "points_awarded1 IS NOT NULL OR points_awarded2 IS NOT NULL OR "
                                                  "points_awarded3 IS NOT NULL");
}

} // namespace

void TestChampScreen::championship_by_keys()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    Make_Competition(conn, 7);

    ThreeJudgeScreen s(Championship_Kind());
    Open(s);
    QVERIFY(!s.Cmd_Tally->isEnabled());
    QVERIFY(!s.lst_filter->isEnabled());
    QCOMPARE(s.LstGroup->count(), 2);

    Select_Event(s, "Adult Scottish Championship");
    QCOMPARE(Current_Group_Id, QString("C1"));
    QCOMPARE(Current_Dance_Id, short(1));
    QVERIFY(s.Cmd_Tally->isEnabled());
    QCOMPARE(s.MSFlexGrid1->rowCount(), 8);
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'C1'"), 28);

    // Marks per dance, judge by judge, in dancer order 101 to 107.
    const QStringList first = {"90", "78", "85", "80", "75", "65", "60"};
    const QStringList second = {"78", "90", "85", "80", "75", "65", "60"};
    QStringList disqualified = first;
    disqualified[5] = "d";   // judge 2 disqualifies 106 in the Fling
    QStringList swapped = second;
    swapped[1] = "85";
    swapped[2] = "86";       // judge 3 puts 103 above 102 in the Reel
    const QList<QList<QStringList>> marks = {{first, disqualified, first}, {first, first, first},
                                             {second, second, second}, {second, second, swapped}};
    const QStringList buttons = {"Cmd_Fling", "Cmd_Swords", "Cmd_ST", "Cmd_Reel"};

    for (int d = 0; d < 4; ++d) {
        // Judges: a different judge heads each dance.
        for (int j = 0; j < 3; ++j) {
            Click_Item(s.LstJudge[j], (j + d) % 3);
            QCOMPARE(s.MSFlexGrid1->Text(0, First_Judge_Column + j), s.LstJudge[j]->item((j + d) % 3)->text());
        }
        QVERIFY(!s.Unsaved_Marks());   // choosing a judge is saved at once

        Go(s, 1, First_Judge_Column);
        for (const QStringList &column : marks[d])
            Type_Column(column);
        // Enter after the last dancer of the last judge stays with that judge.
        QCOMPARE(s.MSFlexGrid1->currentRow(), 1);
        QCOMPARE(s.MSFlexGrid1->currentColumn(), Last_Judge_Column);
        QVERIFY(s.Unsaved_Marks());

        if (d == 0) {
            Dialogs::clearRecords();
            Dialogs::queueAnswer(vbYes);
            Click(s.findChild<QPushButton *>(buttons[1]));
            QCOMPARE(Dialogs::texts(), QStringList{"Do you want to save your changes? "});
            QCOMPARE(Dialogs::lastRecord().title, QString("Save Changes Confirmation"));
        } else if (d == 1) {
            Opt_Auto_Save = true;   // saved without a question
            Dialogs::clearRecords();
            Click(s.findChild<QPushButton *>(buttons[2]));
            QVERIFY(Dialogs::texts().isEmpty());
            Opt_Auto_Save = false;
        } else {
            Click(s.Cmd_Tally);
            QVERIFY(!s.Unsaved_Marks());
            if (d == 2)
                Click(s.findChild<QPushButton *>(buttons[3]));
        }
    }
    QCOMPARE(Current_Dance_Id, short(4));

    // Stored: the "d" as -1, every judge of every dance.
    QCOMPARE(conn.scalar("SELECT points_awarded2 FROM judges_results WHERE group_id = 'C1' AND dance_id = 1 AND "
                         "competitor_id = 106").toInt(), -1);
    QCOMPARE(Fixture::Count(conn, "judges_results_judges", "group_id = 'C1'"), 12);
    QCOMPARE(Fixture::Count(conn, "judges_results_judges", "group_id = 'C1' AND dance_id = 3 AND result_no = 1 AND "
                                                           "judge_id = (SELECT judge_id FROM judges WHERE surname = 'Reid')"), 1);

    // 101 and 102 tie on place points and dances won; 101 has more judges'
    // points and takes first, 102 second, neither marked "=".
    const QList<QStringList> overall = Stored_Overall(conn, "C1");
    QCOMPARE(Drive::Grid_Rows(s.GrdHR), overall);
    QCOMPARE(overall.value(0), (QStringList{"1", "101", "380", "Amy Bell"}));
    QCOMPARE(overall.value(1), (QStringList{"2", "102", "380", "Cara Dunn"}));
    QCOMPARE(overall.value(2).value(0), QString("3"));
    QCOMPARE(Fixture::Count(conn, "highland_results", "group_id = 'C1' AND tied = 1"), 2);
    QCOMPARE(Drive::Grid_Rows(s.GrdODR), Stored_Dance(conn, "C1", 4));
    QCOMPARE(s.GrdODR->Text(1, 1), QString("102"));

    // Back on the Fling: the disqualification shows as "D"; 106, placed by two
    // judges only, is sixth; 107 has no points and is not listed.
    Click(s.findChild<QPushButton *>("Cmd_Fling"));
    QCOMPARE(s.MSFlexGrid1->Text(6, First_Judge_Column + 1), QString("D"));
    const QList<QStringList> fling = Stored_Dance(conn, "C1", 1);
    QCOMPARE(Drive::Grid_Rows(s.GrdODR), fling);
    QCOMPARE(fling.size(), 6);
    QCOMPARE(fling.last().value(1), QString("106"));
    QCOMPARE(s.MSFlexGrid1->Text(0, First_Judge_Column), QString("Bob Brown"));

    // In a 1366 by 768 window both results show the six prize-winners
    // without scrolling; the checker boxes take no room before a failed check.
    s.resize(1366, 700);
    QApplication::processEvents();
    for (FlexGrid *g : {s.GrdODR, s.GrdHR})
        QVERIFY(g->rowCount() >= 7 && g->rowViewportPosition(6) + g->rowHeight(6) <= g->viewport()->height());
    QVERIFY(!s.txt_checker1->isVisible() && !s.txt_checker2->isVisible());

    // Selecting the event again tallies it afresh, with the same result.
    conn.execute("DELETE FROM highland_results");
    Select_Event(s, "Under 16 Junior Championship");
    Select_Event(s, "Adult Scottish Championship");
    QCOMPARE(Stored_Overall(conn, "C1"), overall);
    QCOMPARE(Drive::Grid_Rows(s.GrdHR), overall);
    QCOMPARE(Current_Dance_Id, short(1));
}

void TestChampScreen::dance_names()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    Make_Competition(conn, 6);
    ThreeJudgeScreen s(Championship_Kind());
    Open(s);
    Select_Event(s, "Adult Scottish Championship");
    QPushButton *swords = s.findChild<QPushButton *>("Cmd_Swords");
    QPushButton *reel = s.findChild<QPushButton *>("Cmd_Reel");

    Click(s.findChild<QPushButton *>("cmd_edit2"));
    QVERIFY(s.frm_edit_dances->isVisible());
    QCOMPARE(s.edit_dance[3]->text(), QString("Reel"));
    s.edit_dance[1]->selectAll();
    s.edit_dance[1]->setFocus();
    Type("Broadswords");
    Click(s.cmd_edit_save);
    QVERIFY(!s.frm_edit_dances->isVisible());
    QCOMPARE(swords->text(), QString("Broadswords"));
    QCOMPARE(Fixture::Count(conn, "championship_dance_names"), 1);
    Click(swords);
    QCOMPARE(s.Frame5->title(), QString("Judges Results - Broadswords"));

    // Another event has its own names; coming back keeps the rename and the dance.
    Select_Event(s, "Under 16 Junior Championship");
    QCOMPARE(swords->text(), QString("Swords"));
    QCOMPARE(Current_Dance_Id, short(2));
    Go(s, 1, First_Judge_Column);
    Type("77");
    Click(s.Cmd_Tally);   // only the marks are written back: the row keeps its event
    QCOMPARE(Fixture::Count(conn, "judges_results", "group_id = 'U-16' AND points_awarded1 = 77"), 1);
    Select_Event(s, "Adult Scottish Championship");
    QCOMPARE(swords->text(), QString("Broadswords"));
    QCOMPARE(s.Frame5->title(), QString("Judges Results - Broadswords"));

    // A quote is kept; a name the database refuses shows its box and leaves
    // the name stored before it, and the names before it saved.
    conn.execute("CREATE TRIGGER refuse BEFORE INSERT ON championship_dance_names WHEN NEW.name = 'Claymore' "
                 "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    Click(s.findChild<QPushButton *>("cmd_edit4"));
    s.edit_dance[0]->setText("Marquis of Huntly's Fling");
    s.edit_dance[1]->setText("Claymore");
    Dialogs::clearRecords();
    Click(s.cmd_edit_save);
    QCOMPARE(Dialogs::records().size(), 1);
    QVERIFY(s.frm_edit_dances->isVisible());
    Click(s.edit_cmd_cancel);
    Select_Event(s, "Under 16 Junior Championship");
    Select_Event(s, "Adult Scottish Championship");
    QCOMPARE(s.findChild<QPushButton *>("Cmd_Fling")->text(), QString("Marquis of Huntly's Fling"));
    QCOMPARE(swords->text(), QString("Broadswords"));

    // Default puts every name back and keeps no row.
    Click(s.findChild<QPushButton *>("cmd_edit1"));
    Click(s.cmd_edit_default2);
    QVERIFY(!s.frm_edit_dances->isVisible());
    QCOMPARE(swords->text(), QString("Swords"));
    QCOMPARE(Fixture::Count(conn, "championship_dance_names", "group_id = 'C1'"), 0);
}

void TestChampScreen::keys_and_checks()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    Make_Competition(conn, 6);
    ThreeJudgeScreen s(Championship_Kind());
    Open(s);
    Select_Event(s, "Adult Scottish Championship");
    auto cell = [&s] { return QPair<int, int>(s.MSFlexGrid1->currentRow(), s.MSFlexGrid1->currentColumn()); };

    // Out of range and no number: the box, and the editor stays on the cell.
    Go(s, 1, First_Judge_Column);
    Type("101");
    Press(Qt::Key_Return);
    QCOMPARE(Dialogs::lastRecord().text, Mark_Range_Message);
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    QCOMPARE(Dialogs::lastRecord().style, int(vbExclamation));
    QVERIFY(s.txtEdit->isVisible());
    Press(Qt::Key_Escape);
    QVERIFY(!s.txtEdit->isVisible());
    QCOMPARE(s.MSFlexGrid1->Text(1, First_Judge_Column), QString());
    Type("abc");
    Press(Qt::Key_Tab);
    QCOMPARE(Dialogs::lastRecord().text, QString("Invalid Entry! Re-enter or Hit <Escape> to exit"));
    QVERIFY(s.txtEdit->isVisible());
    QCOMPARE(cell(), qMakePair(1, First_Judge_Column));
    Press(Qt::Key_Escape);

    // Tab in the editor goes down and never wraps; in the grid it wraps.
    Type("d");
    Press(Qt::Key_Tab);
    QCOMPARE(cell(), qMakePair(2, First_Judge_Column));
    Go(s, 6, First_Judge_Column + 1);
    Type("50");
    Press(Qt::Key_Tab);
    QCOMPARE(cell(), qMakePair(6, First_Judge_Column + 1));
    Press(Qt::Key_Tab);
    QCOMPARE(cell(), qMakePair(1, First_Judge_Column + 2));
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(cell(), qMakePair(1, First_Judge_Column + 2));   // nothing above the first dancer
    Go(s, 4, First_Judge_Column + 2);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(cell(), qMakePair(3, First_Judge_Column + 2));

    // The arrows never reach the hidden columns.
    Go(s, 2, First_Judge_Column);
    Type("7");
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    QVERIFY(!s.txtEdit->isVisible());
    QCOMPARE(cell(), qMakePair(2, First_Judge_Column));

    // The number column never takes the cursor, by key or click.
    Press(Qt::Key_Left);
    QCOMPARE(cell(), qMakePair(2, First_Judge_Column));
    QTest::mouseClick(s.MSFlexGrid1->viewport(), Qt::LeftButton, {},
                      s.MSFlexGrid1->visualRect(s.MSFlexGrid1->model()->index(3, 0)).center());
    QCOMPARE(cell(), qMakePair(3, First_Judge_Column));

    // Delete then Enter empties the cell; the save stores NULL there and -1 for "d".
    conn.execute("UPDATE judges_results SET points_awarded3 = 44 WHERE competitor_id = 103 AND dance_id = 1");
    Dialogs::queueAnswer(vbNo);
    Click(s.findChild<QPushButton *>("Cmd_Swords"));   // "No": nothing saved
    QCOMPARE(stored_count(conn), 1);
    Click(s.findChild<QPushButton *>("Cmd_Fling"));
    QCOMPARE(s.MSFlexGrid1->Text(3, Last_Judge_Column), QString("44"));
    Go(s, 1, First_Judge_Column);
    Type("d");
    Press(Qt::Key_Return);
    Go(s, 3, Last_Judge_Column);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Return);
    Go(s, 6, First_Judge_Column + 1);
    Type("50");
    Click(s.Cmd_Tally);   // the open editor goes in with the save
    auto stored = [&conn](int dancer, int judge) {
        return conn.scalar(QString("SELECT ifnull(points_awarded%1, 'NULL') FROM judges_results WHERE dance_id = 1 AND "
                                   "competitor_id = %2").arg(judge).arg(dancer)).toString();
    };
    QCOMPARE(stored(101, 1), QString("-1"));
    QCOMPARE(stored(103, 3), QString("NULL"));
    QCOMPARE(stored(106, 2), QString("50"));
    QCOMPARE(stored(102, 1), QString("NULL"));   // the 7 went with the "No"

    // A click on Tally with a text that is no number: the editor refuses it, nothing is saved.
    Go(s, 2, First_Judge_Column);
    Type("x");
    Dialogs::clearRecords();
    Click(s.Cmd_Tally);
    QCOMPARE(Dialogs::texts(), QStringList{"Invalid Entry! Re-enter or Hit <Escape> to exit"});
    QCOMPARE(stored(102, 1), QString("NULL"));

    // Closing with unsaved marks asks; "No" closes without saving.
    Go(s, 4, First_Judge_Column);
    Type("66");
    Dialogs::clearRecords();
    Dialogs::queueAnswer(vbNo);
    QVERIFY(s.close());
    QCOMPARE(Dialogs::texts(), QStringList{"Do you want to save your changes? "});
    QCOMPARE(stored(104, 1), QString("NULL"));
}

void TestChampScreen::quick_find()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    Make_Competition(conn, 7);
    ThreeJudgeScreen s(Championship_Kind());
    Open(s);
    Select_Event(s, "Adult Scottish Championship");
    Go(s, 2, Last_Judge_Column);

    Type("*");
    QVERIFY(s.frm_no->isVisible());
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(s.txt_enter_no));
    Type("105");
    Press(Qt::Key_Return);
    QVERIFY(!s.frm_no->isVisible());
    QCOMPARE(s.MSFlexGrid1->currentRow(), 5);
    QCOMPARE(s.MSFlexGrid1->currentColumn(), First_Judge_Column);   // judge 1 of the dancer found

    // A number not in the list leaves the cursor where it was.
    Press(Qt::Key_8, Qt::ShiftModifier);
    QVERIFY(s.frm_no->isVisible());
    Type("999");
    Press(Qt::Key_Return);
    QCOMPARE(s.MSFlexGrid1->currentRow(), 5);
    QVERIFY(s.txt_enter_no->text().isEmpty());

    // F3 opens and closes it from anywhere on the screen.
    Press(Qt::Key_F3);
    QVERIFY(s.frm_no->isVisible());
    Press(Qt::Key_F3);
    QVERIFY(!s.frm_no->isVisible());
    QVERIFY(!s.Unsaved_Marks());
}

void TestChampScreen::inside_the_main_window()
{
    TestDataFolder env;
    Connection conn;
    conn.open();
    Make_Competition(conn, 6);
    frmMain main;
    main.show();
    frmMain::Register_Screen("mnuTallier", [] { return new ThreeJudgeScreen(Championship_Kind()); });
    auto *s = qobject_cast<ThreeJudgeScreen *>(main.Open_Screen("mnuTallier"));
    QVERIFY(s);
    // The maximised frame adds the screen's caption in brackets behind it.
    QVERIFY2(main.windowTitle().startsWith("Strathmark 2017 - Tallier Championship"), qPrintable(main.windowTitle()));
    Select_Event(*s, "Adult Scottish Championship");
    Go(*s, 1, First_Judge_Column);
    Type("77");
    Press(Qt::Key_Return);

    // Closing asks even with auto-save on; a "Yes" saves and tallies first.
    Opt_Auto_Save = true;
    Dialogs::clearRecords();
    Dialogs::queueAnswer(vbYes);
    main.mdiArea()->closeAllSubWindows();
    QCOMPARE(Dialogs::texts(), QStringList{"Do you want to save your changes? "});
    QCOMPARE(conn.scalar("SELECT points_awarded1 FROM judges_results WHERE competitor_id = 101 AND dance_id = 1").toInt(), 77);
    QCOMPARE(Fixture::Count(conn, "overall_dance_results", "group_id = 'C1' AND dance_id = 1"), 1);
    QTRY_VERIFY(main.mdiArea()->subWindowList().isEmpty());
}

void TestChampScreen::bursts_of_marks_land_on_their_dancers_data()
{
    QTest::addColumn<QStringList>("bursts");   // the marks of each dance, judge by judge, Enter after each
    QTest::addColumn<QString>("refused");      // a mark the database refuses once ("" none)
    QTest::addColumn<double>("pause");         // the scale of the tally's pause
    const QStringList four = {"90 78 85 80 75 65 60 91 79 86 81 76 66 61 92 77 84 79 74 64 59",
                              "10 20 30 40 50 60 70 11 21 31 41 51 61 71 12 22 32 42 52 62 72",
                              "88 d 86 85 84 83 82 87 86 D 84 83 82 81 86 85 84 83 82 81 80",
                              "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21"};
    QTest::newRow("four dances") << four << "" << 0.0;
    QTest::newRow("with the real pause") << four << "" << 0.05;
    QTest::newRow("a refused save, then the retry") << four << "41" << 0.0;
    QTest::newRow("refused at the first mark") << four << "90" << 0.05;
    QTest::newRow("refused at the Tallier") << four << "19" << 0.0;
}

// Each dance's marks are queued before the event loop runs, as a practised
// tallier types ahead of the screen; every key goes to whatever has the focus
// when its turn comes, and Enter after the last dancer goes to the next judge.
void TestChampScreen::bursts_of_marks_land_on_their_dancers()
{
    QFETCH(QStringList, bursts);
    QFETCH(QString, refused);
    QFETCH(double, pause);
    TestDataFolder env;
    Connection conn;
    conn.open();
    Make_Competition(conn, 7);
    Opt_Auto_Save = true;
    Set_Pause_Scale(pause);
    if (!refused.isEmpty())
        conn.execute("CREATE TRIGGER refuse BEFORE UPDATE ON judges_results WHEN " + refused
                     + " IN (NEW.points_awarded1, NEW.points_awarded2, NEW.points_awarded3) "
                       "BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END");
    ThreeJudgeScreen s(Championship_Kind());
    Open(s);
    Select_Event(s, "Adult Scottish Championship");
    const QStringList buttons = {"Cmd_Fling", "Cmd_Swords", "Cmd_ST", "Cmd_Reel"};
    auto shown = [&s] {
        QStringList marks;
        for (int col = First_Judge_Column; col <= Last_Judge_Column; ++col)
            for (int r = 1; r < s.MSFlexGrid1->rowCount(); ++r)
                marks << s.MSFlexGrid1->Text(r, col);
        return marks.join(' ').toUpper();
    };
    for (int d = 0; d < bursts.size(); ++d) {
        Go(s, 1, First_Judge_Column);
        Queue_Keys(QString(bursts[d]).replace(' ', '\n') + "\n");
        QCoreApplication::processEvents();
        const QString upper = QString(bursts[d]).replace('d', 'D');
        QCOMPARE(shown(), upper);
        QPushButton *next = d + 1 < bursts.size() ? s.findChild<QPushButton *>(buttons[d + 1]) : s.Cmd_Tally;
        Click(next);
        if (bursts[d].split(' ').contains(refused)) {
            // Every typed mark stays, still unsaved; the retry stores them all.
            QCOMPARE(Dialogs::lastRecord().text, Mark_Update_Message);
            QCOMPARE(shown(), upper);
            QVERIFY(s.Unsaved_Marks());
            conn.execute("DROP TRIGGER refuse");
            Click(next);
        }
        QVERIFY(!s.Unsaved_Marks());
        QStringList stored;
        for (int j = 1; j <= 3; ++j) {
            RowSet rs = conn.query(QString("SELECT points_awarded%1 AS m FROM judges_results WHERE group_id = 'C1' AND "
                                           "dance_id = %2 ORDER BY competitor_id").arg(j).arg(d + 1));
            for (; !rs.eof(); rs.next())
                stored << (rs.text("m") == "-1" ? "D" : rs.text("m"));
        }
        QCOMPARE(stored.join(' '), upper);
    }
    QCOMPARE(Fixture::Count(conn, "highland_results", "group_id = 'C1' AND placing = 1"), 1);
    Set_Pause_Scale(0.0);
}

QTEST_MAIN(TestChampScreen)
#include "test_champ_screen.moc"

