// The competitors screen driven as the operator drives it.
#include "entries/competitor_columns.h"
#include "entries/frmCompetitors.h"

#include "core/dialogs.h"
#include "core/globals.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

using namespace Competitor_Col;

class TestScreen : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();

    void opens_with_captions_and_highest_number_first();
    void number_cell_messages();
    void other_cells_refuse_with_their_boxes();
    void f2_lists_events_and_the_code_lands_in_the_cell();
    void f2_marks_the_row_even_without_a_choice();
    void emptied_event_cell_leaves_the_events_at_save();
    void new_row_typed_and_saved();
    void cut_is_lost_at_the_refresh_after_a_save();
    void search_filters_and_keeps_the_statement();
    void registered_all_keeps_the_earlier_filter_until_reopened();
    void winners_only_of_an_event();
    void a_broken_search_keeps_the_grid_usable();
    void delete_removes_record_and_results();
    void an_edit_past_row_1500_gets_the_handler_box();

private:
    void open();
    void press(int key, Qt::KeyboardModifiers mods = Qt::NoModifier);
    void type(const QString &text);
    void go(int row, int col);
    // Puts the text into a cell's editor and leaves it with Tab.
    void enter(int row, int col, const QString &text);
    int rowOf(int number) const;
    QVariant stored(int number, const QString &field);
    QStringList events(int number);
    QList<int> shownNumbers() const;
    void search(const std::function<void()> &fill);

    FlexGrid *grid() const { return m_screen->MSFlexGrid1; }

    std::unique_ptr<TestDataFolder> m_env;
    std::unique_ptr<frmCompetitors> m_screen;
    Connection m_conn;
    short m_comp = 0;
};

void TestScreen::init()
{
    m_env = std::make_unique<TestDataFolder>();
    m_conn.open();
    m_comp = Fixture::Competition(m_conn);
    Fixture::Event(m_conn, m_comp, "A1", "Under 8", "H");
    Fixture::Event(m_conn, m_comp, "B2", "Under 10", "H");
    Fixture::Event(m_conn, m_comp, "CH", "Open", "C");
    Fixture::Competitor(m_conn, m_comp, 1, "Amy", "Watt", {"A1"});
    Fixture::Competitor(m_conn, m_comp, 2, "Beth", "Abel", {"A1", "CH"});
    Fixture::Competitor(m_conn, m_comp, 3, "Cara", "Mair", {"CH"});
    m_conn.execute("UPDATE competitors SET age = competitor_id + 6, registered = competitor_id % 2");
    Current_Competition_Id = m_comp;
}

void TestScreen::cleanup()
{
    if (m_screen) {
        m_screen->Set_Dirty(false);
        m_screen->close();
    }
    m_screen.reset();
    m_conn.close();
    m_env.reset();
}

void TestScreen::open()
{
    m_screen = std::make_unique<frmCompetitors>();
    m_screen->resize(1200, 700);
    m_screen->show();
    QApplication::setActiveWindow(m_screen.get());
    QVERIFY(QTest::qWaitForWindowActive(m_screen.get()));
    grid()->setFocus();
    QCoreApplication::processEvents();
}

void TestScreen::press(int key, Qt::KeyboardModifiers mods)
{
    QWidget *target = QApplication::focusWidget();
    QVERIFY(target);
    QTest::keyClick(target, Qt::Key(key), mods);
    QCoreApplication::processEvents();
}

void TestScreen::type(const QString &text)
{
    for (QChar ch : text) {
        QTest::keyClick(QApplication::focusWidget(), ch.toLatin1());
        QCoreApplication::processEvents();
    }
}

void TestScreen::go(int row, int col)
{
    grid()->setFocus();
    grid()->setCurrentCell(row, col);
    QCoreApplication::processEvents();
}

void TestScreen::enter(int row, int col, const QString &text)
{
    go(row, col);
    press(Qt::Key_Delete);   // opens the editor with an empty box
    m_screen->txtEdit->setText(text);
    press(Qt::Key_Tab);
}

