// The grid editor driven by keys, on a small screen built from it.
#include "sample_grid.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/dialogs.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest>

class TestGridEditor : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void printable_key_opens_the_editor_and_space_does_nothing();
    void delete_then_escape_keeps_the_cell_and_the_dirty_flag();
    void f2_and_paste_place_the_caret();
    void arrows_leave_only_at_the_edge_and_after_validation();
    void a_faulting_check_gets_the_handler_box();
    void tab_and_enter_move_the_cursor();
    void enter_on_the_last_row_adds_a_row_only_when_required_cells_are_filled();
    void cut_empties_the_cell_without_the_dirty_flag();
    void a_click_on_the_grid_passes_through_validation();
    void scrolling_with_the_editor_open_validates();
    void save_with_the_editor_open_commits_unchecked_text();
    void new_rows_are_written_only_on_save();
    void check_failing_on_row_5_of_9_keeps_rows_1_to_4();
    void a_database_failure_shows_the_box_and_keeps_the_screen();
    void delete_asks_and_removes_record_and_dependents();
    void delete_with_an_unsaved_row_keeps_the_record();
    void deleting_the_only_row_leaves_captions_and_no_question();
    void closing_asks_only_when_dirty();
    void two_caption_rows_keep_rows_and_records_in_step();

private:
    void open(int competitions);
    void press(int key, Qt::KeyboardModifiers mods = Qt::NoModifier);
    void type(const QString &text);
    void go(int row, int col);
    QString stored(int id, const QString &field);
    QLineEdit *editor() const { return m_screen->txtEdit; }
    FlexGrid *grid() const { return m_screen->MSFlexGrid1; }

    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<frmSample> m_screen;
};

void TestGridEditor::init()
{
    m_env = std::make_unique<TestDataFolder>();
}

void TestGridEditor::cleanup()
{
    if (m_screen) {
        m_screen->Set_Dirty(false);
        m_screen->close();
    }
    m_screen.reset();
    m_env.reset();
}

void TestGridEditor::open(int competitions)
{
    Connection c;
    c.open();
    for (int i = 1; i <= competitions; ++i)
        c.execute(QString("INSERT INTO competitions(competition_name, competition_date, competition_organiser) "
                          "VALUES ('Comp %1','d%1','org %1')")
                      .arg(i));
    c.close();
    m_screen = std::make_unique<frmSample>();
    m_screen->resize(700, 400);
    m_screen->show();
    QApplication::setActiveWindow(m_screen.get());
    QVERIFY(QTest::qWaitForWindowActive(m_screen.get()));
    grid()->setFocus();
    QCoreApplication::processEvents();
    QVERIFY(!m_screen->Dirty());
}

void TestGridEditor::press(int key, Qt::KeyboardModifiers mods)
{
    QWidget *target = QApplication::focusWidget();
    QVERIFY(target);
    QTest::keyClick(target, Qt::Key(key), mods);
    // Keys sent to the grid arrive through the queue.
    QCoreApplication::processEvents();
}

void TestGridEditor::type(const QString &text)
{
    for (QChar ch : text) {
        QTest::keyClick(QApplication::focusWidget(), ch.toLatin1());
        QCoreApplication::processEvents();
    }
}

void TestGridEditor::go(int row, int col)
{
    grid()->setFocus();
    grid()->setCurrentCell(row, col);
    QCoreApplication::processEvents();
}

QString TestGridEditor::stored(int id, const QString &field)
{
    Connection c;
    c.open();
    const QVariant v = c.scalar("SELECT " + field + " FROM competitions WHERE competition_id = " + QString::number(id));
    return v.isNull() ? QStringLiteral("<NULL>") : v.toString();
}

