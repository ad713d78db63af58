#pragma once
// What every bench shares: a copy of the prepared database to work on, the
// program's work timed against the same work done bare on the engine (the C
// API stepping every row and reading every column), the two run in turn so
// that a busy machine slows both alike, and one line per figure.
#include "core/db.h"
#include "core/globals.h"
#include "core/pause.h"

#include <sqlite3.h>

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace Bench {

// A fresh copy of the prepared database at path, writable.
inline bool Lay_Database(const QString &path)
{
    QFile::remove(path);
    if (!QFile::copy(QStringLiteral(STRATHMARK_PREPARED_DB), path))
        return false;
    return QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

// Data_Dir and the password set for a data folder holding a fresh database.
inline bool Use_Data_Dir(const QTemporaryDir &dir)
{
    Data_Dir = dir.path() + QLatin1Char('/');
    Db_Password = QString::fromLatin1(DB_PASSWORD_CONSTANT);
    Set_Pause_Scale(0);
    return dir.isValid() && Lay_Database(dir.filePath(DB_FILE));
}

inline double Ms_Of(const std::function<void()> &work)
{
    QElapsedTimer t;
    t.start();
    work();
    return t.nsecsElapsed() / 1e6;
}

inline double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

struct Pair
{
    double work = 0;   // median, ms
    double bare = 0;   // median, ms
    double ratio() const { return bare > 0 ? work / bare : 0; }
};

// The work and its bare twin, each run `runs` times in turn (work, bare,
// work, ...); setUp runs untimed before every run of either.
inline Pair Alternate(const std::function<void()> &work, const std::function<void()> &bare, int runs = 7,
                      const std::function<void()> &setUp = {})
{
    std::vector<double> w, b;
    for (int i = 0; i < runs; ++i) {
        if (setUp)
            setUp();
        w.push_back(Ms_Of(work));
        if (setUp)
            setUp();
        b.push_back(Ms_Of(bare));
    }
    return {Median(w), Median(b)};
}

// Lines of the closing table: what, the figure, its bare twin, the ratio and
// the goal. Returns whether the goal was met.
inline bool Print(const char *what, const Pair &p, double goal)
{
    const bool ok = p.ratio() <= goal;
    std::printf("  %-46s %9.2f ms  bare %9.2f ms  ratio %5.2f  (goal <= %.1f) %s\n", what, p.work, p.bare, p.ratio(),
                goal, ok ? "ok" : "OVER");
    std::fflush(stdout);
    return ok;
}

// The C API over one statement: prepared, every row stepped, every column read
// by its type. Returns the number of rows.
inline int Bare_Query(sqlite3 *db, const QByteArray &sql)
{
    sqlite3_stmt *stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.constData(), int(sql.size()), &stmt, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "bare: %s\n", sqlite3_errmsg(db));
        sqlite3_finalize(stmt);
        return -1;
    }
    const int cols = sqlite3_column_count(stmt);
    int rows = 0;
    volatile std::size_t sink = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        ++rows;
        for (int c = 0; c < cols; ++c) {
            switch (sqlite3_column_type(stmt, c)) {
            case SQLITE_INTEGER:
                sink = sink + std::size_t(sqlite3_column_int64(stmt, c));
                break;
            case SQLITE_FLOAT:
                sink = sink + std::size_t(sqlite3_column_double(stmt, c));
                break;
            case SQLITE_NULL:
                break;
            default:
                sink = sink + std::size_t(sqlite3_column_text(stmt, c)[0]) + std::size_t(sqlite3_column_bytes(stmt, c));
            }
        }
    }
    sqlite3_finalize(stmt);
    return rows;
}

// The statements a piece of work runs, caught from the engine as they start
// (the type guards' trigger programs are left out: the bare run fires them too).
class Statement_Log
{
public:
    explicit Statement_Log(sqlite3 *db) : m_db(db) { sqlite3_trace_v2(db, SQLITE_TRACE_STMT, &Statement_Log::Take, this); }
    ~Statement_Log() { sqlite3_trace_v2(m_db, 0, nullptr, nullptr); }
    QList<QByteArray> statements;

private:
    static int Take(unsigned, void *self, void *stmt, void *text)
    {
        if (qstrncmp(static_cast<const char *>(text), "--", 2) == 0)
            return 0;
        // The expanded text: bound values written in, as a bare run would have them.
        char *sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt *>(stmt));
        static_cast<Statement_Log *>(self)->statements << QByteArray(sql ? sql : "");
        sqlite3_free(sql);
        return 0;
    }
    sqlite3 *m_db;
};

// Runs caught statements bare, each one prepared, stepped to the end, every
// column of every row read; in one transaction unless they hold their own.
inline void Bare_Run(sqlite3 *db, const QList<QByteArray> &statements)
{
    const bool own = sqlite3_get_autocommit(db) && !statements.isEmpty()
                     && !statements.first().startsWith("BEGIN") && !statements.first().startsWith("SAVEPOINT");
    if (own)
        sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    for (const QByteArray &s : statements)
        Bare_Query(db, s);
    if (own)
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
}

} // namespace Bench
