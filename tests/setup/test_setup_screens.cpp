// The set-up grid screens driven by keys and clicks: competitions, events,
// dances and judges.
#include "setup_fill.h"
#include "setup/FrmEvents.h"
#include "setup/frmJudges.h"
#include "setup/frmdances.h"
#include "setup/frmgroups.h"
#include "support/screen_fixture.h"
#include "support/screen_script.h"
#include "support/test_env.h"

#include <QLineEdit>
#include <QListWidget>

using Fixture::Count;

class TestSetupScreens : public QObject, protected Screen_Fixture<GridScreen>
{
    Q_OBJECT
private slots:
    void init() { start(); }
    void cleanup() { stop(); }

    void typed_data();
    void typed();
    void event_delete_cascade();
    void competition_delete_cascade();
    void dance_delete_cascade();
    void judge_delete();

private:
    GridScreen *open(const QString &form);
    // Rows of each table where gone holds: none after the delete; where kept holds: as many as before.
    void cascade(const QStringList &tables, const QString &gone, const QString &kept, const QString &script);
};

GridScreen *TestSetupScreens::open(const QString &form)
{
    if (form == "FrmEvents") m_screen.reset(new FrmEvents);
    if (form == "frmgroups") m_screen.reset(new frmgroups);
    if (form == "frmdances") m_screen.reset(new frmdances);
    if (form == "frmJudges") m_screen.reset(new frmJudges);
    return m_screen.get();
}