void TestGridEditor::printable_key_opens_the_editor_and_space_does_nothing()
{
    open(3);
    QCOMPARE(m_screen->Cell(0, 1), QString("Name"));
    QCOMPARE(m_screen->Cell(1, 1), QString("Comp 1"));
    QVERIFY(grid()->isColumnHidden(0));
    go(2, 1);
    press(Qt::Key_Space);
    QVERIFY(!m_screen->Editor_Open());
    QVERIFY(!m_screen->Dirty());

    press(Qt::Key_Q);
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(QApplication::focusWidget(), editor());
    QCOMPARE(editor()->text(), QString("q"));
    QCOMPARE(editor()->cursorPosition(), 1);
    QVERIFY(!editor()->hasSelectedText());
    QVERIFY(m_screen->Dirty());
    // The editor lies over the cell.
    const QRect cell = grid()->visualRect(grid()->model()->index(2, 1));
    QCOMPARE(editor()->geometry().topLeft(), grid()->viewport()->mapTo(m_screen.get(), cell.topLeft()));
    // Nothing reaches the cell before the editor is left.
    QCOMPARE(m_screen->Cell(2, 1), QString("Comp 2"));
    type("rs");
    press(Qt::Key_Return);
    QCOMPARE(m_screen->Cell(2, 1), QString("qrs"));
}

void TestGridEditor::delete_then_escape_keeps_the_cell_and_the_dirty_flag()
{
    open(2);
    go(1, 2);
    press(Qt::Key_Delete);
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(editor()->text(), QString());
    press(Qt::Key_Escape);
    QVERIFY(!m_screen->Editor_Open());
    QVERIFY(m_screen->isVisible());  // Esc in the editor does not close the screen
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(grid()));
    QCOMPARE(m_screen->Cell(1, 2), QString("d1"));
    QVERIFY(m_screen->Dirty());
    QVERIFY(Dialogs::records().isEmpty());
}

void TestGridEditor::f2_and_paste_place_the_caret()
{
    open(2);
    go(1, 1);
    press(Qt::Key_F2);
    QCOMPARE(editor()->text(), QString("Comp 1"));
    QCOMPARE(editor()->selectedText(), QString("Comp 1"));
    QCOMPARE(editor()->cursorPosition(), 0);
    press(Qt::Key_Escape);

    QApplication::clipboard()->setText("Pasted");
    go(2, 3);
    press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(editor()->text(), QString("Pasted"));
    QCOMPARE(editor()->cursorPosition(), 6);
    press(Qt::Key_Escape);

    // Ctrl+C copies the cell without opening anything.
    go(1, 2);
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("d1"));
    QVERIFY(!m_screen->Editor_Open());
}

void TestGridEditor::arrows_leave_only_at_the_edge_and_after_validation()
{
    open(3);
    // All of the text selected: Right leaves at once, after the commit.
    go(1, 2);
    press(Qt::Key_F2);
    press(Qt::Key_Right);
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(m_screen->Current_Col(), 3);

    // The caret inside the text: Left moves the caret; at position 0 it leaves.
    press(Qt::Key_X);
    QCOMPARE(editor()->cursorPosition(), 1);
    press(Qt::Key_Left);
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(editor()->cursorPosition(), 0);
    press(Qt::Key_Left);
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(m_screen->Current_Col(), 2);
    QCOMPARE(m_screen->Cell(1, 3), QString("x"));

    // A refused text: the box, and the editor stays on the cell for every way out.
    go(2, 1);
    press(Qt::Key_Delete);
    for (int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_Tab}) {
        Dialogs::clearRecords();
        press(key);
        QVERIFY2(m_screen->Editor_Open(), qPrintable(QString::number(key)));
        QCOMPARE(Dialogs::lastRecord().text, QString("Name and date are required!"));
        QCOMPARE(Dialogs::lastRecord().title, QString("Validation Error"));
        QCOMPARE(Dialogs::lastRecord().style, int(vbExclamation));
        QCOMPARE(m_screen->Current_Row(), 2);
        QCOMPARE(m_screen->Current_Col(), 1);
        QCOMPARE(QApplication::focusWidget(), editor());
    }
    QCOMPARE(m_screen->Cell(2, 1), QString("Comp 2"));
    type("Z");
    press(Qt::Key_Up);
    QCOMPARE(m_screen->Current_Row(), 1);
    QCOMPARE(m_screen->Cell(2, 1), QString("Z"));

    // Up on the first data row stays there; Down moves down.
    go(1, 1);
    press(Qt::Key_F2);
    press(Qt::Key_Up);
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(m_screen->Current_Row(), 1);
    press(Qt::Key_F2);
    press(Qt::Key_Down);
    QCOMPARE(m_screen->Current_Row(), 2);
    QCOMPARE(m_screen->Current_Col(), 1);
}

