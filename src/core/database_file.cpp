#include "database_file.h"
#include "appex.h"
#include "db.h"
#include "globals.h"
#include "routines.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
        return true;
    } catch (const AppError &) {
        return false;
    }
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
        conn.query(QStringLiteral("SELECT sqlcipher_export('c')"));
        conn.execute(QStringLiteral("DETACH DATABASE c"));
    } catch (...) {
        conn.close();
        QFile::remove(tempPath());
        throw;
    }
    conn.close();
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