void TestSetupScreens::typed_data()
{
    QTest::addColumn<QString>("given");   // events, titled events, competitions, judges: what is stored first
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expect");
    const QString required = "All fields are required! If you wish to delete this record, enter a value first";
    const QString event = "SELECT competition_group_id || category || no_prizes || no_overall_prizes || "
                          "ifnull(orderby,'null') || split_ages FROM age_groups WHERE age_group IS ";
    const QString category = "You must select an existing category. (Use 'F2' for list)";

    // Competitions
    const QString braemar = "@1,1|>Braemar\t|>6/9/2026\t|>Ann O'Neil\t|>Sec\t|>Park\t|>Braemar\t|>Main St\t|>R1\t|*CmdSave";
    QTest::newRow("FrmEvents: a new competition typed and saved") << "" << braemar
        << "kind=timed;box=Changes Saved!;title=Confirmation;dirty=0;competition=1 Braemar;cell 1,0=1;"
           "sql SELECT competition_organiser || ifnull(registration_id, ' no login') FROM competitions=Ann O'Neil no login;"
           "cell 1,8=;sql SELECT count(*) FROM categories=4;sql SELECT count(*) FROM category_dances=12;cell 0,8=Reg ID";
    QTest::newRow("FrmEvents: a saved row keeps its login, an emptied cell is NULL") << "" << braemar + "|@1,8|>R1\t|@1,3|>{Del}\t|*CmdSave"
        << "sql SELECT registration_id || ifnull(competition_organiser, ' no organiser') FROM competitions=R1 no organiser";
    QTest::newRow("FrmEvents: a new row with its name only adds no row") << "competitions" << "*CmdAdd|>Cowal\t|>\n" << "rows=5;at=4,1";
    QTest::newRow("FrmEvents: listed by name") << "competitions" << "" << "cell 1,1=Aboyne;cell 2,1=Cowal;cell 3,1=Lonach";
    for (int col : {1, 2})
        QTest::addRow("FrmEvents: column %d is required", col) << "competitions" << QString("@1,%1|>{Del}\t").arg(col)
            << "editor=;box=Name and date are required! If you wish to delete this record, enter a value first;title=Validation Error";
    QTest::newRow("FrmEvents: other columns take anything") << "competitions" << "@1,5|>{Del}\t" << "editor=closed;boxes=;dirty=1";
    const QString copy = "@3,1|!CmdCopy|!TxtCompname|>Copy|!TxtCompDate|>2027|";
    QTest::newRow("FrmEvents: copy without dancers") << "events" << copy + "!cmdcreate"
        << "shown FrmCopy1=0;competition=1 Test Games;sql SELECT count(*) FROM age_groups JOIN competitions USING (competition_id) "
           "WHERE competition_name IS 'Copy'=2;sql SELECT count(*) FROM competitors=2";
    QTest::newRow("FrmEvents: copy with dancers") << "events" << copy + "!LstCopyComp:Yes!|!cmdcreate"
        << "sql SELECT count(*) FROM competitors=4;sql SELECT count(*) FROM competitor_groups=6;sql SELECT count(*) FROM judges=1";
    QTest::newRow("FrmEvents: Cancel only hides the copy") << "events" << "@3,1|!CmdCopy|!CmdCancel"
        << "shown FrmCopy1=0;sql SELECT count(*) FROM competitions=3";
    QTest::newRow("FrmEvents: copy without a date") << "events" << "@3,1|!CmdCopy|!TxtCompname|>Half|!cmdcreate"
        << "box=Name and date fields are required!;title=Validation Error;shown FrmCopy1=1;sql SELECT count(*) FROM competitions=3";
    QTest::newRow("FrmEvents: a copy that fails stays half made") << "events" << "$UPDATE age_groups SET no_prizes = NULL|" + copy + "!cmdcreate"
        << "box=There was an error copying this competition!;title=Data Error;sql SELECT count(*) FROM competitions=4;"
           "sql SELECT count(*) FROM categories=16";

    // Events
    QTest::newRow("frmgroups: defaults of the first row") << "" << "" << "rows=3;dirty=0;row 2=,,,,6,N,N,,,1,A,,Y";
    const QString two = "@2,1|>Under 8's\t|@2,2|>1a\t|@2,3|>h\t|@2,4|>3\t|*CmdAdd";
    QTest::newRow("frmgroups: with nothing stored, CmdAdd gives the first row 6 and 6") << "" << two
        << "row 2=,Under 8's,1a,h,6,N,N,,,6,A,,Y;row 3=1,,,,6,N,N,,,1,A,,Y;editor=;at=3,1";
    QTest::newRow("frmgroups: rows typed and saved") << "" << two + "|>Under 10\t|@3,2|>2B\t|@3,6|>\n|@3,3|>pri\t|@3,11|>05\t|*CmdSave"
        << "box=Changes Saved!;dirty=0;sql " + event + "'Under 8''s'=1AH66nullN;sql " + event + "'Under 10'=2BPRI615N";
    QTest::newRow("frmgroups: with an event stored, the usual defaults") << "events" << "*CmdAdd" << "cell 4,9=1;cell 4,4=6";
    for (const QStringList &c : {QStringList{"1", "", required, "validation Error"},
                                 {"4", "0", "Value must be greater than 1!", "Validation Error"},
                                 {"4", "six", "Invalid Number! Re-enter or Hit <Escape> to exit", "Validation Error"},
                                 {"9", "7", "Number Overall Prizes must be between 1 and 6", "Validation Error"},
                                 {"9", "", "Invalid Number! Re-enter or Hit <Escape> to exit", "Validation Error"},
                                 {"11", "1.5", "Group Order must be a numberic value", "Strathmark 2017"}})
        QTest::addRow("frmgroups: column %s '%s'", qPrintable(c[0]), qPrintable(c[1])) << "events"
            << QString("@2,%1|>{Del}%2\t").arg(c[0], c[1]) << QString("editor=%1;nboxes=1;box=%2;title=%3").arg(c[1], c[2], c[3]);
    QTest::newRow("frmgroups: accepted texts") << "events" << "@2,4|>1\t|@2,9|>6\t|@2,11|>05\t|@2,8|>o\t|@2,3|>ps\t|@2,7|>{Del}\t"
        << "editor=closed;boxes=;sql SELECT count(*) FROM age_groups WHERE category IS 'PRI'=2";
    QTest::newRow("frmgroups: F2 off column 3 is the plain editor") << "events" << "@2,1|>{F2}" << "editor=Under 10;shown frmCat=0";
    QTest::newRow("frmgroups: F2 on column 3 lists the categories") << "events" << "@2,3|>{F2}"
        << "shown frmCat=1;focus=LstCatLookup;items LstCatLookup=Primary Dances,Premiership,Highland,Championship";
    QTest::newRow("frmgroups: a category chosen lands in the editor") << "events" << "@2,3|>{F2}|!LstCatLookup:Premiership|>\t"
        << "shown frmCat=0;cell 2,3=PS;editor=closed;at=2,4";
    QTest::newRow("frmgroups: F2 in the editor, the text goes in unchecked, the save refuses it") << "events" << "@2,3|>x|>{F2}|!txtEdit|*CmdSave"
        << "boxes=" + category + " / Changes Saved!;sql SELECT group_concat(category) FROM age_groups=PRI,PRI";
    const QString dup = "*CmdAdd|>Open\t|@4,2|>1a\t|@4,3|>C\t|*CmdSave";
    QTest::newRow("frmgroups: codes differing in case are duplicates") << "events" << dup
        << "boxes=You have entered a duplicate group code!. Please re-enter unique ones.;title=Validation Error;"
           "sql SELECT count(*) FROM age_groups=2;rows=5;dirty=1";
    QTest::newRow("frmgroups: a unique code saves") << "events" << dup + "|@4,2|>1c\t|*CmdSave"
        << "box=Changes Saved!;sql SELECT count(*) FROM age_groups WHERE competition_group_id IS '1C'=1";
    QTest::newRow("frmgroups: a save check stops the loop") << "titled events"
        << "@2,7|>scottish\t|@2,11|>{Del}\t|@2,8|>c\t|@4,1|>C Open Renamed\t|*CmdSave"
        << "boxes=" + category + " / Changes Saved!;dirty=0;cell 4,1=A Under 8;"
           "sql SELECT championship_title || championship_type || ifnull(orderby, 'null') FROM age_groups WHERE competition_group_id IS '1A'=SCOTTISHCnull;"
           "sql SELECT count(*) FROM age_groups WHERE age_group IS 'C Open'=1";
    QTest::newRow("frmgroups: delete with an unsaved row keeps the event") << "events" << "*CmdAdd|>\x1b|@3,1|*cmdDel"
        << "sql SELECT count(*) FROM overall_dance_results=0;sql SELECT count(*) FROM age_groups=2";

    // Dances
    QTest::newRow("frmdances: a name is required") << "" << "@3,1|>{Del}\t"
        << "editor=;box=" + required + ";title=Validation Error;rows=18;cell 17,1=Special Fling";
    QTest::newRow("frmdances: a rename, new dances with a quote") << "" << "@1,1|>Highland Fling\t|*CmdAdd|>Flora's Jig\n|>\x1b|@19,1|>Strathspey\t|*CmdSave"
        << "box=Changes Saved!;cell 18,0=18;sql SELECT group_concat(dance_id || dance) FROM dances WHERE dance_id IN (1, 18, 19)="
           "1Highland Fling,18Flora's Jig,19Strathspey";
    QTest::newRow("frmdances: standard dances are never deleted") << "events" << "@1,1|*cmdDel|@17,1|*cmdDel"
        << "boxes=;rows=18;sql SELECT count(*) FROM dances=17;sql SELECT count(*) FROM overall_dance_results=1";

    // Judges
    QTest::newRow("frmJudges: the competition's judges only") << "judges" << "" << "rows=3;row 0=Judge_id,Firstname,Surname;cell 1,1=Jean";
    QTest::newRow("frmJudges: a first name alone adds no row") << "" << "@1,1|>Mary\t|@1,2|>\n" << "rows=2;at=1,1";
    QTest::newRow("frmJudges: both names are required") << "" << "@1,1|>Mary\t|@1,2|>{Del}\t"
        << "editor=;box=" + required + ";title=Validation Error";
    const QString judges = "@1,1|>Mary\t|@1,2|>O'Hara\n|>John\t|>Smith\t|*CmdSave";
    QTest::newRow("frmJudges: judges typed and saved") << "" << judges
        << "sql SELECT group_concat(competition_id || forename || surname) FROM judges=1MaryO'Hara,1JohnSmith";
    QTest::newRow("frmJudges: a saved row takes a quote") << "" << judges + "|@2,2|>O'Neil\t|*CmdSave"
        << "sql SELECT group_concat(forename || surname) FROM judges=MaryO'Hara,JohnO'Neil";
}

