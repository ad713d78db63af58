// Import of an export file of about 30,000 lines, beside the same statements
// run bare in one transaction on the same engine.
// Usage: bench_import [dancers]
#include "exchange/export_file.h"
#include "exchange/import_file.h"
#include "exchange/sample_competition.h"

#include "core/codec.h"
#include "core/db.h"
#include "core/globals.h"
#include "core/pause.h"

#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

QString Fresh_Database(const QTemporaryDir &dir, const QString &name)
{
    const QString file = dir.filePath(name);
    QFile::remove(file);
    QFile::copy(QStringLiteral(STRATHMARK_PREPARED_DB), file);
    QFile(file).setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return file;
}

int Trace(unsigned, void *ctx, void *stmt, void *x)
{
    // Statements inside a trigger are reported too, marked with a leading "--".
    if (qstrncmp(static_cast<const char *>(x), "--", 2) == 0)
        return 0;
    const QString sql = QString::fromUtf8(sqlite3_sql(static_cast<sqlite3_stmt *>(stmt)));
    if (sql != QLatin1String("BEGIN") && sql != QLatin1String("COMMIT"))
        static_cast<QStringList *>(ctx)->append(sql);
    return 0;
}

double Median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    const int dancers = argc > 1 ? std::atoi(argv[1]) : 6260;
    Set_Pause_Scale(0.0);
    const QString key = QString::fromLatin1(DB_PASSWORD_CONSTANT);
    QTemporaryDir dir;
    const QString dump = dir.filePath(QStringLiteral("games.dmp"));
    {
        Connection src;
        src.open(Fresh_Database(dir, QStringLiteral("source.mdb")), key);
        const short comp = Sample_Competition(src, dancers);
        Write_Export_File(src, comp, dump);
    }
    const QString text = Read_Text_File(dump);
    const int lines = Split_Export_Lines(text).size() - 1;

    // The statements the import runs, caught once from the engine itself.
    QStringList statements;
    {
        Connection c;
        c.open(Fresh_Database(dir, QStringLiteral("trace.mdb")), key);
        sqlite3_trace_v2(c.handle(), SQLITE_TRACE_STMT, Trace, &statements);
        Import_Text(c, text);
        sqlite3_trace_v2(c.handle(), 0, nullptr, nullptr);
    }

    std::vector<double> import, bare;
    for (int run = 0; run < 5; ++run) {
        {
            Connection c;
            c.open(Fresh_Database(dir, QStringLiteral("a.mdb")), key);
            QElapsedTimer t;
            t.start();
            const Import_Result r = Import_File(c, dump);
            import.push_back(t.nsecsElapsed() / 1e6);
            if (r.status != Import_Result::Done) {
                std::printf("import stopped at line %d: %s\n", r.line, qPrintable(r.message));
                return 1;
            }
        }
        {
            Connection c;
            c.open(Fresh_Database(dir, QStringLiteral("b.mdb")), key);
            QElapsedTimer t;
            t.start();
            c.begin();
            for (const QString &s : statements) {
                if (s.startsWith(QLatin1String("SELECT")))
                    c.query(s);
                else
                    c.execute(s);
            }
            c.commit();
            bare.push_back(t.nsecsElapsed() / 1e6);
        }
    }
    const double i = Median(import), b = Median(bare);
    std::printf("import of %d lines (%d dancers), %lld statements\n", lines, dancers, qlonglong(statements.size()));
    std::printf("  %-44s %9.1f ms\n", "Import_File (read, split, build, run)", i);
    std::printf("  %-44s %9.1f ms\n", "same statements bare, one transaction", b);
    std::printf("  ratio %.2f (goal at most 2.00)\n", i / b);
    return 0;
}
