// Mark screens under a main window maximised on a 1366x768 display: result
// grids hold seven prize-winners and never scroll sideways, event lists show
// their longest entry whole, and the dance frame keeps its caption.
#include "tally/competition/screen/FrmTallyComp.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "support/fixtures.h"
#include "support/test_env.h"
#include "core/globals.h"
#include "ui/frmMain.h"
#include "ui/grid/flex_grid.h"
#include <QtTest>
#include <QtWidgets>

class TestScreenFit : public QObject
{
    Q_OBJECT
private slots:
    void fits_data()
    {
        QTest::addColumn<QStringList>("step");   // menu item, event picked, control
        for (const char *row : {"mnuCompetition|Juvenile|GrdODR", "mnuCompetition|Juvenile|GrdOR", "mnuCompetition|Juvenile|GrdHR",
                                "mnuCompetition|Juvenile|GrdNR", "mnuCompetition||Frame1", "mnuCompetition|Novice|Frame1",
                                "mnuTallierPrem||LstGroup", "mnuTallier||LstGroup"})
            QTest::newRow(row) << QString(row).split('|');
    }
    void fits()
    {
        QFETCH(QStringList, step);
        TestDataFolder env;
        Connection c;
        c.open();
        Current_Competition_Id = Fixture::Competition(c, "Strathmore Games");
        for (const char *e : {"J:Juvenile:PRI", "N:Novice:E", "P:Premiership 12 & Over STRATHMORE & DISTRICT OPEN:PS", "C:Championship 14 & Over STRATHMORE & DISTRICT OPEN:C"})
            Fixture::Event(c, 1, QString(e).section(':', 0, 0), QString(e).section(':', 1, 1), QString(e).section(':', 2));
        frmMain::Register_Screen("mnuCompetition", [] { return new FrmTallyComp; });
        frmMain::Register_Screen("mnuTallierPrem", [] { return new ThreeJudgeScreen(Premiership_Kind()); });
        frmMain::Register_Screen("mnuTallier", [] { return new ThreeJudgeScreen(Championship_Kind()); });
        frmMain main;
        main.resize(1366, 749);   // the inside of the maximised window, below its title bar
        main.show();
        QWidget *s = main.Open_Screen(step[0]);
        if (auto *list = s->findChild<QListWidget *>("LstGroup"); !step[1].isEmpty())
            list->setCurrentRow(list->row(list->findItems(step[1], Qt::MatchExactly).value(0)));
        QTest::qWait(300);
        QWidget *w = s->findChild<QWidget *>(step[2]);
        if (auto *grid = qobject_cast<FlexGrid *>(w))
            QVERIFY(grid->viewport()->height() >= 8 * grid->rowHeight(0) && !grid->horizontalScrollBar()->isVisible()
                    && grid->horizontalHeader()->length() <= grid->viewport()->width());
        else if (auto *list = qobject_cast<QListWidget *>(w))
            QVERIFY(list->viewport()->width() >= list->sizeHintForColumn(0) && !list->horizontalScrollBar()->isVisible());
        else
            QVERIFY(w->height() >= w->minimumSizeHint().height() && w->width() >= w->minimumSizeHint().width());
    }
};

QTEST_MAIN(TestScreenFit)
#include "test_screen_fit.moc"