void TestSetupScreens::typed()
{
    QFETCH(QString, given);
    const QString form = QString(QTest::currentDataTag()).section(':', 0, 0);
    if (given == "competitions")
        for (const char *name : {"Lonach", "Cowal", "Aboyne"})
            Fixture::Competition(*m_conn, name, "2026");
    else if (form != "FrmEvents" || !given.isEmpty()) {
        Current_Competition_Id = Fixture::Competition(*m_conn);
        Current_Competition_Name = "Test Games";
    }
    if (given == "events") {
        Fixture::Event(*m_conn, Current_Competition_Id, "1A", "Under 8", "PRI");
        Fixture::Event(*m_conn, Current_Competition_Id, "2B", "Under 10", "PRI");
        Fixture::Competitor(*m_conn, Current_Competition_Id, 101, "Ann", "Ross", {"1A"});
        Fixture::Competitor(*m_conn, Current_Competition_Id, 102, "Beth", "Moir", {"1A"});
        Fixture::Judge(*m_conn, Current_Competition_Id, "Jean", "Grant");
        Fill_Event_Rows(*m_conn, Current_Competition_Id, "1A", 1);
        Fixture::Competition(*m_conn, "Another", "2025");
        Fixture::Competition(*m_conn, "Source", "2024");
    }
    if (given == "titled events") {
        Fixture::Event(*m_conn, Current_Competition_Id, "1A", "A Under 8", "PRI");
        Fixture::Event(*m_conn, Current_Competition_Id, "2B", "B Under 10", "DNC1");   // its category has gone
        Fixture::Event(*m_conn, Current_Competition_Id, "3C", "C Open", "H");
    }
    if (given == "judges") {
        Fixture::Judge(*m_conn, Current_Competition_Id, "Jean", "Grant");
        Fixture::Judge(*m_conn, Current_Competition_Id, "John", "Smith");
        Fixture::Judge(*m_conn, Fixture::Competition(*m_conn, "Other", "x"), "Not", "Here");
    }
    GridScreen *s = open(form);
    QFETCH(QString, script);
    Run_Script(s, *m_conn, script);
    QFETCH(QString, expect);
    Check_State(s, *m_conn, expect);
}

