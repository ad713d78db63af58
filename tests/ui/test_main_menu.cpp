// The main window's menu, the competition guard, screens under the menu and
// the competition selection.
#include "sample_grid.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "ui/competition_list.h"
#include "ui/frmMain.h"
#include "ui/frmSelectCompetition.h"
#include "ui/grid/flex_grid.h"
#include "ui/screen.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QtTest>

namespace {

// A stand-in for a screen another part of the program supplies.
class PlainScreen : public Screen
{
public:
    explicit PlainScreen(const QString &name) : Screen(name, name) { Open_Connection(); }
};

void registerStandIns()
{
    frmMain::Register_Screen("mnuevents", [] { return new PlainScreen("FrmEvents"); });
    frmMain::Register_Screen("mnuAgeGroup", [] { return new PlainScreen("frmgroups"); });
    frmMain::Register_Screen("mnudances", [] { return new PlainScreen("frmdances"); });
}

QString lastUpdate()
{
    Connection c;
    c.open();
    return c.scalar("SELECT last_update FROM db_info").toString();
}

void ageStamp()
{
    Connection c;
    c.open();
    c.execute("UPDATE db_info SET last_update = '2000-01-01 00:00:00'");
}

QStringList openScreens(frmMain &main)
{
    QStringList names;
    for (QMdiSubWindow *w : main.mdiArea()->subWindowList(QMdiArea::CreationOrder))
        names << w->widget()->objectName();
    return names;
}

} // namespace

class TestMainMenu : public QObject
{
    Q_OBJECT
private slots:
    void guard_opens_competitions_then_the_selection();
    void selected_competition_opens_the_target_and_stamps();
    void screens_open_full_size_several_at_once_and_esc_closes();
    void selection_list_in_name_order_and_click_selects();
    void grid_screen_under_the_menu_keeps_its_editor_on_a_refused_click();
    void a_screen_whose_save_fails_keeps_the_program_running();
};

void TestMainMenu::guard_opens_competitions_then_the_selection()
{
    TestDataFolder env;
    registerStandIns();
    ageStamp();
    frmMain main;
    main.show();
    main.Menu_Action("mnuAgeGroup")->trigger();
    QCOMPARE(Dialogs::texts(), QStringList{"You are required to create a new competition first!"});
    QCOMPARE(Dialogs::lastRecord().title, QString("Select Competition"));
    QCOMPARE(Dialogs::lastRecord().style, int(vbExclamation));
    QCOMPARE(openScreens(main), QStringList{"FrmEvents"});
    // The file is stamped though the screen asked for was not opened.
    QVERIFY(lastUpdate() > QString("2026"));
    main.mdiArea()->closeAllSubWindows();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    Connection c;
    c.open();
    Fixture::Competition(c, "Braemar", "2026");
    Dialogs::clearRecords();
    main.Menu_Action("mnuAgeGroup")->trigger();
    QCOMPARE(Dialogs::texts(), QStringList{"You are required to select an existing competition first!"});
    QCOMPARE(openScreens(main), QStringList{"frmSelectCompetition"});
    // A stale id counts as selected: the screen opens, empty.
    Dialogs::clearRecords();
    Current_Competition_Id = 99;
    main.Menu_Action("mnuAgeGroup")->trigger();
    QVERIFY(Dialogs::records().isEmpty());
    QCOMPARE(openScreens(main), QStringList({"frmSelectCompetition", "frmgroups"}));
}

