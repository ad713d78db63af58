#include "screen_driver.h"
#include "setup_fill.h"
#include "setup/frmgroups.h"
#include "support/test_env.h"

#include "core/dialogs.h"
#include "core/globals.h"

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>

using Fixture::Count;

class TestEventsScreen : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void captions_defaults_and_the_first_rows();
    void cell_messages();
    void category_lookup_on_f2();
    void duplicate_codes_differing_in_case();
    void save_checks_stop_the_loop_and_upper_case();
    void delete_cascade_and_the_last_row();
    void delete_with_an_unsaved_row_keeps_the_event();

private:
    frmgroups *open();
    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<Connection> m_conn;
    std::unique_ptr<frmgroups> m_screen;
};

void TestEventsScreen::init()
{
    m_env = std::make_unique<TestDataFolder>();
    m_conn = std::make_unique<Connection>();
    m_conn->open();
    Current_Competition_Id = Fixture::Competition(*m_conn);
}

void TestEventsScreen::cleanup()
{
    if (m_screen) {
        m_screen->Set_Dirty(false);
        m_screen->close();
    }
    m_screen.reset();
    m_conn.reset();
    m_env.reset();
}

frmgroups *TestEventsScreen::open()
{
    m_screen = std::make_unique<frmgroups>();
    Driver(m_screen.get()).show();
    return m_screen.get();
}

static QString where(const QString &more = QString())
{
    QString w = QString("competition_id = %1").arg(Current_Competition_Id);
    return more.isEmpty() ? w : w + " AND " + more;
}

void TestEventsScreen::captions_defaults_and_the_first_rows()
{
    frmgroups *f = open();
    Driver d(f);
    QCOMPARE(f->windowTitle(), QString("Strathmark 2017 - Events"));
    QCOMPARE(f->Fixed_Rows(), 2);
    QCOMPARE(f->MSFlexGrid1->columnCount(), 13);
    QCOMPARE(f->Cell(0, 1), QString("Age Group Name"));
    QCOMPARE(f->Cell(0, 3) + "/" + f->Cell(1, 3), QString("Dance/Category"));
    QCOMPARE(f->Cell(0, 9) + "/" + f->Cell(1, 9), QString("No O'all/Prizes"));
    QCOMPARE(f->Cell(0, 12) + "/" + f->Cell(1, 12), QString("Inc T/Fling"));
    const QStringList row2 = f->Row_Cells(2);
    QCOMPARE(row2.mid(4, 9), QStringList({"6", "N", "N", "", "", "1", "A", "", "Y"}));
    QVERIFY(!f->Dirty());

    d.enter(2, 1, "Under 8's");
    d.enter(2, 2, "1a");
    d.enter(2, 3, "h");
    d.enter(2, 4, "3");
    QCOMPARE(f->Cell(2, 3), QString("h"));  // as typed until the save
    // With no event stored the first row takes N, 6 and 6 before a row is added.
    f->CmdAdd->click();
    QCOMPARE(f->Row_Count(), 4);
    QCOMPARE(f->Cell(2, 4), QString("6"));
    QCOMPARE(f->Cell(2, 9), QString("6"));
    QCOMPARE(f->Cell(3, 0), QString::number(Current_Competition_Id));
    QCOMPARE(f->Row_Cells(3).mid(4, 9), QStringList({"6", "N", "N", "", "", "1", "A", "", "Y"}));
    QVERIFY(f->Editor_Open());
    QCOMPARE(f->Current_Row(), 3);
    QCOMPARE(f->Current_Col(), 1);
    d.type("Under 10");
    d.press(Qt::Key_Tab);
    d.enter(3, 2, "2B");
    // Enter on the last row with the category empty: no row, back to column 1.
    d.go(3, 6);
    d.press(Qt::Key_Return);
    QCOMPARE(f->Row_Count(), 4);
    QCOMPARE(f->Current_Col(), 1);
    d.enter(3, 3, "pri");
    d.enter(3, 11, "05");

    f->CmdSave->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QCOMPARE(Count(*m_conn, "age_groups", where()), 2);
    QCOMPARE(m_conn->scalar("SELECT competition_group_id || category || no_prizes || no_overall_prizes || "
                            "ifnull(orderby,'null') || split_ages FROM age_groups WHERE age_group = 'Under 8''s'").toString(),
             QString("1AH66nullN"));
    QCOMPARE(m_conn->scalar("SELECT competition_group_id || category || no_prizes || no_overall_prizes || orderby "
                            "FROM age_groups WHERE age_group = 'Under 10'").toString(),
             QString("2BPRI615"));
    // The refreshed grid shows what was stored.
    QCOMPARE(f->Cell(d.rowOf(1, "Under 8's"), 3), QString("H"));
    QVERIFY(!f->Dirty());

    // With an event stored, a new row takes the usual defaults only.
    f->CmdAdd->click();
    QCOMPARE(f->Row_Count(), 5);
    QCOMPARE(f->Cell(d.rowOf(1, "Under 10"), 9), QString("1"));
    QCOMPARE(f->Cell(4, 9), QString("1"));
}

