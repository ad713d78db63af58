// The mark grid of a Championship of 300 dancers and three judges: a refresh
// (query and fill) beside the statements it runs done bare on the same
// connection.
#include "../bench_common.h"
#include "../bench_season.h"

#include "core/dialogs.h"
#include "tally/three_judge/screen/three_judge_kind.h"
#include "tally/three_judge/screen/three_judge_screen.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QListWidget>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    if (!Bench::Use_Data_Dir(dir)) {
        std::fprintf(stderr, "cannot lay the prepared database\n");
        return 1;
    }
    Dialogs::setScripted(true);
    {
        Connection conn;
        conn.open();
        Transaction t(conn);
        // 1500 dancers, every fifth in the one Championship: 300 in it.
        Current_Competition_Id = Bench::New_Competition(conn, QStringLiteral("Bench Championships"));
        Bench::Make_Events(conn, Current_Competition_Id, Bench::Season_Dancers, 53);
    }
    ThreeJudgeScreen screen(Championship_Kind());
    screen.resize(1280, 860);
    screen.show();
    QCoreApplication::processEvents();
    for (int i = 0; i < screen.LstGroup->count(); ++i)
        if (screen.LstGroup->item(i)->text().contains(QLatin1String("53"))) {
            screen.LstGroup->setCurrentRow(i);
            screen.LstGroup_Click();
        }
    screen.Dance_Button_Click(1);
    QCoreApplication::processEvents();
    const int rows = screen.MSFlexGrid1->rowCount() - screen.MSFlexGrid1->Fixed_Rows();
    std::printf("Mark grid of a Championship, %d dancers, three judges\n", rows);
    if (rows != Bench::Season_Dancers / 5) {
        std::fprintf(stderr, "expected %d rows in the grid\n", Bench::Season_Dancers / 5);
        return 1;
    }
    QList<QByteArray> statements;
    {
        Bench::Statement_Log log(screen.conn().handle());
        screen.Refresh_Grid();
        statements = log.statements;
    }
    sqlite3 *db = screen.conn().handle();
    Bench::Print("mark grid refreshed: query and fill of 300 rows", Bench::Alternate([&] { screen.Refresh_Grid(); }, [&] {
                     for (const QByteArray &s : statements)
                         Bench::Bare_Query(db, s);
                 }),
                 3.0);
    screen.Set_Dirty(false);
    screen.close();
    return 0;
}