void TestMainMenu::selected_competition_opens_the_target_and_stamps()
{
    TestDataFolder env;
    registerStandIns();
    short id = 0;
    {
        Connection c;
        c.open();
        id = Fixture::Competition(c);
    }
    frmMain main;
    main.show();
    // Selecting a competition leaves the stamp alone.
    ageStamp();
    main.Menu_Action("mnuSelectCompetition")->trigger();
    QCOMPARE(lastUpdate(), QString("2000-01-01 00:00:00"));
    auto *select = qobject_cast<frmSelectCompetition *>(main.Open_Screen_Of("mnuSelectCompetition"));
    QVERIFY(select);
    QTest::mouseClick(select->LstComp->viewport(), Qt::LeftButton, Qt::NoModifier,
                      select->LstComp->visualItemRect(select->LstComp->item(0)).center());
    QCOMPARE(Current_Competition_Id, id);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(openScreens(main).isEmpty());

    main.Menu_Action("mnuAgeGroup")->trigger();
    QVERIFY(Dialogs::records().isEmpty());
    QCOMPARE(openScreens(main), QStringList{"frmgroups"});
    QVERIFY(lastUpdate() > QString("2026"));
    // An item that needs no competition opens straight away too.
    ageStamp();
    main.Menu_Action("mnudances")->trigger();
    QCOMPARE(openScreens(main), QStringList({"frmgroups", "frmdances"}));
    QVERIFY(lastUpdate() > QString("2026"));
}

void TestMainMenu::screens_open_full_size_several_at_once_and_esc_closes()
{
    TestDataFolder env;
    registerStandIns();
    frmMain main;
    main.resize(900, 700);
    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    QWidget *dances = main.Open_Screen("mnudances");
    QWidget *events = main.Open_Screen("mnuevents");
    QVERIFY(dances && events);
    auto *eventsScreen = static_cast<Screen *>(events);
    auto *dancesScreen = static_cast<Screen *>(dances);
    QVERIFY(eventsScreen->conn().isOpen());
    QVERIFY(dancesScreen->conn().isOpen());
    QVERIFY(&eventsScreen->conn() != &dancesScreen->conn());
    QMdiSubWindow *front = main.mdiArea()->activeSubWindow();
    QCOMPARE(front->widget(), events);
    QVERIFY(front->isMaximized());
    // Asking again for an open screen brings it to the front.
    QCOMPARE(main.Open_Screen("mnudances"), dances);
    QCOMPARE(main.mdiArea()->subWindowList().size(), 2);
    QCOMPARE(main.mdiArea()->activeSubWindow()->widget(), dances);

    // Esc closes the screen in front, and only that one.
    QPointer<QWidget> gone = dances;
    dances->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(gone.isNull());
    QCOMPARE(openScreens(main), QStringList{"FrmEvents"});
    // Esc that reaches the main window closes the screen in front as well.
    main.mdiArea()->setActiveSubWindow(main.mdiArea()->subWindowList().first());
    QTest::keyClick(&main, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(openScreens(main).isEmpty());

    // A screen that closes itself takes its frame along, and unloads once.
    auto *again = static_cast<Screen *>(main.Open_Screen("mnuevents"));
    again->close();
    QVERIFY(!again->conn().isOpen());
    QTest::qWait(10);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(main.mdiArea()->subWindowList().isEmpty());
}

void TestMainMenu::selection_list_in_name_order_and_click_selects()
{
    TestDataFolder env;
    {
        Connection c;
        c.open();
        for (const char *v : {"('2024 Cowal','01/08/2024')", "('2026 Braemar','06/09/2026')", "('2025 Cowal','28/08/2025')",
                              "('2026 Braemar','05/09/2026')", "('aboyne','02/08/2026')", "('Luss',NULL)"})
            c.execute(QString("INSERT INTO competitions(competition_name, competition_date) VALUES ") + v);
    }
    frmSelectCompetition screen;
    screen.show();
    QStringList shown;
    for (int i = 0; i < screen.LstComp->count(); ++i)
        shown << screen.LstComp->item(i)->text();
    // Name descending, letters before digits and regardless of case; same name by date.
    QCOMPARE(shown, QStringList({"Luss ", "aboyne 02/08/2026", "2026 Braemar 05/09/2026", "2026 Braemar 06/09/2026",
                                 "2025 Cowal 28/08/2025", "2024 Cowal 01/08/2024"}));
    QCOMPARE(screen.LstComp->item(2)->data(Qt::UserRole).toInt(), 4);

    QTest::mouseClick(screen.LstComp->viewport(), Qt::LeftButton, Qt::NoModifier,
                      screen.LstComp->visualItemRect(screen.LstComp->item(3)).center());
    QCOMPARE(Current_Competition_Id, short(2));
    QCOMPARE(Current_Competition_Name, QString("2026 Braemar"));
    QCOMPARE(Current_Competition_Date, QString("06/09/2026"));
    QVERIFY(!screen.isVisible());
    QVERIFY(!screen.conn().isOpen());
    QVERIFY(Dialogs::records().isEmpty());
}

void TestMainMenu::grid_screen_under_the_menu_keeps_its_editor_on_a_refused_click()
{
    TestDataFolder env;
    {
        Connection c;
        c.open();
        Fixture::Competition(c, "One", "d1");
        Fixture::Competition(c, "Two", "d2");
    }
    frmMain::Register_Screen("mnuevents", [] { return new frmSample; });
    frmMain main;
    main.resize(900, 700);
    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    auto *grid = static_cast<GridScreen *>(main.Open_Screen("mnuevents"));
    QCoreApplication::processEvents();
    grid->MSFlexGrid1->setFocus();
    grid->Go_To(1, 1);
    QTest::keyClick(grid->MSFlexGrid1, Qt::Key_Delete);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(grid->txtEdit));
    const QPoint two = grid->MSFlexGrid1->visualRect(grid->MSFlexGrid1->model()->index(2, 2)).center();
    QTest::mouseClick(grid->MSFlexGrid1->viewport(), Qt::LeftButton, Qt::NoModifier, two);
    QCoreApplication::processEvents();
    QCOMPARE(Dialogs::lastRecord().text, QString("Name and date are required!"));
    QVERIFY(grid->Editor_Open());
    QCOMPARE(grid->Current_Row(), 1);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(grid->txtEdit));
    QTest::keyClick(grid->txtEdit, Qt::Key_Z);
    QTest::mouseClick(grid->MSFlexGrid1->viewport(), Qt::LeftButton, Qt::NoModifier, two);
    QCoreApplication::processEvents();
    QVERIFY(!grid->Editor_Open());
    QCOMPARE(grid->Cell(1, 1), QString("z"));
    QCOMPARE(grid->Current_Row(), 2);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget *>(grid->MSFlexGrid1));
    grid->Set_Dirty(false);
}