int TestScreen::rowOf(int number) const
{
    for (int r = 1; r < grid()->rowCount(); ++r)
        if (grid()->Text(r, Number) == QString::number(number))
            return r;
    return -1;
}

QVariant TestScreen::stored(int number, const QString &field)
{
    return m_conn.scalar("SELECT " + field + " FROM competitors WHERE competition_id = ? AND competitor_id = ?",
                         {m_comp, number});
}

QStringList TestScreen::events(int number)
{
    QStringList out;
    RowSet rs = m_conn.query("SELECT group_id FROM competitor_groups WHERE competition_id = ? AND competitor_id = ? "
                             "ORDER BY rowid",
                             {m_comp, number});
    for (; !rs.eof(); rs.next())
        out << rs.text("group_id");
    return out;
}

QList<int> TestScreen::shownNumbers() const
{
    QList<int> out;
    for (int r = 1; r < grid()->rowCount(); ++r)
        if (!grid()->Text(r, Number).isEmpty())
            out << grid()->Text(r, Number).toInt();
    return out;
}

void TestScreen::search(const std::function<void()> &fill)
{
    QTest::mouseClick(m_screen->CmdViewSearch, Qt::LeftButton);
    QVERIFY(m_screen->FrameSearch->isVisible());
    fill();
    QTest::mouseClick(m_screen->CmdSearch, Qt::LeftButton);
    QCoreApplication::processEvents();
}

void TestScreen::opens_with_captions_and_highest_number_first()
{
    open();
    QCOMPARE(m_screen->windowTitle(), QString("Strathmark 2017 - Competitors"));
    QCOMPARE(grid()->columnCount(), 25);
    QCOMPARE(grid()->Text(0, 1), QString("Num"));
    QCOMPARE(grid()->Text(0, 8), QString("ZIP"));
    QCOMPARE(grid()->Text(0, 16), QString("Field4"));
    QCOMPARE(grid()->Text(0, 24), QString("GRP8"));
    QVERIFY(grid()->isColumnHidden(0) || grid()->columnWidth(0) == 0);
    QCOMPARE(shownNumbers(), QList<int>({3, 2, 1}));
    QCOMPARE(grid()->Text(rowOf(2), First_Event + 1), QString("CH"));
    QVERIFY(m_screen->CmdViewSearch->isEnabled());
    QVERIFY(!m_screen->FrameAG->isVisible());
    QVERIFY(!m_screen->FrameSearch->isVisible());
    QVERIFY(m_screen->Event_List_Loaded());
    QVERIFY(!m_screen->Dirty());
    // An empty competition leaves the search button as the form has it.
    m_screen->close();
    Current_Competition_Id = Fixture::Competition(m_conn, "Empty");
    open();
    QVERIFY(!m_screen->CmdViewSearch->isEnabled());
    m_screen->close();
    QVERIFY(!m_screen->Event_List_Loaded());
}

void TestScreen::number_cell_messages()
{
    open();
    struct Case { const char *typed; const char *text; const char *title; };
    const QList<Case> cases = {
        {"12.5", "Invalid number!", "Invalid Data"},
        {"+12", "Invalid number!", "Invalid Data"},
        {"twelve", "Invalid Number! Re-enter or Hit <Escape> to exit", "Data Error"},
        {"40000", "Invalid Number! Re-enter or Hit <Escape> to exit", "Data Error"},
        {"", "Number is required! If you wish to delete this record, enter a value 0 into the field!", "Missing Data"},
    };
    for (const Case &c : cases) {
        Dialogs::clearRecords();
        enter(rowOf(3), Number, c.typed);
        QCOMPARE(Dialogs::records().size(), 1);
        QCOMPARE(Dialogs::lastRecord().text, QString(c.text));
        QCOMPARE(Dialogs::lastRecord().title, QString(c.title));
        QVERIFY(m_screen->Editor_Open());   // the editor keeps the focus
        QCOMPARE(QApplication::focusWidget(), m_screen->txtEdit);
        press(Qt::Key_Escape);
    }
    // 0 passes: the row stays until cmdDel removes it.
    Dialogs::clearRecords();
    enter(rowOf(3), Number, "0");
    QVERIFY(Dialogs::records().isEmpty());
    QVERIFY(!m_screen->Editor_Open());
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(stored(0, "forename").toString(), QString("CARA"));
}

