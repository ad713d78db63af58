#pragma once
// A temporary copy of the prepared database, opened once per fuzzing process.
// Each input runs inside a transaction that is rolled back, so the file stays small.
#include "core/db.h"
#include "core/globals.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

inline Connection &Fuzz_Connection()
{
    static QTemporaryDir dir;
    static Connection conn;
    if (!conn.isOpen()) {
        const QString file = dir.path() + QStringLiteral("/tallier.mdb");
        QFile::copy(QStringLiteral(STRATHMARK_PREPARED_DB), file);
        QFile(file).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        conn.open(file, QString::fromLatin1(DB_PASSWORD_CONSTANT));
        // Nothing here needs to survive a power cut: keep the journal in memory.
        conn.query(QStringLiteral("PRAGMA journal_mode = MEMORY"));
        conn.execute(QStringLiteral("PRAGMA synchronous = OFF"));
        conn.execute(QStringLiteral("INSERT INTO competitions(competition_name, competition_date) VALUES ('Old Games', '1/1/2026')"));
    }
    return conn;
}

template <typename Work>
void In_Rolled_Back(Connection &conn, Work &&work)
{
    conn.execute(QStringLiteral("BEGIN"));
    work();
    try {
        conn.execute(QStringLiteral("ROLLBACK"));
    } catch (const AppError &) {
        // The engine already rolled back after a fault of its own.
    }
}
