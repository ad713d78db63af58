// The Competition mark screen driven by keys: marks typed for an event of
// four dances, the placings and overall results it shows, the refused texts,
// and the saves before a change of dance or event and at closing.
#include "screen_driver.h"
#include "support/fixtures.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "core/pause.h"

#include <QtTest>

using namespace Drive;

namespace {

const QString Question = QStringLiteral("Do you want to save your changes? ");

struct Dancer
{
    int number;
    const char *forename;
    const char *surname;
};
const Dancer Dancers[] = {{101, "Ailsa", "Grant"}, {102, "Beth", "Munro"}, {103, "Cara", "Fraser"},
                          {104, "Dana", "Ross"},   {105, "Eilidh", "Kerr"}, {106, "Fiona", "Reid"},
                          {107, "Gemma", "Shaw"},  {108, "Holly", "Watt"}};

// A split event of the category PRI: Pas de Basque (6), Pas de Basque and
// High Cuts (7), Fling (1), Swords (2); Highland is 1 and 2, National 6 and 7.
short Build_Event(Connection &c, int dancers = 8)
{
    const short comp = Fixture::Competition(c, "Braemar Juniors", "05/09/2026");
    Fixture::Event(c, comp, "J", "Juvenile 10-12", "PRI", 6, "Y");
    Fixture::Event(c, comp, "N", "Novice 8-10", "H");
    Fixture::Event(c, comp, "C", "Junior Championship", "C");
    Fixture::Event(c, comp, "P", "Premiership 12+", "PS");
    for (int i = 0; i < dancers; ++i)
        Fixture::Competitor(c, comp, Dancers[i].number, Dancers[i].forename, Dancers[i].surname, {"J"});
    Current_Competition_Id = comp;
    Current_Competition_Name = "Braemar Juniors";
    return comp;
}

// The rows of a result table as the grids show them, in any order.
QStringList Db_Rows(Connection &c, const QString &table, const QString &extra = QString())
{
    RowSet rs = c.query("SELECT o.competitor_id AS num, ifnull(o.placing,'') || ifnull(o.tie,'') AS place, "
                        "c.forename || ' ' || c.surname AS name FROM " + table
                        + " o, competitors c WHERE o.competitor_id = c.competitor_id AND "
                          "o.competition_id = c.competition_id AND o.group_id = 'J'" + extra);
    QStringList out;
    for (; !rs.eof(); rs.next())
        out << rs.text("num") + "|" + rs.text("place") + "|" + rs.text("name");
    out.sort();
    return out;
}

QStringList Sorted(QStringList l)
{
    l.sort();
    return l;
}

int Questions()
{
    return Dialogs::texts().count(Question);
}

} // namespace

class TestCompScreenMarks : public QObject
{
    Q_OBJECT
private slots:
    void marks_typed_for_four_dances_give_placings_ties_and_overall();
    void refused_texts_keep_the_editor_and_escape_keeps_the_cell();
    void auto_save_goes_on_without_asking_and_stays_when_the_save_fails();
    void event_change_always_asks_and_closing_asks_about_unsaved_marks();
    void prize_lists_and_judge_act_only_on_a_choice();
    void bursts_of_marks_land_on_their_dancers_data();
    void bursts_of_marks_land_on_their_dancers();
};

