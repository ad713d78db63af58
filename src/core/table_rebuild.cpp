#include "table_rebuild.h"
#include "db.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

// The parts of a column list, split at the commas outside brackets and quotes.
QStringList splitDefinitions(const QString &body)
{
    QStringList parts;
    QString current;
    int depth = 0;
    bool quoted = false;
    for (const QChar c : body) {
        if (c == QLatin1Char('\''))
            quoted = !quoted;
        else if (c == QLatin1Char('(') && !quoted)
            ++depth;
        else if (c == QLatin1Char(')') && !quoted)
            --depth;
        if (c == QLatin1Char(',') && depth == 0 && !quoted) {
            parts << current.trimmed();
            current.clear();
        } else {
            current += c;
        }
    }
    if (!current.trimmed().isEmpty())
        parts << current.trimmed();
    return parts;
}

QString firstWord(const QString &definition)
{
    QString word = definition.section(QRegularExpression(QStringLiteral("\\s+")), 0, 0);
    word.remove(QLatin1Char('"')).remove(QLatin1Char('`')).remove(QLatin1Char('[')).remove(QLatin1Char(']'));
    return word;
}

bool isTableConstraint(const QString &definition)
{
    static const QStringList starts = {QStringLiteral("CONSTRAINT"), QStringLiteral("PRIMARY"), QStringLiteral("UNIQUE"),
                                       QStringLiteral("CHECK"), QStringLiteral("FOREIGN")};
    return starts.contains(firstWord(definition).toUpper());
}

bool namesColumn(const QString &sqlPart, const QString &column)
{
    const QRegularExpression word(QStringLiteral("\\b") + QRegularExpression::escape(column) + QStringLiteral("\\b"),
                                  QRegularExpression::CaseInsensitiveOption);
    return word.match(sqlPart).hasMatch();
}

// Builds the table anew with its column definitions changed by edit, which
// gets each column definition and returns it changed, or an empty text to drop it.
template <typename Edit>
void rebuild(Connection &conn, const QString &table, const QString &column, bool dropping, Edit edit)
{
    const QString create = conn.scalar(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'table' AND name = ?"),
                                       {table}).toString();
    if (create.isEmpty())
        throw DbError(QStringLiteral("no such table: ") + table);
    const int open = create.indexOf(QLatin1Char('('));
    const int close = create.lastIndexOf(QLatin1Char(')'));
    const QStringList definitions = splitDefinitions(create.mid(open + 1, close - open - 1));

    QStringList kept;
    QStringList copied;
    bool found = false;
    for (const QString &d : definitions) {
        if (isTableConstraint(d)) {
            if (!dropping || !namesColumn(d, column))
                kept << d;
            continue;
        }
        const QString name = firstWord(d);
        if (name.compare(column, Qt::CaseInsensitive) == 0) {
            found = true;
            const QString changed = edit(d);
            if (changed.isEmpty())
                continue;
            kept << changed;
        } else {
            kept << d;
        }
        copied << name;
    }
    if (!found)
        throw DbError(QStringLiteral("no such column: ") + column);

    RowSet indexes = conn.query(QStringLiteral("SELECT sql FROM sqlite_master WHERE type = 'index' AND tbl_name = ? AND sql IS NOT NULL"),
                                {table});
    QStringList remake;
    for (; !indexes.eof(); indexes.next()) {
        const QString sql = indexes.text(QStringLiteral("sql"));
        const QString columns = sql.mid(sql.indexOf(QLatin1Char('(')));
        if (!dropping || !namesColumn(columns, column))
            remake << sql;
    }

    const QString temp = table + QStringLiteral("_rebuilt");
    const QString list = copied.join(QStringLiteral(", "));
    conn.execute(QStringLiteral("CREATE TABLE ") + temp + QStringLiteral(" (\n    ") + kept.join(QStringLiteral(",\n    "))
                 + QStringLiteral("\n)"));
    conn.execute(QStringLiteral("INSERT INTO ") + temp + QStringLiteral(" (") + list + QStringLiteral(") SELECT ") + list
                 + QStringLiteral(" FROM ") + table);
    conn.execute(QStringLiteral("DROP TABLE ") + table);
    conn.execute(QStringLiteral("ALTER TABLE ") + temp + QStringLiteral(" RENAME TO ") + table);
    for (const QString &sql : remake)
        conn.execute(sql);
}

} // namespace

void Drop_Column(Connection &conn, const QString &table, const QString &column)
{
    rebuild(conn, table, column, true, [](const QString &) { return QString(); });
}

void Redefine_Column(Connection &conn, const QString &table, const QString &column, const QString &definition)
{
    rebuild(conn, table, column, false, [&](const QString &) { return definition; });
}
