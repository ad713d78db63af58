// One start-up's database work on the file of a season (the 1,500-dancer
// competition of the day and earlier ones): the checks, the open, the upgrade
// ladder, the options, the stamp, then two compactions with their backup and
// renames; beside two bare sqlcipher_export runs of the same file on the C API.
#include "../bench_common.h"
#include "../bench_season.h"

#include "core/database_file.h"
#include "core/prepared_file.h"

#include <QFileInfo>

namespace {

// The program's start, up to the main window, less the windows.
void Start_Up()
{
    Finish_Interrupted_Compaction();
    Adopt_Database_Name();
    Lay_Prepared_Database(QString());
    Connection conn;
    if (!Open_Database(conn) || Check_Data_Folder() != Folder_Problem::None)
        throw AppError(QStringLiteral("Unable to open database ") + Data_Dir);
    Upgrade_Database(conn);
    Read_Options(conn);
    Stamp_Database(conn);
    conn.close();
    Compact_Database();   // silent, before the main window
    Compact_Database();   // the main window's, with its message
}

// One export on the C API alone: open, key, attach the copy, export, detach.
void Bare_Export(const QByteArray &file, const QByteArray &copy, const QByteArray &key)
{
    QFile::remove(QString::fromUtf8(copy));
    QFile(QString::fromUtf8(copy)).open(QIODevice::WriteOnly);
    sqlite3 *db = nullptr;
    sqlite3_open_v2(file.constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    sqlite3_key(db, key.constData(), int(key.size()));
    const QByteArray attach = "ATTACH DATABASE '" + copy + "' AS c KEY '" + key + "'";
    for (const char *sql : {attach.constData(), "SELECT sqlcipher_export('c')", "DETACH DATABASE c"})
        if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            std::fprintf(stderr, "bare export: %s\n", sqlite3_errmsg(db));
    sqlite3_close(db);
}

} // namespace

int main()
{
    QTemporaryDir dir;
    if (!Bench::Use_Data_Dir(dir)) {
        std::fprintf(stderr, "cannot lay the prepared database\n");
        return 1;
    }
    const int earlier = 7;
    {
        Connection conn;
        conn.open();
        Bench::Build_Season(conn, earlier);
    }
    const QString file = Data_Dir + DB_FILE;
    Compact_Database();
    std::printf("Start-up on a season of %d competitions of %d dancers: %.1f MB\n", earlier + 1, Bench::Season_Dancers,
                QFileInfo(file).size() / 1048576.0);
    const QByteArray copy = dir.filePath(QStringLiteral("bare.mdb")).toUtf8();
    const QByteArray key = Db_Password.toUtf8();
    const Bench::Pair p = Bench::Alternate([] { Start_Up(); }, [&] { Bare_Export(file.toUtf8(), copy, key); });
    std::printf("  start-up's database work %.1f ms, one bare export %.1f ms\n", p.work, p.bare);
    const bool ok = Bench::Print("start-up's database work, per compaction", {p.work / 2, p.bare}, 1.5);
    return ok ? 0 : 2;
}