void TestCompScreenMarks::marks_typed_for_four_dances_give_placings_ties_and_overall()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build_Event(c);
    const int judge = Fixture::Judge(c, Current_Competition_Id, "Morag", "Stewart");

    FrmTallyComp s;
    s.show();
    QVERIFY(!Button(s, "CmdTally")->isEnabled());
    // Championship and Premiership events have screens of their own.
    QCOMPARE(List(s, "LstGroup")->count(), 2);
    Pick(List(s, "LstGroup"), "Juvenile 10-12");

    // Buttons named and ordered by the category, the rest hidden.
    QCOMPARE(Button(s, "Cmd2")->text() + "," + Button(s, "Cmd3")->text(), QString("Pas de Basque and High Cuts,Fling"));
    QVERIFY(!Button(s, "Cmd5")->isVisible());
    QCOMPARE(Current_Dance_Id, short(6));
    QCOMPARE(Column(Grid(s, "MSFlexGrid1"), 0),
             QStringList({"101", "102", "103", "104", "105", "106", "107", "108"}));
    QCOMPARE(Grid(s, "MSFlexGrid1")->Text(0, 1), QString("Mark"));
    QCOMPARE(Fixture::Count(c, "comp_judges_results", "group_id = 'J'"), 32);

    // The judge of the dance.
    Pick(List(s, "LstJudge"), "Morag Stewart");
    QCOMPARE(s.findChild<QLabel *>("txtJudge")->text(), QString("Morag Stewart"));
    QCOMPARE(c.scalar("SELECT judge_id FROM judges_results_judges WHERE group_id = 'J' AND dance_id = 6").toInt(), judge);
    QVERIFY(!s.Changed());


    Type_Column(s, {"90", "87.5", "87.25", "87.5", "80", "75", "70", ""});
    QVERIFY(s.Changed());
    Dialogs::queueAnswer(vbYes);
    Click(Button(s, "Cmd2"));
    QCOMPARE(Questions(), 1);
    QVERIFY(Button(s, "Cmd2")->isChecked() && !Button(s, "Cmd1")->isChecked());
    QCOMPARE(s.findChild<QLabel *>("txtJudge")->text(), QString());

    Type_Column(s, {"70", "95", "90", "85", "80", "75", "72", "60"});
    Dialogs::queueAnswer(vbYes);
    Click(Button(s, "Cmd3"));
    Type_Column(s, {"88", "85", "95", "90", "70", "65", "60", "55"});
    Dialogs::queueAnswer(vbYes);
    Click(Button(s, "Cmd4"));
    Type_Column(s, {"93", "60", "50", "92", "91", "70", "88", "65"});
    Click(Button(s, "CmdTally"));
    QCOMPARE(Questions(), 3);
    QVERIFY(!s.Changed());

    // Fractions are kept as typed and compare exactly.
    QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 103 AND dance_id = 6")
                 .toDouble(),
             87.25);
    QVERIFY(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 108 AND dance_id = 6")
                .isNull());

    // Swords (shown): 93, 92, 91, 88, 70, 65 placed.
    QCOMPARE(Rows(Grid(s, "GrdODR")),
             QStringList({"101|1|Ailsa Grant", "104|2|Dana Ross", "105|3|Eilidh Kerr", "107|4|Gemma Shaw",
                          "106|5|Fiona Reid", "108|6|Holly Watt"}));
    QCOMPARE(s.findChild<QGroupBox *>("Frame4")->title(), QString("Swords Result"));
    // Overall: 345, 344, 281, 281, 198, 120 - the tie shares third.
    QCOMPARE(Column(Grid(s, "GrdOR"), 1), QStringList({"1", "2", "3=", "3=", "5", "6"}));
    QCOMPARE(Sorted(Rows(Grid(s, "GrdOR"))),
             QStringList({"101|1|Ailsa Grant", "102|3=|Beth Munro", "103|3=|Cara Fraser", "104|2|Dana Ross",
                          "105|5|Eilidh Kerr", "106|6|Fiona Reid"}));
    // Highland (Fling, Swords): a tie for sixth keeps both.
    QCOMPARE(Column(Grid(s, "GrdHR"), 1), QStringList({"1", "2", "3", "4", "5", "6=", "6="}));
    QCOMPARE(Sorted(Column(Grid(s, "GrdHR"), 0).mid(5)), QStringList({"102", "107"}));
    // National (the two Pas de Basque dances).
    QCOMPARE(Column(Grid(s, "GrdNR"), 0), QStringList({"102", "104", "103", "101", "105", "106"}));

    // The grids show what the tables hold.
    QCOMPARE(Sorted(Rows(Grid(s, "GrdOR"))), Db_Rows(c, "overall_results"));
    QCOMPARE(Sorted(Rows(Grid(s, "GrdHR"))), Db_Rows(c, "highland_results"));
    QCOMPARE(Sorted(Rows(Grid(s, "GrdNR"))), Db_Rows(c, "national_results"));
    QCOMPARE(Sorted(Rows(Grid(s, "GrdODR"))), Db_Rows(c, "overall_dance_results", " AND o.dance_id = 2"));

    // Back on the first dance: 87.5 ties 87.5 and beats 87.25; 70 is seventh, unplaced.
    Click(Button(s, "Cmd1"));
    QCOMPARE(Questions(), 3);
    QCOMPARE(Grid(s, "MSFlexGrid1")->Text(2, 1), QString("87.5"));
    QCOMPARE(Rows(Grid(s, "GrdODR")).first(), QString("101|1|Ailsa Grant"));
    QCOMPARE(Sorted(Rows(Grid(s, "GrdODR"))),
             QStringList({"101|1|Ailsa Grant", "102|2=|Beth Munro", "103|4|Cara Fraser", "104|2=|Dana Ross",
                          "105|5|Eilidh Kerr", "106|6|Fiona Reid"}));
    QCOMPARE(s.findChild<QLabel *>("txtJudge")->text(), QString("Morag Stewart"));
}