void TestGridEditor::a_faulting_check_gets_the_handler_box()
{
    open(1);
    go(1, 3);
    type("boom");
    QCOMPARE(editor()->text(), QString("boom"));
    press(Qt::Key_Return);
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(Dialogs::lastRecord().text, QString("There was an error! Re-enter or Hit <Escape> to exit"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Data Error"));
    QCOMPARE(m_screen->Cell(1, 3), QString("org 1"));
}

void TestGridEditor::tab_and_enter_move_the_cursor()
{
    open(3);
    go(1, 1);
    press(Qt::Key_Tab);
    QCOMPARE(m_screen->Current_Col(), 2);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);  // the last column: nowhere to go
    QCOMPARE(m_screen->Current_Col(), 3);
    press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(m_screen->Current_Col(), 2);
    // Enter before the last row: the start of the next row.
    press(Qt::Key_Return);
    QCOMPARE(m_screen->Current_Row(), 2);
    QCOMPARE(m_screen->Current_Col(), 1);
    // Up from the first data row never reaches the captions.
    go(1, 2);
    press(Qt::Key_Up);
    QCOMPARE(m_screen->Current_Row(), 1);
    // Tab in the editor: validated, committed, one column right.
    press(Qt::Key_F2);
    type("x");
    press(Qt::Key_Tab);
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(m_screen->Cell(1, 2), QString("x"));
    QCOMPARE(m_screen->Current_Col(), 3);
    QVERIFY(Dialogs::records().isEmpty());
}

void TestGridEditor::enter_on_the_last_row_adds_a_row_only_when_required_cells_are_filled()
{
    open(2);
    go(2, 3);
    press(Qt::Key_Return);
    QCOMPARE(m_screen->Row_Count(), 4);
    QCOMPARE(m_screen->Current_Row(), 3);
    QCOMPARE(m_screen->Current_Col(), 1);
    QCOMPARE(m_screen->Cell(3, 0), QString("0"));
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(editor()->text(), QString());
    QCOMPARE(m_screen->Added_Rows(), 1);

    // Only the name typed: no new row, the cursor back on column 1.
    type("New");
    press(Qt::Key_Tab);
    QCOMPARE(m_screen->Current_Col(), 2);
    press(Qt::Key_Tab);
    QCOMPARE(m_screen->Current_Col(), 3);
    press(Qt::Key_Return);
    QCOMPARE(m_screen->Row_Count(), 4);
    QCOMPARE(m_screen->Current_Row(), 3);
    QCOMPARE(m_screen->Current_Col(), 1);
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(grid()));

    // Down in the editor on the last row behaves as Enter; with both cells
    // filled it adds the row. CmdAdd does the same.
    go(3, 2);
    type("d3");
    press(Qt::Key_Down);
    QCOMPARE(m_screen->Row_Count(), 5);
    QCOMPARE(m_screen->Added_Rows(), 2);
    QVERIFY(m_screen->Editor_Open());
    press(Qt::Key_Escape);
    m_screen->CmdAdd->click();
    QCOMPARE(m_screen->Row_Count(), 5);
    QCOMPARE(m_screen->Current_Row(), 4);
    QCOMPARE(m_screen->Current_Col(), 1);
}

void TestGridEditor::cut_empties_the_cell_without_the_dirty_flag()
{
    open(2);
    go(2, 1);
    press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(m_screen->Cell(2, 1), QString());
    QCOMPARE(QApplication::clipboard()->text(), QString("Comp 2"));
    QVERIFY(!m_screen->Editor_Open());
    QVERIFY(!m_screen->Dirty());
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(grid()));
}

