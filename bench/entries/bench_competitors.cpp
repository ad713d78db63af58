// The competitors screen with 1500 dancers: a refresh of its grid (query and
// fill) and two saves, each beside the statements it runs done bare on the
// same connection.
// Usage: bench_competitors [--shot file.png]
#include "entries/competitor_columns.h"
#include "entries/frmCompetitors.h"

#include "core/db.h"
#include "core/dialogs.h"
#include "core/globals.h"
#include "core/pause.h"
#include "ui/grid/flex_grid.h"

#include "../bench_common.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

const int Dancers = 1500;

short Build_Competition(Connection &conn)
{
    Transaction t(conn);
    conn.execute("INSERT INTO competitions(competition_name, competition_date) VALUES ('Bench Games', '01/08/2026')");
    const short comp = static_cast<short>(conn.lastInsertId());
    const QStringList codes = {"P1", "P2", "B1", "B2", "I1", "I2", "CH", "PS"};
    const QStringList names = {"Primary 6 & Under", "Primary 7 & Over", "Beginner 8 & Under", "Beginner 9 & Over",
                               "Intermediate 12 & Under", "Intermediate 13 & Over", "Open", "Premiership"};
    for (int i = 0; i < codes.size(); ++i)
        conn.execute("INSERT INTO age_groups(competition_id, competition_group_id, age_group, category) VALUES (?,?,?,?)",
                     {comp, codes[i], names[i], i == 6 ? "C" : i == 7 ? "PS" : "H"});
    const QStringList forenames = {"Amy", "Beth", "Cara", "Dana", "Eilidh", "Fiona", "Greer", "Heather", "Isla", "Jenna"};
    const QStringList surnames = {"Watt", "Abel", "Mair", "Kerr", "Ross", "Munro", "Grant", "Fraser", "Reid", "O'Neil"};
    const QStringList towns = {"Oban", "Perth", "Inverness", "Aberdeen", "Dundee", "Stirling"};
    for (int n = 1; n <= Dancers; ++n) {
        QVariantList v{comp, n, forenames[n % 10], surnames[(n / 10) % 10], 6 + n % 15,
                       QString("%1 High Street").arg(n), towns[n % 6], QString("PH%1 1AB").arg(n % 50), 12.5,
                       "01/06/2026", QString("Teacher %1").arg(n % 40)};
        QStringList entered;
        for (int k = 0; k < 1 + n % 4; ++k)
            entered << codes[(n + 2 * k) % codes.size()];
        for (int k = 0; k < 8; ++k)
            v << (k < entered.size() ? QVariant(entered[k]) : QVariant());
        conn.execute("INSERT INTO competitors(competition_id, competitor_id, forename, surname, age, address1, town, "
                     "postcode, fee, date_received, teacher, group_id1, group_id2, group_id3, group_id4, group_id5, "
                     "group_id6, group_id7, group_id8) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                     v);
        for (const QString &e : entered)
            conn.execute("INSERT INTO competitor_groups(competition_id, competitor_id, group_id) VALUES (?,?,?)",
                         {comp, n, e});
    }
    return comp;
}

// One edit as the operator makes it: the editor opened on a cell, a text
// typed, the cell left through validation.
void Edit_Cell(frmCompetitors &screen, int row, int col, const QString &text)
{
    screen.MSFlexGrid1->setCurrentCell(row, col);
    screen.Begin_Edit(QStringLiteral("DEL"));
    screen.txtEdit->setText(text);
    if (!screen.Validate_Cell())
        std::fprintf(stderr, "edit refused: %s\n", qPrintable(Dialogs::lastRecord().text));
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QString shot;
    for (int i = 1; i + 1 < argc; ++i)
        if (QString::fromLocal8Bit(argv[i]) == QLatin1String("--shot"))
            shot = QString::fromLocal8Bit(argv[i + 1]);

    QTemporaryDir dir;
    if (!dir.isValid() || !QFile::copy(QStringLiteral(STRATHMARK_PREPARED_DB), dir.filePath(DB_FILE))) {
        std::fprintf(stderr, "cannot copy the prepared database\n");
        return 1;
    }
    QFile::setPermissions(dir.filePath(DB_FILE), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    Data_Dir = dir.path() + QLatin1Char('/');
    Db_Password = QString::fromLatin1(DB_PASSWORD_CONSTANT);
    Dialogs::setScripted(true);
    Set_Pause_Scale(0);

    Connection conn;
    conn.open();
    QElapsedTimer build;
    build.start();
    Current_Competition_Id = Build_Competition(conn);
    std::printf("Competitors screen, %d dancers (%d entries), built in %.0f ms\n", Dancers,
                conn.scalar("SELECT count(*) FROM competitor_groups").toInt(), build.nsecsElapsed() / 1e6);

    std::unique_ptr<frmCompetitors> screen;
    const double opened = Bench::Median([&] {
        std::vector<double> ms;
        for (int i = 0; i < 5; ++i) {
            screen.reset();
            ms.push_back(Bench::Ms_Of([&] { screen = std::make_unique<frmCompetitors>(); }));
        }
        return ms;
    }());
    screen->setWindowState(Qt::WindowNoState);
    screen->resize(1280, 860);
    screen->show();
    QCoreApplication::processEvents();
    if (screen->MSFlexGrid1->rowCount() != Dancers + 1) {
        std::fprintf(stderr, "expected %d rows, grid has %d\n", Dancers, screen->MSFlexGrid1->rowCount() - 1);
        return 1;
    }
    // The bare twin: the statements a refresh runs, on the screen's own connection.
    QList<QByteArray> statements;
    {
        Bench::Statement_Log log(screen->conn().handle());
        screen->Refresh_Grid();
        statements = log.statements;
    }
    sqlite3 *db = screen->conn().handle();
    const Bench::Pair refresh = Bench::Alternate([&] { screen->Refresh_Grid(); }, [&] {
        for (const QByteArray &s : statements)
            Bench::Bare_Query(db, s);
    });
    std::printf("  (%lld statements a refresh; a connection opened: %.1f ms; screen opened: %.1f ms)\n",
                qlonglong(statements.size()), Bench::Ms_Of([] {
                    Connection c;
                    c.open();
                }),
                opened);
    Bench::Print("grid refreshed: query and fill of 1500 rows", refresh, 3.0);

    // A save of one edited row: the write, the refresh and the box, beside
    // the statements it runs, bare in one transaction.
    int n = 0;
    const auto edit = [&] { Edit_Cell(*screen, 700, 12, QStringLiteral("paid %1").arg(++n)); };
    {
        edit();
        Bench::Statement_Log log(db);
        screen->Save_Changes();
        statements = log.statements;
    }
    Bench::Print("save after editing one row (write, refresh)",
                 Bench::Alternate([&] { screen->Save_Changes(); }, [&] { Bench::Bare_Run(db, statements); }, 7, edit),
                 3.0);
    if (!shot.isEmpty()) {  // before the all-rows save upper-cases every name
        screen->MSFlexGrid1->setCurrentCell(1, 2);
        screen->MSFlexGrid1->setFocus();
        QCoreApplication::processEvents();
        screen->grab().save(shot);
        std::printf("screenshot: %s\n", qPrintable(shot));
        // The same with the search panel open and the event list on F2.
        screen->CmdViewSearch_Click();
        screen->MSFlexGrid1->setCurrentCell(3, 18);
        QKeyEvent f2(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier);
        QCoreApplication::sendEvent(screen->MSFlexGrid1, &f2);
        QCoreApplication::processEvents();
        const QString panels = QString(shot).replace(QLatin1String(".png"), QLatin1String("_panels.png"));
        screen->grab().save(panels);
        std::printf("screenshot: %s\n", qPrintable(panels));
        screen->CmdGroupCancel_Click();
        screen->CmdCancelSearch_Click();
    }
    const auto markAll = [&] {
        for (int r = 1; r <= Dancers; ++r)
            screen->Rules().marks().set(r);
    };
    {
        markAll();
        Bench::Statement_Log log(db);
        screen->Save_Changes();
        statements = log.statements;
    }
    Bench::Print("save with all 1500 rows marked",
                 Bench::Alternate([&] { screen->Save_Changes(); }, [&] { Bench::Bare_Run(db, statements); }, 5, markAll),
                 3.0);
    if (Dialogs::lastRecord().text != QLatin1String("Changes Saved!")) {
        std::fprintf(stderr, "save failed: %s\n", qPrintable(Dialogs::lastRecord().text));
        return 1;
    }

    screen->Set_Dirty(false);
    screen->close();
    return 0;
}
