#include "type_guards.h"
#include "db.h"

#include <QStringList>

namespace {

bool isNumberType(const QString &declared)
{
    const QString t = declared.trimmed().toUpper();
    return t == QLatin1String("NUMERIC") || t == QLatin1String("INTEGER") || t == QLatin1String("REAL")
           || t == QLatin1String("DOUBLE") || t == QLatin1String("NUMBER");
}

} // namespace

void Install_Type_Guards(Connection &conn)
{
    RowSet tables = conn.query(QStringLiteral(
        "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%' ORDER BY name"));
    for (; !tables.eof(); tables.next()) {
        const QString table = tables.text(QStringLiteral("name"));
        QStringList tests;
        RowSet cols = conn.query(QStringLiteral("PRAGMA table_info(") + table + QLatin1Char(')'));
        for (; !cols.eof(); cols.next()) {
            if (cols.value(QStringLiteral("pk")).toInt() == 1 && cols.text(QStringLiteral("type")).toUpper() == QLatin1String("INTEGER"))
                continue;
            if (isNumberType(cols.text(QStringLiteral("type"))))
                tests << QStringLiteral("typeof(NEW.") + cols.text(QStringLiteral("name")) + QStringLiteral(") = 'text'");
        }
        for (const QString &when : {QStringLiteral("INSERT"), QStringLiteral("UPDATE")}) {
            const QString name = QStringLiteral("guard_") + when.toLower() + QLatin1Char('_') + table;
            conn.execute(QStringLiteral("DROP TRIGGER IF EXISTS ") + name);
            if (tests.isEmpty())
                continue;
            conn.execute(QStringLiteral("CREATE TRIGGER ") + name + QStringLiteral(" BEFORE ") + when + QStringLiteral(" ON ")
                         + table + QStringLiteral(" WHEN ") + tests.join(QStringLiteral(" OR "))
                         + QStringLiteral(" BEGIN SELECT RAISE(ABORT, 'Data type mismatch in criteria expression.'); END"));
        }
    }
}