void TestGridEditor::a_click_on_the_grid_passes_through_validation()
{
    open(3);
    go(1, 1);
    press(Qt::Key_Delete);
    const QPoint elsewhere = grid()->visualRect(grid()->model()->index(3, 2)).center();
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, Qt::NoModifier, elsewhere);
    QCoreApplication::processEvents();
    QCOMPARE(Dialogs::lastRecord().text, QString("Name and date are required!"));
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(m_screen->Current_Row(), 1);
    QCOMPARE(QApplication::focusWidget(), editor());

    type("A");
    QTest::mouseClick(grid()->viewport(), Qt::LeftButton, Qt::NoModifier, elsewhere);
    QCoreApplication::processEvents();
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(m_screen->Cell(1, 1), QString("A"));
    QCOMPARE(m_screen->Current_Row(), 3);
    QCOMPARE(m_screen->Current_Col(), 2);
}

void TestGridEditor::scrolling_with_the_editor_open_validates()
{
    open(40);
    QScrollBar *bar = grid()->verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    go(1, 1);
    type("Q");
    bar->setValue(bar->value() + 60);
    QCoreApplication::processEvents();
    QVERIFY(!m_screen->Editor_Open());
    QCOMPARE(m_screen->Cell(1, 1), QString("Q"));

    // A refused text: the box, and the editor follows its cell.
    bar->setValue(0);
    go(2, 1);
    press(Qt::Key_Delete);
    const QRect before = editor()->geometry();
    bar->setValue(30);
    QCoreApplication::processEvents();
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(Dialogs::lastRecord().text, QString("Name and date are required!"));
    const QRect cell = grid()->visualRect(grid()->model()->index(2, 1));
    QCOMPARE(editor()->geometry().topLeft(), grid()->viewport()->mapTo(m_screen.get(), cell.topLeft()));
    QVERIFY(editor()->geometry() != before);
}