void TestCompScreenMarks::refused_texts_keep_the_editor_and_escape_keeps_the_cell()
{
    TestDataFolder env;
    Connection c;
    c.open();
    const short comp = Build_Event(c, 6);
    c.execute(QString("INSERT INTO comp_judges_results(competition_id, group_id, dance_id, competitor_id, "
                      "points_awarded1) VALUES(%1, 'J', 6, 102, 80)").arg(comp));
    FrmTallyComp s;
    s.show();
    Pick(List(s, "LstGroup"), "Juvenile 10-12");
    FlexGrid *grid = Grid(s, "MSFlexGrid1");
    QLineEdit *edit = Editor(s);
    QCOMPARE(s.Current_Row(), 1);

    Type(s, "101");
    QCOMPARE(Dialogs::lastRecord().text, QString("Nunber must be between 0 and 100! Re-enter or Hit <Escape> to exit"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    QVERIFY(edit->isVisible());
    QCOMPARE(edit->selectedText(), QString("101"));
    Key(edit, Qt::Key_Escape);
    QVERIFY(!edit->isVisible());
    QCOMPARE(grid->Text(1, 1), QString());
    QVERIFY(s.Changed());

    for (const char *bad : {"abc", "40000"}) {
        Type(s, bad);
        QCOMPARE(Dialogs::lastRecord().text, QString("Invalid Number! Re-enter or Hit <Escape> to exit"));
        QVERIFY(edit->isVisible());
        // Leaving by Tab or Down is refused as well.
        Key(edit, Qt::Key_Tab);
        Key(edit, Qt::Key_Down);
        QVERIFY(edit->isVisible());
        QCOMPARE(s.Current_Row(), 1);
        Key(edit, Qt::Key_Escape);
        QCOMPARE(grid->Text(1, 1), QString());
    }

    // Esc after typing over a stored mark: the old mark stays.
    Key(grid, Qt::Key_Down);
    QCOMPARE(grid->Text(2, 1), QString("80"));
    Type(s, "9", 0);
    QCOMPARE(edit->text(), QString("9"));
    Key(edit, Qt::Key_Escape);
    QCOMPARE(grid->Text(2, 1), QString("80"));

    // Tab goes down the marks, Shift+Tab back up; Enter on the last row stays.
    Type(s, "64", Qt::Key_Tab);
    QCOMPARE(s.Current_Row(), 3);
    Key(grid, Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(s.Current_Row(), 2);
    QCOMPARE(grid->Text(2, 1), QString("64"));
    for (int i = 0; i < 6; ++i)
        Key(grid, Qt::Key_Return);
    QCOMPARE(s.Current_Row(), 6);
    QCOMPARE(grid->rowCount(), 7);
    Type(s, "87.5");
    QCOMPARE(grid->rowCount(), 7);
    QCOMPARE(grid->Text(6, 1), QString("87.5"));
    // The number column takes no cursor and no typing.
    Key(grid, Qt::Key_Left);
    QCOMPARE(s.Current_Col(), 1);

    Click(Button(s, "CmdTally"));
    QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 102 AND dance_id = 6")
                 .toInt(), 64);
    QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 106 AND dance_id = 6")
                 .toDouble(), 87.5);
    QVERIFY(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 101 AND dance_id = 6")
                .isNull());
    QCOMPARE(Rows(Grid(s, "GrdODR")), QStringList({"106|1|Fiona Reid", "102|2|Beth Munro"}));
}

void TestCompScreenMarks::auto_save_goes_on_without_asking_and_stays_when_the_save_fails()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build_Event(c, 6);
    Opt_Auto_Save = true;
    FrmTallyComp s;
    s.show();
    Pick(List(s, "LstGroup"), "Juvenile 10-12");
    QVERIFY(s.findChild<QLabel *>("img_save_on")->isVisible());
    QVERIFY(!s.findChild<QLabel *>("img_save_off")->isVisible());
    QVERIFY(s.findChild<QLabel *>("img_write_off")->isVisible());

    Type(s, "77");
    Click(Button(s, "Cmd2"));
    QCOMPARE(Questions(), 0);
    QVERIFY(Button(s, "Cmd2")->isChecked());
    QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 101 AND dance_id = 6")
                 .toInt(), 77);
    // Create File asks, even with auto-save on, saves and leaves the compare file to its own screen.
    Type(s, "78");
    Dialogs::queueAnswer(vbYes);
    Click(Button(s, "CmdPrepare"));
    QCOMPARE(Dialogs::texts(), QStringList{Question});
    QVERIFY(QFileInfo(env.file("Compare/Juvenile 10-12.cmp")).size() > 0);
    Dialogs::clearRecords();

    // The database refuses the mark: the box, and the screen stays on its dance.
    c.execute("CREATE TRIGGER refuse_66 BEFORE UPDATE ON comp_judges_results WHEN NEW.points_awarded1 = 66 "
              "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    Type(s, "66");
    Click(Button(s, "Cmd3"));
    QCOMPARE(Questions(), 0);
    QCOMPARE(Dialogs::lastRecord().text, QString("There was an error doing the update!"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    QVERIFY(Button(s, "Cmd2")->isChecked());
    QVERIFY(!Button(s, "Cmd3")->isChecked());
    QCOMPARE(Current_Dance_Id, short(7));
    QCOMPARE(s.findChild<QGroupBox *>("Frame5")->title(), QString("Pas de Basque and High Cuts"));
    // The refused mark stays on screen, unsaved.
    QCOMPARE(Grid(s, "MSFlexGrid1")->Text(2, 1), QString("66"));
    QVERIFY(s.Changed());

    // A tally that fails (a 22nd dancer in a tie) stays too, with its own box.
    Dialogs::clearRecords();
    for (int n = 201; n <= 216; ++n)
        Fixture::Competitor(c, Current_Competition_Id, n, "Tied", QString::number(n), {"J"});
    Dialogs::queueAnswer(vbNo);
    Pick(List(s, "LstGroup"), "Novice 8-10");
    Pick(List(s, "LstGroup"), "Juvenile 10-12");
    c.execute("UPDATE comp_judges_results SET points_awarded1 = 80 WHERE dance_id = 6 AND competitor_id <> 101");
    Click(Button(s, "Cmd1"));
    QCOMPARE(Grid(s, "MSFlexGrid1")->rowCount(), 23);
    Type(s, "80");
    Click(Button(s, "Cmd2"));
    QCOMPARE(Dialogs::lastRecord().text, QString("Err2: There was an error while tallying! Please try again!"));
    QCOMPARE(Dialogs::lastRecord().style, int(vbExclamation));
    QVERIFY(Button(s, "Cmd1")->isChecked());
    QCOMPARE(Current_Dance_Id, short(6));
}

void TestCompScreenMarks::event_change_always_asks_and_closing_asks_about_unsaved_marks()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build_Event(c, 6);
    Opt_Auto_Save = true;
    {
        FrmTallyComp s;
        s.show();
        Pick(List(s, "LstGroup"), "Juvenile 10-12");
        Type(s, "91");
        Dialogs::queueAnswer(vbYes);
        Pick(List(s, "LstGroup"), "Novice 8-10");
        QCOMPARE(Questions(), 1);
        QCOMPARE(Dialogs::lastRecord().title, QString("Save Changes Confirmation"));
        QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 101 AND "
                          "dance_id = 6").toInt(), 91);
        // The new event has no dancers: nothing to mark.
        QVERIFY(!Grid(s, "MSFlexGrid1")->isEnabled());
        QVERIFY(!Button(s, "CmdTally")->isEnabled());
        QVERIFY(s.findChild<QListWidget *>("lst_filter")->isEnabled());

        // Answered No: the event changes and the mark is not written.
        Pick(List(s, "LstGroup"), "Juvenile 10-12");
        Type(s, "55");
        Dialogs::queueAnswer(vbNo);
        Pick(List(s, "LstGroup"), "Novice 8-10");
        QCOMPARE(Questions(), 2);
        QCOMPARE(List(s, "LstGroup")->currentItem()->text(), QString("Novice 8-10"));
        QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 101 AND "
                          "dance_id = 6").toInt(), 91);
    }

    // Closing with unsaved marks: No closes without writing; Yes with a
    // failed save keeps the screen open.
    Dialogs::clearRecords();
    auto *s = new FrmTallyComp;
    s->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<FrmTallyComp> alive(s);
    s->show();
    Pick(List(*s, "LstGroup"), "Juvenile 10-12");
    c.execute("CREATE TRIGGER refuse_66 BEFORE UPDATE ON comp_judges_results WHEN NEW.points_awarded1 = 66 "
              "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    Type(*s, "66");
    Dialogs::queueAnswer(vbYes);
    s->close();
    Settle();
    QVERIFY(alive);
    QVERIFY(s->isVisible());
    QCOMPARE(Dialogs::texts(), QStringList({Question, "There was an error doing the update!"}));
    Type(*s, "44");
    Dialogs::queueAnswer(vbNo);
    Key(s, Qt::Key_Escape);
    QTRY_VERIFY(!alive);
    QCOMPARE(Questions(), 2);
    QCOMPARE(c.scalar("SELECT points_awarded1 FROM comp_judges_results WHERE competitor_id = 102 AND dance_id = 6")
                 .isNull(), true);
}