void TestMainMenu::a_screen_whose_save_fails_keeps_the_program_running()
{
    TestDataFolder env;
    frmMain::Register_Screen("mnuevents", [] { return new frmSample; });
    frmMain main;
    main.show();
    auto *grid = static_cast<GridScreen *>(main.Open_Screen("mnuevents"));
    // A new competition whose quote breaks its INSERT.
    grid->Set_Cell(1, 1, "O'Hara");
    grid->Set_Cell(1, 2, "d1");
    grid->Set_Dirty(true);
    Dialogs::queueAnswer(vbYes);
    QVERIFY(!main.close());
    QVERIFY(main.isVisible());
    QCOMPARE(main.mdiArea()->subWindowList().size(), 1);
    QCOMPARE(Dialogs::texts().first(), QString("Do you want to save your changes? "));
    QVERIFY(!Dialogs::texts().contains("Database compacted and backed up!"));

    // Answered No, the screen goes unsaved and the run ends as usual.
    Dialogs::clearRecords();
    Dialogs::queueAnswer(vbNo);
    QVERIFY(main.close());
    QCOMPARE(Dialogs::texts(), QStringList({"Do you want to save your changes? ", "Database compacted and backed up!"}));
    Connection c;
    c.open();
    QCOMPARE(Fixture::Count(c, "competitions"), 0);
}

QTEST_MAIN(TestMainMenu)
#include "test_main_menu.moc"