void TestEventsScreen::cell_messages()
{
    Fixture::Event(*m_conn, Current_Competition_Id, "1A", "Under 8", "PRI");
    frmgroups *f = open();
    Driver d(f);
    struct Case
    {
        int col;
        const char *text;
        const char *message;
        const char *title;
        int style;
    };
    // Every message's words are checked on the rules; here the screen's way of showing them.
    const Case cases[] = {
        {1, "", "All fields are required! If you wish to delete this record, enter a value first", "validation Error", vbExclamation},
        {4, "0", "Value must be greater than 1!", "Validation Error", vbExclamation},
        {4, "six", "Invalid Number! Re-enter or Hit <Escape> to exit", "Validation Error", vbExclamation},
        {9, "7", "Number Overall Prizes must be between 1 and 6", "Validation Error", vbExclamation},
        {9, "", "Invalid Number! Re-enter or Hit <Escape> to exit", "Validation Error", vbExclamation},
        {11, "1.5", "Group Order must be a numberic value", "Strathmark 2017", vbOKOnly},
    };
    for (const Case &k : cases) {
        Dialogs::clearRecords();
        d.enter(2, k.col, k.text);
        const QString label = QString("col %1 '%2'").arg(k.col).arg(k.text);
        QVERIFY2(f->Editor_Open(), qPrintable(label));
        QCOMPARE(Dialogs::records().size(), 1);
        QCOMPARE(Dialogs::lastRecord().text, QString(k.message));
        QCOMPARE(Dialogs::lastRecord().title, QString(k.title));
        QCOMPARE(Dialogs::lastRecord().style, k.style);
        d.press(Qt::Key_Escape);
    }
    // Accepted texts close the editor without a box.
    Dialogs::clearRecords();
    for (const auto &[col, text] : QList<QPair<int, QString>>{{4, "1"}, {9, "6"}, {11, "05"}, {8, "o"}, {3, "ps"}, {7, ""}}) {
        d.enter(2, col, text);
        QVERIFY2(!f->Editor_Open(), qPrintable(text));
    }
    QVERIFY(Dialogs::records().isEmpty());
    QCOMPARE(Count(*m_conn, "age_groups", "category = 'PRI'"), 1);  // nothing written before a save
}