void TestCompScreenMarks::prize_lists_and_judge_act_only_on_a_choice()
{
    TestDataFolder env;
    Connection c;
    c.open();
    Build_Event(c, 8);
    c.execute("UPDATE age_groups SET no_prizes = 20 WHERE competition_group_id = 'J'");
    Fixture::Judge(c, Current_Competition_Id, "Morag", "Stewart");
    Fixture::Judge(c, Current_Competition_Id, "Alan", "Boyd");
    FrmTallyComp s;
    s.show();
    QApplication::setActiveWindow(&s);
    // A list that takes the focus (by Tab) picks nothing; keys pick as a click does.
    List(s, "LstGroup")->setFocus(Qt::TabFocusReason);
    Settle();
    QVERIFY(Current_Group_Id.isEmpty());
    Pick(List(s, "LstGroup"), "Juvenile 10-12");
    QListWidget *prizes = List(s, "LstNoPrizes");
    QCOMPARE(prizes->count(), 16);
    QVERIFY(prizes->selectedItems().isEmpty());   // twenty prizes: no entry shows it
    prizes->setFocus(Qt::TabFocusReason);
    Key(List(s, "LstJudge"), Qt::Key_Down);
    QCOMPARE(Fixture::Count(c, "judges_results_judges") + Fixture::Count(c, "dance_no_prizes"), 1);
    QVERIFY(!s.findChild<QLabel *>("txtJudge")->text().isEmpty());
    Type_Column(s, {"90", "89", "88", "87", "86", "85", "84", "83"});
    Click(Button(s, "CmdTally"));
    QCOMPARE(Grid(s, "GrdODR")->rowCount(), 9);

    Pick(prizes, "8");
    QCOMPARE(s.No_Prizes, short(8));
    Click(Button(s, "CmdTally"));
    QCOMPARE(Column(Grid(s, "GrdODR"), 1), QStringList({"1", "2", "3", "4", "5", "6", "7", "8"}));
    QCOMPARE(c.scalar("SELECT sum(points) FROM overall_dance_results WHERE dance_id = 6 AND placing > 6").toInt(), 0);

    Pick(prizes, "16");
    QCOMPARE(s.No_Prizes, short(0));
    QCOMPARE(c.scalar("SELECT no_prizes FROM dance_no_prizes WHERE group_id = 'J' AND dance_id = 6").toInt(), 0);
    QVERIFY(s.Changed());
    Click(Button(s, "CmdTally"));
    QCOMPARE(Grid(s, "GrdODR")->rowCount(), 1);
    QCOMPARE(Fixture::Count(c, "overall_dance_results", "dance_id = 6"), 0);
}

