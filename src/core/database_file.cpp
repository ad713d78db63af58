#include "database_file.h"
#include "appex.h"
#include "db.h"
#include "globals.h"
#include "routines.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <unistd.h>

QString Find_Data_Dir()
{
    QString dir = qEnvironmentVariable("STRATHMARK_DATA_DIR");
    if (dir.isEmpty()) {
        dir = AppEx::instance().PathAndSubDir(35, QStringLiteral("Strathmark/Strathmark/"), true);
    } else {
        QDir().mkpath(dir);
    }
    if (!dir.endsWith(QLatin1Char('/')))
        dir += QLatin1Char('/');
    return dir;
}

QString Data_Sub_Dir(const QString &name)
{
    QDir base(Data_Dir);
    const QStringList existing = base.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &e : existing)
        if (e.compare(name, Qt::CaseInsensitive) == 0)
            return Data_Dir + e + QLatin1Char('/');
    base.mkpath(name);
    return Data_Dir + name + QLatin1Char('/');
}

bool Open_Database(Connection &conn)
{
    if (!QFileInfo(Data_Dir + DB_FILE).isFile())
        return false;
    try {
        conn.open();
        // An empty file opens as an empty database: it is none of ours.
        if (conn.scalar(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE name = 'db_info'")).toInt() == 0) {
            conn.close();
            return false;
        }
        return true;
    } catch (const AppError &) {
        conn.close();
        return false;
    }
}

bool Adopt_Database_Name()
{
    if (QFileInfo(Data_Dir + DB_FILE).isFile())
        return true;
    QStringList others;
    for (const QString &name : QDir(Data_Dir).entryList(QDir::Files | QDir::Hidden))
        if (name.compare(DB_FILE, Qt::CaseInsensitive) == 0)
            others << name;
    if (others.size() != 1)
        return true;
    return QFile::rename(Data_Dir + others.first(), Data_Dir + DB_FILE);
}

namespace {

// Room for the compacted copy beside the file, with a margin for the journal.
constexpr qint64 SPACE_MARGIN = 1024 * 1024;

qint64 Space_Needed()
{
    return QFileInfo(Data_Dir + DB_FILE).size() + SPACE_MARGIN;
}

bool Writable(const QString &path)
{
    return ::access(QFile::encodeName(path).constData(), W_OK) == 0;
}

} // namespace

Folder_Problem Check_Data_Folder()
{
    if (!Writable(Data_Dir + DB_FILE))
        return Folder_Problem::Read_Only_File;
    if (!Writable(Data_Dir))
        return Folder_Problem::Read_Only_Folder;
    QStorageInfo disk(Data_Dir);
    disk.refresh();
    if (disk.isValid() && disk.bytesAvailable() < Space_Needed())
        return Folder_Problem::Disk_Full;
    return Folder_Problem::None;
}

QString Folder_Problem_Text(Folder_Problem problem)
{
    const QString untouched = QStringLiteral(" Nothing has been changed.");
    switch (problem) {
    case Folder_Problem::Read_Only_File:
        return QStringLiteral("The database file is read-only, so Strathmark cannot save to it:\n") + Data_Dir + DB_FILE
               + QStringLiteral("\n\nMake the file writable for your user, or copy the data folder to a place you can "
                                "write to, and start Strathmark again.")
               + untouched;
    case Folder_Problem::Read_Only_Folder:
        return QStringLiteral("Strathmark cannot write in its data folder:\n") + Data_Dir
               + QStringLiteral("\n\nIt keeps the backup ") + DB_BACKUP_FILE
               + QStringLiteral(" and a compacted copy beside the database there. Allow your user to write in this "
                                "folder and start Strathmark again.")
               + untouched;
    case Folder_Problem::Disk_Full:
        return QStringLiteral("The disk that holds the data folder is full:\n") + Data_Dir
               + QStringLiteral("\n\nStrathmark needs about %1 MB free there to keep a backup while it compacts the "
                                "database. Free some space on that disk and start Strathmark again.")
                     .arg((Space_Needed() + 1024 * 1024 - 1) / (1024 * 1024))
               + untouched;
    case Folder_Problem::None:
        break;
    }
    return QString();
}

void Read_Options(Connection &conn)
{
    RowSet rs = conn.query(QStringLiteral(
        "SELECT judges_points, check_mode, check_dir, show_address, auto_save, judges_order, locale FROM system_settings"));
    auto isOne = [&rs](const char *name) {
        const QVariant v = rs.value(QString::fromLatin1(name));
        return !v.isNull() && v.toDouble() == 1.0;
    };
    Opt_Judges_Points = isOne("judges_points");
    Opt_Show_Address = isOne("show_address");
    Opt_Auto_Save = isOne("auto_save");
    Opt_Judges_Order = isOne("judges_order");
    Opt_Check_Mode = To_Int16(Null_Default(rs.value(QStringLiteral("check_mode")), 0));
    Opt_Check_Dir = Null_Default(rs.value(QStringLiteral("check_dir")), QString()).toString();
    // Unlike the other flags a NULL here counts as set.
    const QVariant locale = rs.value(QStringLiteral("locale"));
    Opt_Locale = !(!locale.isNull() && locale.toDouble() == 0.0);
}

void Stamp_Database(Connection &conn)
{
    conn.execute(QStringLiteral("UPDATE db_info SET last_update=now()"));
}

void Stamp_Database()
{
    Connection conn;
    conn.open();
    Stamp_Database(conn);
}

namespace {

QString dbPath() { return Data_Dir + DB_FILE; }
QString tempPath() { return Data_Dir + DB_TEMP_FILE; }
QString backupPath() { return Data_Dir + DB_BACKUP_FILE; }

void renameOrFail(const QString &from, const QString &to)
{
    if (!QFile::rename(from, to))
        throw AppError(QStringLiteral("File not found: ") + from);
}

// The file's data on the disk before it takes the database's name.
void Sync_File(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadWrite) || ::fsync(f.handle()) != 0)
        throw AppError(QStringLiteral("Device I/O error: ") + path);
}

