#include "sql_functions.h"

#include <sqlite3.h>

#include <QDateTime>
#include <QString>

namespace {

QString argText(sqlite3_value *v)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_value_text(v)),
                             sqlite3_value_bytes(v));
}

void resultText(sqlite3_context *ctx, const QString &s)
{
    const QByteArray utf8 = s.toUtf8();
    sqlite3_result_text(ctx, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
}

void ucaseFn(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        sqlite3_result_null(ctx);
    else
        resultText(ctx, argText(argv[0]).toUpper());
}

void lcaseFn(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL)
        sqlite3_result_null(ctx);
    else
        resultText(ctx, argText(argv[0]).toLower());
}

void nowFn(sqlite3_context *ctx, int, sqlite3_value **)
{
    resultText(ctx, QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}

// iif(condition, then, else): a NULL or zero condition takes the else branch.
void iifFn(sqlite3_context *ctx, int, sqlite3_value **argv)
{
    const bool truth = sqlite3_value_type(argv[0]) != SQLITE_NULL && sqlite3_value_double(argv[0]) != 0.0;
    sqlite3_result_value(ctx, truth ? argv[1] : argv[2]);
}

} // namespace

void Register_Sql_Functions(sqlite3 *db)
{
    const int flags = SQLITE_UTF8;
    sqlite3_create_function(db, "ucase", 1, flags | SQLITE_DETERMINISTIC, nullptr, ucaseFn, nullptr, nullptr);
    sqlite3_create_function(db, "lcase", 1, flags | SQLITE_DETERMINISTIC, nullptr, lcaseFn, nullptr, nullptr);
    sqlite3_create_function(db, "now", 0, flags, nullptr, nowFn, nullptr, nullptr);
    sqlite3_create_function(db, "iif", 3, flags | SQLITE_DETERMINISTIC, nullptr, iifFn, nullptr, nullptr);
}
