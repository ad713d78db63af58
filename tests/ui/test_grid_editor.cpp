// The grid editor driven by keys, on a small screen built from it.
#include "sample_grid.h"
#include "support/fixtures.h"
#include "support/screen_fixture.h"
#include "support/screen_script.h"
#include "support/test_env.h"
#include "core/dialogs.h"
#include "ui/grid/flex_grid.h"

#include <QScrollBar>
#include <QtTest>

class TestGridEditor : public QObject, protected Screen_Fixture<frmSample>
{
    Q_OBJECT
private slots:
    void init() { start(); }
    void cleanup() { stop(); }

    void keys_data();
    void keys();
    void scrolling_with_the_editor_open_validates();
    void two_caption_rows_keep_rows_and_records_in_step();

private:
    void open(int competitions);
};

void TestGridEditor::open(int competitions)
{
    for (int i = 1; i <= competitions; ++i)
        m_conn->execute(QString("INSERT INTO competitions(competition_name, competition_date, competition_organiser) "
                                "VALUES ('Comp %1','d%1','org %1')").arg(i));
    m_screen = std::make_unique<frmSample>();
}

void TestGridEditor::keys_data()
{
    QTest::addColumn<int>("competitions");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expect");   // key=value;...
    const QString required = "Name and date are required!";
    const QString names = "sql SELECT group_concat(ifnull(competition_name, 'NULL')) FROM competitions=";
    const QString orgs = "sql SELECT group_concat(ifnull(competition_organiser, 'NULL')) FROM competitions=";
    QTest::newRow("space does nothing") << 3 << "@2,1|>{Space}" << "editor=closed;dirty=0";
    QTest::newRow("a letter opens the editor over the cell") << 3 << "@2,1|>q"
        << "editor=q;caret=1;selected=;dirty=1;focus=editor;over=1;cell 2,1=Comp 2";
    QTest::newRow("Enter commits") << 3 << "@2,1|>qrs\n" << "cell 2,1=qrs;editor=closed";
    QTest::newRow("Delete then Esc keeps the cell and the dirty flag") << 2 << "@1,2|>{Del}|>\x1b"
        << "editor=closed;open=1;focus=grid;cell 1,2=d1;dirty=1;boxes=";
    QTest::newRow("F2 selects the text") << 2 << "@1,1|>{F2}" << "editor=Comp 1;selected=Comp 1;caret=0";
    QTest::newRow("Ctrl+C copies, Ctrl+V pastes") << 2 << "@1,2|>{Ctrl+C}|@2,3|>{Ctrl+V}"
        << "clipboard=d1;editor=d1;caret=2";
    QTest::newRow("Ctrl+X empties without the dirty flag") << 2 << "@2,1|>{Ctrl+X}"
        << "cell 2,1=;clipboard=Comp 2;editor=closed;dirty=0;focus=grid";
    QTest::newRow("Right with the text selected leaves") << 3 << "@1,2|>{F2}|>{Right}" << "editor=closed;at=1,3";
    QTest::newRow("Left moves the caret") << 3 << "@1,3|>x{Left}" << "editor=x;caret=0";
    QTest::newRow("Left at the start leaves") << 3 << "@1,3|>x{Left}|>{Left}" << "editor=closed;at=1,2;cell 1,3=x";
    QTest::newRow("a refused text holds the editor for every way out") << 3 << "@2,1|>{Del}|>{Left}|>{Right}|>{Up}|>{Down}|>\n|>\t"
        << "editor=;at=2,1;focus=editor;cell 2,1=Comp 2;nboxes=6;box=" + required + ";title=Validation Error";
    QTest::newRow("a corrected text leaves") << 3 << "@2,1|>{Del}|>{Up}|>Z|>{Up}" << "at=1,1;cell 2,1=Z";
    QTest::newRow("Up on the first row stays") << 3 << "@1,1|>{F2}|>{Up}" << "editor=closed;at=1,1";
    QTest::newRow("Down moves down") << 3 << "@1,1|>{F2}|>{Down}" << "at=2,1";
    QTest::newRow("a faulting check gets the handler box") << 1 << "@1,3|>boom\n"
        << "editor=boom;box=There was an error! Re-enter or Hit <Escape> to exit;title=Data Error;cell 1,3=org 1";
    QTest::newRow("Tab moves right") << 3 << "@1,1|>\t" << "at=1,2";
    QTest::newRow("Tab stops at the last column") << 3 << "@1,1|>\t|>\t|>\t" << "at=1,3";
    QTest::newRow("Shift+Tab moves left") << 3 << "@1,3|>{BackTab}" << "at=1,2";
    QTest::newRow("Enter goes to the start of the next row") << 3 << "@1,2|>\n" << "at=2,1";
    QTest::newRow("Up never reaches the captions") << 3 << "@1,2|>{Up}" << "at=1,2";
    QTest::newRow("Tab in the editor commits and moves right") << 3 << "@1,2|>{F2}|>x\t" << "editor=closed;cell 1,2=x;at=1,3;boxes=";
    QTest::newRow("Enter on the last row adds a row") << 2 << "@2,3|>\n" << "rows=4;at=3,1;editor=;cell 3,0=0;added=1";
    QTest::newRow("a new row without its date adds no row") << 2 << "@2,3|>\n|>New\t|>\t|>\n"
        << "rows=4;at=3,1;editor=closed;focus=grid";
    QTest::newRow("Down with the required cells filled adds a row") << 2 << "@2,3|>\n|>New\t|>d3{Down}" << "rows=5;added=2;editor=";
    QTest::newRow("CmdAdd on a new row goes to it") << 2 << "@2,3|>\n|>New\t|>d3{Down}|>\x1b|*CmdAdd" << "rows=5;at=4,1";
    QTest::newRow("a click on the grid is refused") << 3 << "@1,1|>{Del}|^3,2"
        << "box=" + required + ";editor=;at=1,1;focus=editor";
    QTest::newRow("a click on the grid commits") << 3 << "@1,1|>{Del}|^3,2|>A|^3,2" << "editor=closed;cell 1,1=A;at=3,2";
    QTest::newRow("a save with the editor open commits unchecked text") << 2 << "@1,1|>{Del}|*CmdSave"
        << "boxes=Changes Saved!;kind=timed;title=Confirmation;" + names + "NULL,Comp 2;editor=closed;dirty=0;cell 0,3=Org";
    QTest::newRow("new rows are written only on save") << 1 << "@1,3|>\n|>Games\t|>2026\n"
        << "sql SELECT count(*) FROM competitions=1";
    QTest::newRow("new rows written by the save") << 1 << "@1,3|>\n|>Games\t|>2026\n|*CmdSave"
        << names + "Comp 1,Games;sql SELECT competition_date FROM competitions WHERE competition_id IS 2=2026;cell 2,0=2;added=0";
    QString nine;
    for (int row = 1; row <= 9; ++row)
        nine += QString("@%1,3|>{Del}|>%2\n|").arg(row).arg(row == 5 ? "BAD" : "new");
    QTest::newRow("a check failing on row 5 of 9 keeps rows 1 to 4") << 9 << nine + "*CmdSave"
        << "boxes=Bad organiser! / Changes Saved!;" + orgs + "new,new,new,new,org 5,org 6,org 7,org 8,org 9;"
           "cell 4,3=new;cell 9,3=org 9;at=5,3;dirty=0";
    const QString oHara = "@2,1|>\n|>O'Hara\t|>d3|>\x1b|@3,2|>d3\t|@1,1|*CmdSave";
    QTest::newRow("a database failure shows the box and keeps the screen") << 2 << oHara
        << "title=Data Error;at=3,1;dirty=1;cell 3,1=O'Hara;box=There was an error updating record: O'Hara Ensure all "
           "fields are populated!\nPlease fix this record and save again, otherwise you may loose some data!\n"
           "If problems persist, try deleting this record or closing this window!";
    QTest::newRow("closing after a failed save asks and stays") << 2 << oHara + "|?6|#"
        << "open=1;nboxes=3;title=Data Error";
    const QString groups = "$INSERT INTO age_groups(competition_id, competition_group_id, age_group, category) VALUES "
                           "(2,'A','Under 8','H'), (3,'A','Under 8','H')|@2,1";
    QTest::newRow("delete answered No") << 3 << groups + "|?7|*cmdDel"
        << "box=Are you sure you want to delete Competition? \nIt will also delete its events.;title=Deletion Confirmation;rows=4";
    QTest::newRow("delete removes the record and its events") << 3 << groups + "|?6|*cmdDel|@2,3|>third\n|*CmdSave"
        << "rows=3;cell 2,1=Comp 3;sql SELECT count(*) FROM competitions=2;sql SELECT count(*) FROM age_groups=1;"
            + orgs + "org 1,third";
    QTest::newRow("delete with an unsaved row keeps the record") << 2 << "@2,2|>\n|>\x1b|@1,1|*cmdDel"
        << "rows=3;sql SELECT count(*) FROM competitions=2";
    QTest::newRow("deleting the only row leaves captions, closing asks no more") << 1 << "@1,2|>{F2}|>\x1b|*cmdDel|#"
        << "rows=2;cell 0,1=Name;cell 1,1=;nboxes=1;open=0;sql SELECT count(*) FROM competitions=0";
    QTest::newRow("closing unchanged asks nothing") << 2 << "#" << "open=0;boxes=";
    QTest::newRow("Esc closes the editor, then the screen after asking") << 2 << "@1,1|>Changed|>\x1b|?7|>\x1b"
        << "open=0;boxes=Do you want to save your changes? ;" + names + "Comp 1,Comp 2;connected=0";
}