void TestCompScreenMarks::bursts_of_marks_land_on_their_dancers_data()
{
    QTest::addColumn<QStringList>("bursts");   // the marks of each dance, typed with Enter after each
    QTest::addColumn<QString>("refused");      // a mark the database refuses once ("" none)
    QTest::addColumn<double>("pause");         // the scale of the tally's pause
    const QStringList four = {"11.5 22 33.25 44 55.75 66 77 88", "90 80 70 60 50 40 30 20",
                              "1 2 3 4 5 6 7 8", "100 99.5 0 98 97 96 95 94"};
    QTest::newRow("four dances") << four << "" << 0.0;
    QTest::newRow("with the real pause") << four << "" << 0.05;
    QTest::newRow("a gap and a changed mark") << QStringList{"11.5 22", "90 80 70 60 50 40 30 20"} << "" << 0.0;
    QTest::newRow("a refused save, then the retry") << four << "60" << 0.0;
    QTest::newRow("refused at the last dancer") << four << "8" << 0.05;
}

// Each burst is queued before the event loop runs, as a practised tallier
// types ahead of the screen; every key goes to whatever has the focus when
// its turn comes.
void TestCompScreenMarks::bursts_of_marks_land_on_their_dancers()
{
    QFETCH(QStringList, bursts);
    QFETCH(QString, refused);
    QFETCH(double, pause);
    TestDataFolder env;
    Connection c;
    c.open();
    Build_Event(c, 8);
    Opt_Auto_Save = true;
    Set_Pause_Scale(pause);
    if (!refused.isEmpty())
        c.execute("CREATE TRIGGER refuse BEFORE UPDATE ON comp_judges_results WHEN NEW.points_awarded1 = " + refused
                  + " BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END");
    FrmTallyComp s;
    s.show();
    QApplication::setActiveWindow(&s);
    Pick(List(s, "LstGroup"), "Juvenile 10-12");
    const int dances[] = {6, 7, 1, 2};
    QStringList typed;
    for (int d = 0; d < bursts.size(); ++d) {
        Go(s, 1, 1);
        Queue_Keys(QString(bursts[d]).replace(' ', '\n') + "\n");
        QCoreApplication::processEvents();
        Settle();
        typed << QString("%1:%2").arg(dances[d]).arg(bursts[d]);
        QCOMPARE(Column(Grid(s, "MSFlexGrid1"), 1).join(' ').trimmed(), bursts[d]);
        const bool refusedHere = bursts[d].split(' ').contains(refused);
        Click(Button(s, d + 1 < bursts.size() ? QString("Cmd%1").arg(d + 2) : QString("CmdTally")));
        if (refusedHere) {
            // Every typed mark stays, still unsaved; the retry stores them all.
            QCOMPARE(Dialogs::lastRecord().text, QString("There was an error doing the update!"));
            QCOMPARE(Column(Grid(s, "MSFlexGrid1"), 1).join(' ').trimmed(), bursts[d]);
            QVERIFY(s.Changed());
            c.execute("DROP TRIGGER refuse");
            Click(Button(s, d + 1 < bursts.size() ? QString("Cmd%1").arg(d + 2) : QString("CmdTally")));
        }
        QVERIFY(!s.Changed());
    }
    QStringList stored;
    for (int d = 0; d < bursts.size(); ++d) {
        RowSet rs = c.query(QString("SELECT points_awarded1 FROM comp_judges_results WHERE group_id = 'J' AND "
                                    "dance_id = %1 ORDER BY competitor_id").arg(dances[d]));
        QStringList marks;
        for (; !rs.eof(); rs.next())
            marks << rs.text("points_awarded1");
        stored << QString("%1:%2").arg(dances[d]).arg(marks.join(' ').trimmed());
    }
    QCOMPARE(stored, typed);
    QCOMPARE(Fixture::Count(c, "overall_dance_results", "group_id = 'J' AND placing = 1"), bursts.size());
    Set_Pause_Scale(0.0);
}

QTEST_MAIN(TestCompScreenMarks)
#include "test_compscreen_marks.moc"