void TestEventsScreen::category_lookup_on_f2()
{
    Fixture::Event(*m_conn, Current_Competition_Id, "1A", "Under 8", "PRI");
    frmgroups *f = open();
    Driver d(f);
    QStringList names;
    for (int i = 0; i < f->LstCatLookup->count(); ++i)
        names << f->LstCatLookup->item(i)->text();
    QCOMPARE(names, QStringList({"Primary Dances", "Premiership", "Highland", "Championship"}));

    // Not on column 3: the plain editor.
    d.go(2, 1);
    d.press(Qt::Key_F2);
    QVERIFY(f->Editor_Open());
    QVERIFY(!f->frmCat->isVisible());
    d.press(Qt::Key_Escape);

    d.go(2, 3);
    d.press(Qt::Key_F2);
    QVERIFY(f->Editor_Open());
    QVERIFY(f->frmCat->isVisible());
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f->LstCatLookup));
    f->Set_Dirty(false);
    QListWidgetItem *ps = f->LstCatLookup->item(1);
    QTest::mouseClick(f->LstCatLookup->viewport(), Qt::LeftButton, {}, f->LstCatLookup->visualItemRect(ps).center());
    QCoreApplication::processEvents();
    QVERIFY(!f->frmCat->isVisible());
    QCOMPARE(f->Cell(2, 3), QString("PS"));
    QVERIFY(f->Dirty());
    QVERIFY(f->Editor_Open());
    QCOMPARE(f->txtEdit->text(), QString("PS"));
    QCOMPARE(f->Current_Row(), 2);
    QCOMPARE(f->Current_Col(), 3);
    d.press(Qt::Key_Tab);
    QVERIFY(!f->Editor_Open());
    QCOMPARE(f->Current_Col(), 4);

    // F2 inside the editor opens the list too; leaving the list closes it.
    d.go(2, 3);
    d.type("x");
    d.press(Qt::Key_F2);
    QVERIFY(f->frmCat->isVisible());
    f->txtEdit->setFocus();
    QCoreApplication::processEvents();
    QVERIFY(!f->frmCat->isVisible());
    QCOMPARE(f->Current_Col(), 3);
    // The box's text went in unchecked; the save's own check refuses it.
    Dialogs::clearRecords();
    f->CmdSave->click();
    QCOMPARE(Dialogs::texts(), QStringList({"You must select an existing category. (Use 'F2' for list)", "Changes Saved!"}));
    QCOMPARE(m_conn->scalar("SELECT category FROM age_groups").toString(), QString("PRI"));
}

void TestEventsScreen::duplicate_codes_differing_in_case()
{
    Fixture::Event(*m_conn, Current_Competition_Id, "1A", "Under 8", "PRI");
    frmgroups *f = open();
    Driver d(f);
    f->CmdAdd->click();
    d.type("Open");
    d.press(Qt::Key_Tab);
    d.enter(3, 2, "1a");
    d.enter(3, 3, "C");
    Dialogs::clearRecords();
    f->CmdSave->click();
    QCOMPARE(Dialogs::texts(), QStringList({"You have entered a duplicate group code!. Please re-enter unique ones."}));
    QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
    QCOMPARE(Count(*m_conn, "age_groups"), 1);
    QCOMPARE(f->Row_Count(), 4);  // the grid keeps what was typed
    QVERIFY(f->Dirty());

    d.enter(3, 2, "1b");
    f->CmdSave->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QCOMPARE(Count(*m_conn, "age_groups", "competition_group_id = '1B'"), 1);
}

void TestEventsScreen::save_checks_stop_the_loop_and_upper_case()
{
    const short comp = Current_Competition_Id;
    Fixture::Event(*m_conn, comp, "1A", "A Under 8", "PRI");
    Fixture::Event(*m_conn, comp, "2B", "B Under 10", "DNC1");  // its category has gone
    Fixture::Event(*m_conn, comp, "3C", "C Open", "H");
    frmgroups *f = open();
    Driver d(f);
    QCOMPARE(f->Cell(2, 1), QString("A Under 8"));
    d.enter(2, 7, "scottish");
    d.enter(2, 11, "");
    d.enter(2, 8, "c");
    d.enter(4, 1, "C Open Renamed");
    f->CmdSave->click();
    // The first row is written, the check stops at the second, the third is lost.
    QCOMPARE(Dialogs::texts(), QStringList({"You must select an existing category. (Use 'F2' for list)", "Changes Saved!"}));
    QCOMPARE(m_conn->scalar("SELECT championship_title || championship_type || ifnull(orderby, 'null') FROM age_groups "
                            "WHERE competition_group_id = '1A'").toString(),
             QString("SCOTTISHCnull"));
    QCOMPARE(Count(*m_conn, "age_groups", "age_group = 'C Open'"), 1);
    // Sorted by title: the titled event now comes last.
    QCOMPARE(f->Cell(4, 1), QString("A Under 8"));
    QCOMPARE(d.rowOf(1, "C Open Renamed"), -1);
    QVERIFY(!f->Dirty());
}