void TestGridEditor::keys()
{
    QFETCH(int, competitions);
    QFETCH(QString, script);
    QFETCH(QString, expect);
    open(competitions);
    Run_Script(m_screen.get(), *m_conn, script);
    Check_State(m_screen.get(), *m_conn, expect);
}

void TestGridEditor::scrolling_with_the_editor_open_validates()
{
    open(40);
    Run_Script(m_screen.get(), *m_conn, "@1,1|>Q");
    QScrollBar *bar = m_screen->MSFlexGrid1->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    bar->setValue(bar->value() + 60);
    QCoreApplication::processEvents();
    Check_State(m_screen.get(), *m_conn, "editor=closed;cell 1,1=Q");

    // A refused text: the box, and the editor follows its cell.
    bar->setValue(0);
    Run_Script(m_screen.get(), *m_conn, "@2,1|>{Del}");
    const QRect before = m_screen->txtEdit->geometry();
    bar->setValue(30);
    QCoreApplication::processEvents();
    Check_State(m_screen.get(), *m_conn, "editor=;box=Name and date are required!;over=1");
    QVERIFY(m_screen->txtEdit->geometry() != before);
}

void TestGridEditor::two_caption_rows_keep_rows_and_records_in_step()
{
    m_conn->execute("INSERT INTO competitions(competition_name, competition_date) VALUES ('Only','d1')");
    frmTwoRows screen;
    // The default of the first data row gives way to the stored value, NULL included.
    QCOMPARE(screen.Row_Cells(2), QStringList({"1", "Only", "d1", ""}));
    Run_Script(&screen, *m_conn, "@2,1|>{Up}|>\n");
    QCOMPARE(screen.Current_Row(), 3);
    QCOMPARE(screen.Row_Cells(3), QStringList({"0", "", "TBC", "SOBHD"}));
    Run_Script(&screen, *m_conn, ">Second\t");

    // Equal dates: nothing is saved, and the result is still true.
    screen.Set_Cell(3, 2, "d1");
    QVERIFY(screen.Save_Changes());
    QCOMPARE(Dialogs::texts(), QStringList{"Duplicate date!"});
    QVERIFY(screen.Dirty());
    QCOMPARE(Fixture::Count(*m_conn, "competitions"), 1);

    // A failure names the row and puts the hint on its own line.
    screen.Set_Cell(3, 2, "d'2");
    QVERIFY(!screen.Save_Changes());
    QCOMPARE(Dialogs::lastRecord().text,
             QString("There was an error updating record: Second\n"
                     "Please ensure that the dates are unique!'\n"
                     "Please fix this record and save again, otherwise you may lose some data!\n"
                     "If problems persist, try deleting this record or closing this window!"));
    QCOMPARE(screen.Current_Row(), 3);

    screen.Set_Cell(3, 2, "d2");
    screen.Set_Cell(2, 3, "Org");
    QVERIFY(screen.Save_Changes());
    QCOMPARE(Fixture::Count(*m_conn, "competitions", "competition_name = 'Second' AND competition_date = 'd2'"), 1);
    QCOMPARE(Fixture::Count(*m_conn, "competitions", "competition_name = 'Only' AND competition_organiser = 'Org'"), 1);
    QCOMPARE(screen.Cell(3, 0), QString("2"));
    screen.Set_Dirty(false);
}

QTEST_MAIN(TestGridEditor)
#include "test_grid_editor.moc"
