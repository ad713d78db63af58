// Create Pages of both editions of the results site for the competition of
// the day (60 events, 1,500 dancers, every event tallied), each beside the
// queries it runs done bare on the same connection.
#include "../bench_common.h"
#include "../bench_season.h"

#include "core/dialogs.h"
#include "publish/FrmHTML2.h"
#include "publish/frmbrogard.h"

#include <QApplication>
#include <QDirIterator>
#include <QPushButton>

namespace {

int Files_Under(const QString &dir)
{
    int n = 0;
    for (QDirIterator it(dir, QDir::Files, QDirIterator::Subdirectories); it.hasNext(); it.next())
        ++n;
    return n;
}

bool Time_Edition(Site_Screen &screen, const char *what)
{
    // The buttons as the operator presses them.
    QPushButton *run = screen.findChild<QPushButton *>(QStringLiteral("CmdRun"));
    screen.findChild<QPushButton *>(QStringLiteral("CmdSel"))->click();
    QList<QByteArray> statements;
    {
        Bench::Statement_Log log(screen.conn().handle());
        run->click();
        statements = log.statements;
    }
    if (!Dialogs::lastRecord().text.startsWith(QLatin1String("HTML files created"))) {
        std::fprintf(stderr, "%s: %s\n", what, qPrintable(Dialogs::lastRecord().text));
        return false;
    }
    sqlite3 *db = screen.conn().handle();
    std::printf("  (%s: %lld queries, %d files)\n", what, qlonglong(statements.size()), Files_Under(Data_Dir + "Html"));
    return Bench::Print(what, Bench::Alternate([&] { run->click(); }, [&] {
                            for (const QByteArray &s : statements)
                                Bench::Bare_Query(db, s);
                        }),
                        3.0);
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
    std::printf("Create Pages, %d events, %d dancers\n", Bench::Season_Events, Bench::Season_Dancers);
    FrmHTML2 results;
    frmbrogard hosted;
    const bool ok = Time_Edition(results, "results site: Create Pages") & Time_Edition(hosted, "hosted site: Create Pages");
    return ok ? 0 : 2;
}