void TestGridEditor::save_with_the_editor_open_commits_unchecked_text()
{
    open(2);
    go(1, 1);
    press(Qt::Key_Delete);
    m_screen->CmdSave->click();
    // No check ran: the empty name is stored as NULL.
    QCOMPARE(Dialogs::texts(), QStringList{"Changes Saved!"});
    QCOMPARE(Dialogs::lastRecord().kind, QString("timed"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Confirmation"));
    QCOMPARE(stored(1, "competition_name"), QString("<NULL>"));
    QVERIFY(!m_screen->Editor_Open());
    QVERIFY(!m_screen->Dirty());
    // The refresh words the captions as after a save.
    QCOMPARE(m_screen->Cell(0, 3), QString("Org"));
}

void TestGridEditor::new_rows_are_written_only_on_save()
{
    open(1);
    go(1, 3);
    press(Qt::Key_Return);
    type("Games");
    press(Qt::Key_Tab);
    type("2026");
    press(Qt::Key_Return);  // no third row: organiser is not required, but editor leaves
    {
        Connection c;
        c.open();
        QCOMPARE(c.scalar("SELECT count(*) FROM competitions").toInt(), 1);
    }
    QVERIFY(m_screen->Save_Changes());
    QCOMPARE(stored(2, "competition_name"), QString("Games"));
    QCOMPARE(stored(2, "competition_date"), QString("2026"));
    // The row comes back with its key.
    QCOMPARE(m_screen->Cell(2, 0), QString("2"));
    QCOMPARE(m_screen->Added_Rows(), 0);
}

void TestGridEditor::check_failing_on_row_5_of_9_keeps_rows_1_to_4()
{
    open(9);
    for (int row = 1; row <= 9; ++row) {
        go(row, 3);
        press(Qt::Key_Delete);
        type(row == 5 ? "BAD" : "new");
        press(Qt::Key_Return);
    }
    QVERIFY(m_screen->Save_Changes());
    QCOMPARE(Dialogs::texts(), QStringList({"Bad organiser!", "Changes Saved!"}));
    for (int row = 1; row <= 9; ++row) {
        const QString expected = row < 5 ? QString("new") : QString("org %1").arg(row);
        QCOMPARE(stored(row, "competition_organiser"), expected);
        QCOMPARE(m_screen->Cell(row, 3), expected);
    }
    QCOMPARE(m_screen->Current_Row(), 5);
    QCOMPARE(m_screen->Current_Col(), 3);
    QVERIFY(!m_screen->Dirty());
}

void TestGridEditor::a_database_failure_shows_the_box_and_keeps_the_screen()
{
    open(2);
    go(2, 1);
    press(Qt::Key_Return);
    type("O'Hara");
    press(Qt::Key_Tab);
    type("d3");
    press(Qt::Key_Escape);
    Dialogs::clearRecords();
    // Escape kept the date out of the cell: type it again and leave by Tab.
    go(3, 2);
    type("d3");
    press(Qt::Key_Tab);
    go(1, 1);
    QVERIFY(!m_screen->Save_Changes());
    QCOMPARE(Dialogs::lastRecord().title, QString("Data Error"));
    QCOMPARE(Dialogs::lastRecord().text,
             QString("There was an error updating record: O'Hara Ensure all fields are populated!\n"
                     "Please fix this record and save again, otherwise you may loose some data!\n"
                     "If problems persist, try deleting this record or closing this window!"));
    QCOMPARE(m_screen->Current_Row(), 3);
    QCOMPARE(m_screen->Current_Col(), 1);
    QVERIFY(m_screen->Dirty());
    QCOMPARE(m_screen->Cell(3, 1), QString("O'Hara"));

    // Closing asks; the save fails again and the screen stays.
    Dialogs::clearRecords();
    Dialogs::queueAnswer(vbYes);
    QVERIFY(!m_screen->close());
    QCOMPARE(Dialogs::records().first().text, QString("Do you want to save your changes? "));
    QCOMPARE(Dialogs::records().first().title, QString("Save Changes Confirmation"));
    QVERIFY(m_screen->isVisible());
}

void TestGridEditor::delete_asks_and_removes_record_and_dependents()
{
    open(3);
    {
        Connection c;
        c.open();
        c.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category) VALUES (2,'A','Under 8','H')");
        c.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category) VALUES (3,'A','Under 8','H')");
    }
    go(2, 1);
    Dialogs::queueAnswer(vbNo);
    m_screen->cmdDel->click();
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    QCOMPARE(Dialogs::lastRecord().text, QString("Are you sure you want to delete Competition? \nIt will also delete its events."));
    QCOMPARE(Dialogs::lastRecord().style, int(vbYesNo + vbQuestion));
    QCOMPARE(m_screen->Row_Count(), 4);

    Dialogs::queueAnswer(vbYes);
    m_screen->cmdDel->click();
    QCOMPARE(m_screen->Row_Count(), 3);
    QCOMPARE(m_screen->Cell(2, 1), QString("Comp 3"));
    Connection c;
    c.open();
    QCOMPARE(Fixture::Count(c, "competitions"), 2);
    QCOMPARE(Fixture::Count(c, "competitions", "competition_id = 2"), 0);
    QCOMPARE(Fixture::Count(c, "age_groups"), 1);
    // The record set follows: a save writes the right rows.
    go(2, 3);
    type("third");
    press(Qt::Key_Return);
    QVERIFY(m_screen->Save_Changes());
    QCOMPARE(stored(3, "competition_organiser"), QString("third"));
    QCOMPARE(stored(1, "competition_organiser"), QString("org 1"));
}

void TestGridEditor::delete_with_an_unsaved_row_keeps_the_record()
{
    open(2);
    go(2, 2);
    press(Qt::Key_Return);  // an unsaved row 3
    press(Qt::Key_Escape);
    go(1, 1);
    m_screen->cmdDel->click();
    QCOMPARE(m_screen->Row_Count(), 3);
    Connection c;
    c.open();
    QCOMPARE(Fixture::Count(c, "competitions"), 2);
}