void TestSetupScreens::cascade(const QStringList &tables, const QString &gone, const QString &kept, const QString &script)
{
    QMap<QString, int> before;
    for (const QString &t : tables) {
        QVERIFY2(Count(*m_conn, t, gone) > 0, qPrintable(t));
        before[t] = Count(*m_conn, t, kept);
    }
    Run_Script(m_screen.get(), *m_conn, script + "|?7|!cmdDel");
    QVERIFY(Dialogs::lastRecord().text.startsWith("Are you sure you want to delete "));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    for (const QString &t : tables)
        QVERIFY2(Count(*m_conn, t, gone) > 0, qPrintable(t));
    Run_Script(m_screen.get(), *m_conn, script + "|?6|!cmdDel");
    for (const QString &t : tables) {
        QVERIFY2(Count(*m_conn, t, gone) == 0, qPrintable(t));
        QVERIFY2(Count(*m_conn, t, kept) == before[t], qPrintable(t));
    }
}

void TestSetupScreens::event_delete_cascade()
{
    const short comp = Current_Competition_Id = Fixture::Competition(*m_conn);
    const short other = Fixture::Competition(*m_conn, "Other", "x");
    for (short k : {comp, other}) {
        Fixture::Event(*m_conn, k, "1A", "Under 8", "PRI");
        Fixture::Event(*m_conn, k, "2B", "Under 10", "H");
        Fixture::Competitor(*m_conn, k, 101, "Ann", "Ross", {"1A", "2B"});
        for (const char *code : {"1A", "2B"})
            Fill_Event_Rows(*m_conn, k, code, 1);
        Add_Trophy(*m_conn, k, "Cup", "1A");
    }
    open("frmgroups");
    QStringList tables;
    for (const char *t : Event_Tables)
        tables << t;
    int row = 2;
    while (m_screen->Cell(row, 2) != "1A")
        ++row;
    cascade(tables, QString("competition_id = %1 AND group_id = '1A'").arg(comp),
            QString("competition_id = %1 OR group_id = '2B'").arg(other), QString("@%1,1").arg(row));
    QCOMPARE(Count(*m_conn, "custom_reports_groups"), 1);
    // The dancer's own event columns stay.
    QCOMPARE(Count(*m_conn, "competitors", "group_id1 = '1A'"), 2);

    // The last one: captions and defaults come back, nothing left to save.
    Run_Script(m_screen.get(), *m_conn, "@2,1|!cmdDel");
    Check_State(m_screen.get(), *m_conn, "rows=3;cell 0,1=Age Group Name;cell 1,12=Fling;row 2=,,,,6,N,N,,,1,A,,Y;dirty=0;"
                                         "sql SELECT count(*) FROM age_groups WHERE competition_id IS 1=0");
}

