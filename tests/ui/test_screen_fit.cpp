// Screens under a main window maximised on a 1366x768 display: result grids
// show seven prize-winners and never scroll sideways, event lists show their
// longest entry whole, and the dance frame keeps its caption.
#include "entries/frmCompetitors.h"
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/globals.h"
#include "ui/frmMain.h"
#include "ui/grid/flex_grid.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QtTest>

class TestScreenFit : public QObject
{
    Q_OBJECT
private slots:
    void fits_data();
    void fits();
};

void TestScreenFit::fits_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("event");     // picked and tallied dance by dance; empty for none
    QTest::addColumn<QString>("control");
    for (const char *grid : {"GrdODR", "GrdOR", "GrdHR", "GrdNR"})
        QTest::newRow(grid) << "mnuCompetition" << "Intermediate 10-12" << grid;
    QTest::newRow("dance frame, no event") << "mnuCompetition" << "" << "Frame1";
    QTest::newRow("dance frame, no dances") << "mnuCompetition" << "Novice (no dances yet)" << "Frame1";
    QTest::newRow("Premiership events") << "mnuTallierPrem" << "" << "LstGroup";
    QTest::newRow("Championship events") << "mnuTallier" << "" << "LstGroup";
    QTest::newRow("competitors' F2 events") << "mnucompetitors" << "" << "LstAG";
}

void TestScreenFit::fits()
{
    QFETCH(QString, item);
    QFETCH(QString, event);
    QFETCH(QString, control);
    TestDataFolder env;
    Connection c;
    c.open();
    Current_Competition_Id = Fixture::Competition(c, "Strathmore Games");
    c.execute("INSERT INTO categories(competition_id, category_id, category) VALUES (1, 'MX', 'Mixed'), (1, 'E', 'Empty')");
    Fixture::Category_Dances(c, 1, "MX", {1, 2, 8, 9});
    Fixture::Category_Dances(c, 1, "PS", {1, 2, 3, 4});
    for (const char *e : {"IN:Intermediate 10-12:MX", "NV:Novice (no dances yet):E", "P:Premiership 12 & Over:PS", "C:Championship 14 & Over:C"})
        Fixture::Event(c, 1, QString(e).section(':', 0, 0), QString(e).section(':', 1, 1), QString(e).section(':', 2), 6, "Y");
    c.execute("UPDATE age_groups SET championship_title = 'STRATHMORE & DISTRICT OPEN'");
    for (int n = 101; n <= 112; ++n)
        Fixture::Competitor(c, 1, n, n % 3 ? "Isla" : "Mhairi-Catriona", n % 2 ? "O'Neill" : "MacGillivray-Robertson", {"IN", "P", "C"});
    frmMain::Register_Screen("mnuCompetition", [] { return new FrmTallyComp; });
    frmMain::Register_Screen("mnuTallierPrem", [] { return new ThreeJudgeScreen(Premiership_Kind()); });
    frmMain::Register_Screen("mnuTallier", [] { return new ThreeJudgeScreen(Championship_Kind()); });
    frmMain::Register_Screen("mnucompetitors", [] { return new frmCompetitors; });
    frmMain main;
    main.resize(1366, 749);   // the inside of the maximised window, below its title bar
    main.show();
    QWidget *s = main.Open_Screen(item);
    QTest::qWait(200);
    if (auto *list = s->findChild<QListWidget *>("LstGroup"); !event.isEmpty()) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->findItems(event, Qt::MatchExactly).value(0)).center());
        c.execute("UPDATE comp_judges_results SET points_awarded1 = 60 + (competitor_id * 37 + dance_id * 11) % 29");
        for (QPushButton *dance : s->findChildren<QPushButton *>(QRegularExpression("^Cmd\\d+$")))
            if (dance->isVisible())
                QTest::mouseClick(dance, Qt::LeftButton), QTest::mouseClick(s->findChild<QPushButton *>("CmdTally"), Qt::LeftButton);
    }
    if (auto *grid = s->findChild<FlexGrid *>("MSFlexGrid1"); item == "mnucompetitors")
        grid->setFocus(), grid->setCurrentCell(1, 8), QTest::keyClick(grid, Qt::Key_F2);
    QTest::qWait(300);
    QWidget *w = s->findChild<QWidget *>(control);
    if (auto *grid = qobject_cast<FlexGrid *>(w)) {
        QVERIFY2(grid->rowCount() > 6 || event.isEmpty(), "the event was tallied");
        QVERIFY(grid->viewport()->height() >= 8 * grid->rowHeight(0));
        QVERIFY(grid->horizontalHeader()->length() <= grid->viewport()->width() && !grid->horizontalScrollBar()->isVisible());
    } else if (auto *list = qobject_cast<QListWidget *>(w)) {
        QVERIFY(list->count() > 0);
        QVERIFY2(list->viewport()->width() >= list->sizeHintForColumn(0), qPrintable(QString::number(list->viewport()->width())));
        QVERIFY(!list->horizontalScrollBar()->isVisible());
    } else {
        QVERIFY(w->height() >= w->minimumSizeHint().height() && w->width() >= w->minimumSizeHint().width());
    }
}

QTEST_MAIN(TestScreenFit)
#include "test_screen_fit.moc"