void TestGridEditor::deleting_the_only_row_leaves_captions_and_no_question()
{
    open(1);
    go(1, 2);
    press(Qt::Key_F2);
    press(Qt::Key_Escape);
    QVERIFY(m_screen->Dirty());
    m_screen->cmdDel->click();
    QCOMPARE(m_screen->Row_Count(), 2);
    QCOMPARE(m_screen->Cell(0, 1), QString("Name"));
    QCOMPARE(m_screen->Cell(1, 1), QString());
    QVERIFY(!m_screen->Dirty());
    Dialogs::clearRecords();
    QVERIFY(m_screen->close());
    QVERIFY(Dialogs::records().isEmpty());
    Connection c;
    c.open();
    QCOMPARE(Fixture::Count(c, "competitions"), 0);
    m_screen.reset();
}

void TestGridEditor::closing_asks_only_when_dirty()
{
    open(2);
    QVERIFY(m_screen->close());
    QVERIFY(Dialogs::records().isEmpty());
    m_screen.reset();

    m_screen = std::make_unique<frmSample>();
    m_screen->show();
    QVERIFY(QTest::qWaitForWindowActive(m_screen.get()));
    go(1, 1);
    type("Changed");
    // Esc in the editor only closes the editor; Esc on the grid closes the screen.
    press(Qt::Key_Escape);
    Dialogs::queueAnswer(vbNo);
    press(Qt::Key_Escape);
    QVERIFY(!m_screen->isVisible());
    QCOMPARE(Dialogs::texts(), QStringList{"Do you want to save your changes? "});
    QCOMPARE(stored(1, "competition_name"), QString("Comp 1"));
    QVERIFY(!m_screen->conn().isOpen());
    m_screen.reset();
}

void TestGridEditor::two_caption_rows_keep_rows_and_records_in_step()
{
    {
        Connection c;
        c.open();
        c.execute("INSERT INTO competitions(competition_name, competition_date) VALUES ('Only','d1')");
    }
    frmTwoRows screen;
    screen.show();
    QVERIFY(QTest::qWaitForWindowActive(&screen));
    QCOMPARE(screen.Row_Cells(1), QStringList({"", "Name", "", "By"}));
    // The default of the first data row gives way to the stored value, NULL included.
    QCOMPARE(screen.Row_Cells(2), QStringList({"1", "Only", "d1", ""}));
    screen.MSFlexGrid1->setFocus();
    screen.Go_To(2, 1);
    QTest::keyClick(screen.MSFlexGrid1, Qt::Key_Up);
    QCOMPARE(screen.Current_Row(), 2);
    QTest::keyClick(screen.MSFlexGrid1, Qt::Key_Return);  // the last row: a new one
    QCOMPARE(screen.Row_Cells(3), QStringList({"0", "", "TBC", "SOBHD"}));
    QTest::keyClicks(QApplication::focusWidget(), "Second");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCoreApplication::processEvents();

    // Equal dates: nothing is saved, and the result is still true.
    screen.Set_Cell(3, 2, "d1");
    QVERIFY(screen.Save_Changes());
    QCOMPARE(Dialogs::texts(), QStringList{"Duplicate date!"});
    QVERIFY(screen.Dirty());
    Connection c;
    c.open();
    QCOMPARE(Fixture::Count(c, "competitions"), 1);

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
    QCOMPARE(Fixture::Count(c, "competitions", "competition_name = 'Second' AND competition_date = 'd2'"), 1);
    QCOMPARE(Fixture::Count(c, "competitions", "competition_name = 'Only' AND competition_organiser = 'Org'"), 1);
    QCOMPARE(screen.Row_Count(), 4);
    QCOMPARE(screen.Cell(3, 0), QString("2"));
    screen.Set_Dirty(false);
}

QTEST_MAIN(TestGridEditor)
#include "test_grid_editor.moc"