void TestSetupScreens::competition_delete_cascade()
{
    const short a = Fixture::Competition(*m_conn, "Aboyne", "1/8");
    const short b = Fixture::Competition(*m_conn, "Braemar", "6/9");
    for (short comp : {a, b}) {
        Fixture::Event(*m_conn, comp, "1A", "Under 8", "PRI");
        Fixture::Competitor(*m_conn, comp, 101, "Ann", "Ross", {"1A"});
        Fill_Event_Rows(*m_conn, comp, "1A", 1, Fixture::Judge(*m_conn, comp, "Jean", "Grant"));
    }
    const int t1 = Add_Trophy(*m_conn, b, "Cup", "1A");
    const int t2 = Add_Trophy(*m_conn, b, "Shield", "1A");
    open("FrmEvents");
    cascade({"age_groups", "competitors", "competitor_groups", "judges", "categories", "category_dances",
             "overall_dance_results", "comp_judges_results", "dance_no_prizes", "competitions"},
            QString("competition_id = %1").arg(b), QString("competition_id = %1").arg(a), "@2,1");
    QCOMPARE(m_screen->txtEdit->text(), QString(" "));
    // Only the first trophy's details go.
    QCOMPARE(Count(*m_conn, "custom_reports"), 0);
    QCOMPARE(Count(*m_conn, "custom_reports_groups", QString("id=%1").arg(t1)), 0);
    QCOMPARE(Count(*m_conn, "custom_reports_groups", QString("id=%1").arg(t2)), 1);

    // The last row: the grid is cleared and only Name and Date come back.
    Run_Script(m_screen.get(), *m_conn, "@1,1|!cmdDel");
    Check_State(m_screen.get(), *m_conn, "rows=2;row 0=,Name,Date,,,,,,,,;cell 1,1=;dirty=0;"
                                         "sql SELECT count(*) FROM competitions=0;sql SELECT count(*) FROM categories=0");
}

void TestSetupScreens::dance_delete_cascade()
{
    m_conn->execute("INSERT INTO dances(dance) VALUES('Strathspey')");
    for (short k : {Fixture::Competition(*m_conn), Fixture::Competition(*m_conn, "Other", "x")}) {
        Fixture::Category_Dances(*m_conn, k, "PS", {18, 1});
        Fill_Event_Rows(*m_conn, k, "1A", 18);
        Fill_Event_Rows(*m_conn, k, "1A", 1);
    }
    open("frmdances");
    cascade({"dance_results", "judges_results", "judges_results_judges", "overall_dance_results", "category_dances"},
            "dance_id = 18", "dance_id = 1", "@18,1");
    // The single judge's marks and the per-dance rows stay.
    for (const char *t : {"comp_judges_results", "dance_no_prizes", "dance_no_dancers"})
        QVERIFY2(Count(*m_conn, t, "dance_id = 18") == 2, t);
    Check_State(m_screen.get(), *m_conn, "rows=18;sql SELECT count(*) FROM dances=17");
}

void TestSetupScreens::judge_delete()
{
    const short comp = Current_Competition_Id = Fixture::Competition(*m_conn);
    const int mary = Fixture::Judge(*m_conn, comp, "Mary", "Grant");
    const int john = Fixture::Judge(*m_conn, comp, "John", "Smith");
    Fill_Event_Rows(*m_conn, comp, "1A", 1, mary);
    Fill_Event_Rows(*m_conn, comp, "1A", 2, john);
    open("frmJudges");
    const QString at = m_screen->Cell(1, 1) == "Mary" ? "@1,1" : "@2,1";
    cascade({"judges", "judges_results_judges"}, QString("judge_id = %1").arg(mary), QString("judge_id = %1").arg(john), at);
    // Even a No leaves the captions in lower case; the marks stay.
    Check_State(m_screen.get(), *m_conn, "row 0=Judge_id,forename,surname;rows=2;sql SELECT count(*) FROM judges_results=2");
    Run_Script(m_screen.get(), *m_conn, "@1,1|!cmdDel");
    Check_State(m_screen.get(), *m_conn, "row 0=Judge_id,forename,surname;cell 1,1=;dirty=0;sql SELECT count(*) FROM judges=0");
}

QTEST_MAIN(TestSetupScreens)
#include "test_setup_screens.moc"