void TestEventsScreen::delete_cascade_and_the_last_row()
{
    const short comp = Current_Competition_Id;
    const short other = Fixture::Competition(*m_conn, "Other", "x");
    for (short k : {comp, other}) {
        Fixture::Event(*m_conn, k, "1A", "Under 8", "PRI");
        Fixture::Event(*m_conn, k, "2B", "Under 10", "H");
        Fixture::Competitor(*m_conn, k, 101, "Ann", "Ross", {"1A", "2B"});
        for (const char *code : {"1A", "2B"})
            Fill_Event_Rows(*m_conn, k, code, 1);
        Add_Trophy(*m_conn, k, "Cup", "1A");
    }
    QMap<QString, int> before;
    for (const char *t : Event_Tables)
        before[t] = Count(*m_conn, t);
    frmgroups *f = open();
    Driver d(f);

    const int row = d.rowOf(2, "1A");
    d.go(row, 1);
    Dialogs::queueAnswer(vbNo);
    f->cmdDel->click();
    QCOMPARE(Dialogs::lastRecord().text, QString("Are you sure you want to delete Event? \nIt will also delete all associated results."));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    for (const char *t : Event_Tables)
        QCOMPARE(Count(*m_conn, t), before[t]);

    d.go(row, 1);
    f->cmdDel->click();
    for (const char *t : Event_Tables) {
        QVERIFY2(Count(*m_conn, t, where("group_id = '1A'")) == 0, t);
        QVERIFY2(Count(*m_conn, t, where("group_id = '2B'")) > 0, t);
        QVERIFY2(Count(*m_conn, t, QString("competition_id = %1").arg(other)) == before[t] / 2, t);
    }
    QCOMPARE(Count(*m_conn, "custom_reports_groups"), 1);
    QCOMPARE(Count(*m_conn, "age_groups", where()), 1);
    QCOMPARE(Count(*m_conn, "competitors", where("group_id1 = '1A'")), 1);
    QCOMPARE(f->Row_Count(), 3);

    // The last one: captions and defaults come back, nothing left to save.
    d.go(2, 1);
    f->cmdDel->click();
    QCOMPARE(Count(*m_conn, "age_groups", where()), 0);
    QCOMPARE(f->Row_Count(), 3);
    QCOMPARE(f->Cell(0, 1), QString("Age Group Name"));
    QCOMPARE(f->Cell(1, 12), QString("Fling"));
    QCOMPARE(f->Row_Cells(2).mid(1), QStringList({"", "", "", "6", "N", "N", "", "", "1", "A", "", "Y"}));
    QVERIFY(!f->Dirty());
}

void TestEventsScreen::delete_with_an_unsaved_row_keeps_the_event()
{
    Fixture::Event(*m_conn, Current_Competition_Id, "1A", "Under 8", "PRI");
    Fill_Event_Rows(*m_conn, Current_Competition_Id, "1A", 1);
    frmgroups *f = open();
    Driver d(f);
    f->CmdAdd->click();
    d.press(Qt::Key_Escape);
    d.go(2, 1);
    f->cmdDel->click();
    QCOMPARE(Count(*m_conn, "overall_dance_results"), 0);
    QCOMPARE(Count(*m_conn, "age_groups"), 1);
}

QTEST_MAIN(TestEventsScreen)
#include "test_setup_events_screen.moc"