bool opensWithKey(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return false;
    try {
        Connection c;
        c.open(path, Db_Password);
        return c.scalar(QStringLiteral("SELECT count(*) FROM db_info")).isValid();
    } catch (const AppError &) {
        return false;
    }
}

} // namespace

void Compact_Export()
{
    // A copy left by an earlier stopped run is incomplete or stale.
    if (QFileInfo::exists(tempPath()) && !QFile::remove(tempPath()))
        throw AppError(QStringLiteral("Permission denied: ") + tempPath());
    // Connections never create files, and an attached file opens as its
    // connection does: the copy starts as an empty file, which the engine
    // takes as an empty database.
    {
        QFile empty(tempPath());
        if (!empty.open(QIODevice::WriteOnly))
            throw AppError(QStringLiteral("Permission denied: ") + tempPath());
    }
    Connection conn;
    conn.open();
    try {
        conn.execute(QStringLiteral("ATTACH DATABASE '") + Sql_Quote(tempPath()) + QStringLiteral("' AS c KEY '")
                     + Sql_Quote(Db_Password) + QLatin1Char('\''));
        // The copy is new and goes if the export fails: it needs no journal,
        // and one sync of the whole file below instead of one at every spill.
        conn.query(QStringLiteral("PRAGMA c.journal_mode = OFF"));
        conn.execute(QStringLiteral("PRAGMA c.synchronous = OFF"));
        conn.query(QStringLiteral("SELECT sqlcipher_export('c')"));
        conn.execute(QStringLiteral("DETACH DATABASE c"));
        conn.close();
        Sync_File(tempPath());
    } catch (...) {
        conn.close();
        QFile::remove(tempPath());
        throw;
    }
}

void Compact_Drop_Backup()
{
    if (QFileInfo::exists(backupPath()) && !QFile::remove(backupPath()))
        throw AppError(QStringLiteral("Permission denied: ") + backupPath());
}

void Compact_Keep_Backup()
{
    renameOrFail(dbPath(), backupPath());
}

void Compact_Install_Copy()
{
    renameOrFail(tempPath(), dbPath());
}

void Compact_Database()
{
    Compact_Export();
    Compact_Drop_Backup();
    Compact_Keep_Backup();
    Compact_Install_Copy();
}

void Finish_Interrupted_Compaction()
{
    const bool haveDb = QFileInfo(dbPath()).isFile();
    const bool haveTemp = QFileInfo(tempPath()).isFile();
    if (!haveTemp)
        return;
    if (!haveDb) {
        // tallier.mdb only goes after the copy was made whole.
        if (opensWithKey(tempPath()))
            QFile::rename(tempPath(), dbPath());
        return;
    }
    QFile::remove(tempPath());
}
