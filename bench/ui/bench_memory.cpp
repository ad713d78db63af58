// Peak resident memory of a run that opens every screen of the menu once on
// the 1,500-dancer competition, beside the same program with the main window
// alone and no screen opened.
#include "../bench_common.h"
#include "../bench_season.h"

#include "app/screens.h"
#include "core/dialogs.h"
#include "ui/frmMain.h"

#include <QApplication>

#include <sys/resource.h>

namespace {

double Peak_Mb()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss / 1024.0;
}

} // namespace

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
        Bench::Build_Season(conn, 0);
    }
    Register_All_Screens();
    frmMain main;
    main.resize(1366, 749);
    main.show();
    QCoreApplication::processEvents();
    const double bare = Peak_Mb();
    const QStringList items = {"mnucompetitors", "mnuevents", "mnuAgeGroup", "mnusections", "mnudances", "mnujudges",
                               "mnuCompetition", "mnuTallier", "mnuHTML", "mnubrogard", "mnusplit", "mnuregistration",
                               "mnuTallierPrem", "mnubackup", "mnurestore", "mnuImport", "mnustewards", "mnuteachers",
                               "mnuonlinereg", "mnusettings", "mnuCompetitionWizard", "mnutrophy", "mnuoverall"};
    int opened = 0;
    for (const QString &item : items) {
        if (main.Open_Screen(item))
            ++opened;
        QCoreApplication::processEvents();
    }
    const double peak = Peak_Mb();
    std::printf("Every screen opened once (%d of %lld items opened a screen) on %d dancers\n", opened,
                qlonglong(items.size()), Bench::Season_Dancers);
    std::printf("  %-46s %9.1f MB  main window alone %6.1f MB  (goal < 80 MB) %s\n", "peak resident memory", peak, bare,
                peak < 80 ? "ok" : "OVER");
    return peak < 80 ? 0 : 2;
}