void TestScreen::other_cells_refuse_with_their_boxes()
{
    open();
    const int r = rowOf(2);
    enter(r, Forename, "");
    QCOMPARE(Dialogs::lastRecord().title, QString("Missing Data"));
    press(Qt::Key_Escape);
    enter(r, Age, "-4");
    QCOMPARE(Dialogs::lastRecord().text, QString("Value must be positive!"));
    press(Qt::Key_Escape);
    enter(r, First_Event + 2, "ZZ");
    QCOMPARE(Dialogs::lastRecord().text, QString("Invalid event! Use 'F2' for list"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Invalid Data"));
    press(Qt::Key_Escape);
    Dialogs::clearRecords();
    enter(r, Postcode, "ab1 2cd");
    QVERIFY(Dialogs::records().isEmpty());
    QCOMPARE(grid()->Text(r, Postcode), QString("AB1 2CD"));
    enter(r, Fee, "12.5");
    QCOMPARE(grid()->Text(r, Fee), QString("12.5"));
    QVERIFY(Dialogs::records().isEmpty());
}

void TestScreen::f2_lists_events_and_the_code_lands_in_the_cell()
{
    open();
    const int r = rowOf(1);
    go(r, Forename);
    press(Qt::Key_F2);   // below column 8: the plain editor
    QVERIFY(m_screen->Editor_Open());
    QVERIFY(!m_screen->FrameAG->isVisible());
    press(Qt::Key_Escape);

    go(r, First_Event + 1);
    press(Qt::Key_F2);
    QVERIFY(m_screen->FrameAG->isVisible());
    QCOMPARE(m_screen->FrameAG->title(), QString("Select Event"));
    QCOMPARE(m_screen->LstAG->count(), 3);
    QCOMPARE(m_screen->LstAG->item(0)->text(), QString(" Open"));
    QListWidgetItem *item = m_screen->LstAG->item(1);   // " Under 10"
    QTest::mouseClick(m_screen->LstAG->viewport(), Qt::LeftButton, {},
                      m_screen->LstAG->visualItemRect(item).center());
    QVERIFY(!m_screen->FrameAG->isVisible());
    QCOMPARE(grid()->Text(r, First_Event + 1), QString("B2"));
    QVERIFY(m_screen->Editor_Open());
    QCOMPARE(m_screen->txtEdit->text(), QString("B2"));
    press(Qt::Key_Tab);

    // From column 8 on, any column takes the code, even the town's neighbour.
    go(r, 11);
    press(Qt::Key_F2);
    QVERIFY(m_screen->FrameAG->isVisible());
    QTest::mouseClick(m_screen->CmdGroupCancel, Qt::LeftButton);
    QVERIFY(!m_screen->FrameAG->isVisible());

    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(events(1), QStringList({"A1", "B2"}));
    QCOMPARE(stored(1, "group_id2").toString(), QString("B2"));
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
}

void TestScreen::f2_marks_the_row_even_without_a_choice()
{
    open();
    go(rowOf(2), First_Event + 3);
    press(Qt::Key_F2);
    QTest::mouseClick(m_screen->CmdGroupCancel, Qt::LeftButton);
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(stored(2, "surname").toString(), QString("ABEL"));   // written again: upper case
    QCOMPARE(stored(1, "surname").toString(), QString("Watt"));   // not marked, not written
}

void TestScreen::emptied_event_cell_leaves_the_events_at_save()
{
    open();
    const int r = rowOf(2);
    go(r, First_Event);
    press(Qt::Key_Delete);
    QVERIFY(m_screen->Editor_Open());
    QVERIFY(m_screen->txtEdit->text().isEmpty());
    press(Qt::Key_Return);
    QVERIFY(!m_screen->Editor_Open());
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(events(2), QStringList({"CH"}));
    QVERIFY(stored(2, "group_id1").isNull());
}

void TestScreen::new_row_typed_and_saved()
{
    open();
    QTest::mouseClick(m_screen->CmdAdd, Qt::LeftButton);
    const int r = grid()->rowCount() - 1;
    QCOMPARE(grid()->Text(r, 0), QString::number(m_comp));
    QVERIFY(m_screen->Editor_Open());
    type("7");
    press(Qt::Key_Tab);
    type("Mhairi");
    press(Qt::Key_Tab);
    type("O'Brien");
    press(Qt::Key_Tab);
    go(r, First_Event);
    type("a1");
    press(Qt::Key_Tab);
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(stored(7, "surname").toString(), QString("O'Brien"));
    QCOMPARE(events(7), QStringList({"A1"}));
    QCOMPARE(shownNumbers(), QList<int>({7, 3, 2, 1}));
    QVERIFY(!m_screen->Dirty());
}

void TestScreen::cut_is_lost_at_the_refresh_after_a_save()
{
    open();
    go(rowOf(1), Surname);
    press(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(grid()->Text(rowOf(1), Surname), QString());
    enter(rowOf(3), Notes, "paid");
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(grid()->Text(rowOf(1), Surname), QString("Watt"));
    QCOMPARE(stored(1, "surname").toString(), QString("Watt"));
    QCOMPARE(stored(3, "notes").toString(), QString("paid"));
}

void TestScreen::search_filters_and_keeps_the_statement()
{
    open();
    search([&] {
        QCOMPARE(QApplication::focusWidget(), m_screen->SearchNo);
        m_screen->SearchAgeFrom->setText("8");   // From alone: that age only
    });
    QVERIFY(!m_screen->FrameSearch->isVisible());
    QCOMPARE(shownNumbers(), QList<int>({2}));
    search([&] { m_screen->SearchAgeTo->setText("8"); });   // To alone: every age
    QCOMPARE(shownNumbers(), QList<int>({3, 2, 1}));
    search([&] {
        m_screen->SearchOrder->setCurrentIndex(4);   // Surname!
        m_screen->SearchOrder->activated(4);
    });
    QCOMPARE(shownNumbers(), QList<int>({2, 3, 1}));
    search([&] {
        m_screen->Combo1->setCurrentIndex(0);
        m_screen->Combo1->activated(0);   // " Open" sorts first: CH
        m_screen->SearchForename->setText("ar");
    });
    QCOMPARE(shownNumbers(), QList<int>({3}));
    // A save refreshes with the search.
    enter(1, Notes, "found");
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(shownNumbers(), QList<int>({3}));
    QCOMPARE(stored(3, "notes").toString(), QString("found"));
    search([&] { m_screen->SearchTeacher->setText("x"); });
    QCOMPARE(shownNumbers(), QList<int>());
    QTest::mouseClick(m_screen->CmdViewSearch, Qt::LeftButton);
    QTest::mouseClick(m_screen->CmdCancelSearch, Qt::LeftButton);
    QVERIFY(!m_screen->FrameSearch->isVisible());
}

void TestScreen::registered_all_keeps_the_earlier_filter_until_reopened()
{
    open();
    auto choose = [&](const QString &text) {
        const int i = m_screen->Search_Registered->findText(text);
        m_screen->Search_Registered->setCurrentIndex(i);
        m_screen->Search_Registered->activated(i);
    };
    QTest::mouseClick(m_screen->CmdViewSearch, Qt::LeftButton);
    choose("Registered");
    choose("All");
    QTest::mouseClick(m_screen->CmdSearch, Qt::LeftButton);
    QCOMPARE(shownNumbers(), QList<int>({3, 1}));
    search([&] { choose("Not Registered"); });
    QCOMPARE(shownNumbers(), QList<int>());
    search([&] { choose("No Card!"); });
    QCOMPARE(shownNumbers(), QList<int>({2}));
    search([] {});   // opened anew: the filter is gone
    QCOMPARE(shownNumbers(), QList<int>({3, 2, 1}));
}

void TestScreen::winners_only_of_an_event()
{
    for (auto [n, placing] : {std::pair{2, 1}, std::pair{3, 7}})
        m_conn.execute("INSERT INTO highland_results(competition_id, group_id, competitor_id, placing) VALUES (?, 'CH', ?, ?)",
                       {m_comp, n, placing});
    open();
    search([&] {
        m_screen->Combo1->activated(0);
        m_screen->chk_winners->setChecked(true);
    });
    QCOMPARE(shownNumbers(), QList<int>({2}));
    QCOMPARE(m_screen->chk_winners->text(), QString("Show Champ Winners Only"));
    QCOMPARE(m_screen->chk_winners->toolTip(), QString("Show top 6 in championship only"));
    search([&] { m_screen->chk_winners->setChecked(true); });   // no event: any result
    QCOMPARE(shownNumbers(), QList<int>({3, 2}));
}

void TestScreen::a_broken_search_keeps_the_grid_usable()
{
    open();
    search([&] { m_screen->SearchNo->setText("abc"); });
    QCOMPARE(Dialogs::lastRecord().title, QString("Invalid Data"));
    QCOMPARE(shownNumbers(), QList<int>({3, 2, 1}));
    enter(rowOf(1), Notes, "still saves");
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(stored(1, "notes").toString(), QString("still saves"));
}

void TestScreen::delete_removes_record_and_results()
{
    for (const char *t : {"dance_results", "highland_results", "judges_results", "overall_dance_results", "tie_break",
                          "comp_judges_results", "overall_results", "national_results"})
        m_conn.execute(QString("INSERT INTO %1(competition_id, group_id, competitor_id) VALUES (?, 'CH', 2)").arg(t),
                       {m_comp});
    open();
    go(rowOf(2), Surname);
    grid()->setItem(0, 3, new QTableWidgetItem("x"));   // captions come back after every click
    Dialogs::queueAnswer(vbNo);
    QTest::mouseClick(m_screen->cmdDel, Qt::LeftButton);
    QCOMPARE(Dialogs::lastRecord().text,
             QString("Are you sure you want to delete entry? \nIt will also delete entry from any results."));
    QCOMPARE(Dialogs::lastRecord().title, QString("Deletion Confirmation"));
    QCOMPARE(grid()->Text(0, 3), QString("Surname"));
    QCOMPARE(Fixture::Count(m_conn, "competitors"), 3);

    go(rowOf(2), Surname);
    Dialogs::queueAnswer(vbYes);
    QTest::mouseClick(m_screen->cmdDel, Qt::LeftButton);
    QCOMPARE(shownNumbers(), QList<int>({3, 1}));
    QVERIFY(stored(2, "forename").isNull());
    QCOMPARE(Fixture::Count(m_conn, "competitor_groups", "competitor_id = 2"), 0);
    QCOMPARE(Fixture::Count(m_conn, "highland_results"), 0);
    QCOMPARE(Fixture::Count(m_conn, "tie_break"), 0);
    QCOMPARE(Fixture::Count(m_conn, "comp_judges_results"), 1);   // the mark screen reconciles these
    QCOMPARE(Fixture::Count(m_conn, "overall_results"), 1);
}

void TestScreen::an_edit_past_row_1500_gets_the_handler_box()
{
    {
        Transaction t(m_conn);
        for (int n = 4; n <= 1501; ++n)
            m_conn.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname) VALUES (?,?,'A','B')",
                           {m_comp, n});
    }
    open();
    QCOMPARE(grid()->rowCount(), 1502);
    enter(1500, Notes, "fits");
    QVERIFY(!m_screen->Editor_Open());
    enter(1501, Notes, "no room");
    QCOMPARE(Dialogs::lastRecord().text, QString("Invalid Number! Re-enter or Hit <Escape> to exit"));
    QCOMPARE(Dialogs::lastRecord().title, QString("Data Error"));
    QVERIFY(m_screen->Editor_Open());
    press(Qt::Key_Escape);
    QTest::mouseClick(m_screen->CmdSave, Qt::LeftButton);
    QCOMPARE(Dialogs::lastRecord().text, QString("Changes Saved!"));
    QCOMPARE(m_conn.scalar("SELECT notes FROM competitors WHERE competitor_id = 2").toString(), QString("fits"));
}

QTEST_MAIN(TestScreen)
#include "test_screen.moc"
