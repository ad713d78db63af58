// Build tool: makes the prepared empty database file from the schema and the
// standard content. The program itself never creates a database.
#include "db.h"
#include "globals.h"
#include "type_guards.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <cstdio>

namespace {

QStringList statementsOf(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        throw AppError(QStringLiteral("cannot read ") + path);
    QStringList out;
    QString current;
    const QStringList lines = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    for (const QString &raw : lines) {
        const QString line = raw.trimmed();
        if (line.startsWith(QLatin1String("--")) || line.isEmpty())
            continue;
        current += raw + QLatin1Char('\n');
        if (line.endsWith(QLatin1Char(';'))) {
            out << current.trimmed();
            current.clear();
        }
    }
    if (!current.trimmed().isEmpty())
        out << current.trimmed();
    return out;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: prepare_db schema.sql starter.sql out.mdb\n");
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[3]);
    QFile::remove(out);
    try {
        {
            sqlite3 *db = nullptr;
            const QByteArray p = out.toUtf8();
            if (sqlite3_open_v2(p.constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK)
                throw AppError(QStringLiteral("cannot create ") + out);
            sqlite3_key(db, DB_PASSWORD_CONSTANT, static_cast<int>(qstrlen(DB_PASSWORD_CONSTANT)));
            sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
            sqlite3_close(db);
        }
        Connection conn;
        conn.open(out, QString::fromLatin1(DB_PASSWORD_CONSTANT));
        {
            Transaction t(conn);
            for (const QString &s : statementsOf(QString::fromLocal8Bit(argv[1])))
                conn.execute(s);
            Install_Type_Guards(conn);
            for (const QString &s : statementsOf(QString::fromLocal8Bit(argv[2])))
                conn.execute(s);
        }
        conn.close();
    } catch (const AppError &e) {
        std::fprintf(stderr, "prepare_db: %s\n", qPrintable(e.message()));
        QFile::remove(out);
        return 1;
    }
    return 0;
}
