#include "db.h"
#include "globals.h"
#include "sql_functions.h"

#include <sqlite3.h>

#include <QByteArray>
#include <QFileInfo>

#include <cmath>

namespace {

QString engineMessage(sqlite3 *db)
{
    return db ? QString::fromUtf8(sqlite3_errmsg(db)) : QStringLiteral("out of memory");
}

void bindAll(sqlite3 *db, sqlite3_stmt *stmt, const QVariantList &params)
{
    for (int i = 0; i < params.size(); ++i) {
        const QVariant &v = params.at(i);
        int rc;
        if (v.isNull()) {
            rc = sqlite3_bind_null(stmt, i + 1);
        } else if (v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Float) {
            rc = sqlite3_bind_double(stmt, i + 1, v.toDouble());
        } else if (v.typeId() == QMetaType::Int || v.typeId() == QMetaType::LongLong
                   || v.typeId() == QMetaType::Short || v.typeId() == QMetaType::UInt
                   || v.typeId() == QMetaType::Bool) {
            rc = sqlite3_bind_int64(stmt, i + 1, v.toLongLong());
        } else {
            const QByteArray utf8 = v.toString().toUtf8();
            rc = sqlite3_bind_text(stmt, i + 1, utf8.constData(), utf8.size(), SQLITE_TRANSIENT);
        }
        if (rc != SQLITE_OK)
            throw DbError(engineMessage(db));
    }
}

QVariant columnValue(sqlite3_stmt *stmt, int i)
{
    switch (sqlite3_column_type(stmt, i)) {
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(sqlite3_column_int64(stmt, i)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(stmt, i));
    case SQLITE_NULL:
        return QVariant();
    case SQLITE_BLOB:
        return QVariant(QByteArray(static_cast<const char *>(sqlite3_column_blob(stmt, i)),
                                   sqlite3_column_bytes(stmt, i)));
    default:
        return QVariant(QString::fromUtf8(
            reinterpret_cast<const char *>(sqlite3_column_text(stmt, i)),
            sqlite3_column_bytes(stmt, i)));
    }
}

// Prepares exactly one statement. Text after it (other than blanks and a
// final semicolon) is a fault: a value that broke out of its quotes must never
// run a second statement.
sqlite3_stmt *prepareOne(sqlite3 *db, const QString &sql)
{
    if (!db)
        throw DbError(QStringLiteral("Operation is not allowed when the object is closed."));
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt *stmt = nullptr;
    const char *tail = nullptr;
    if (sqlite3_prepare_v2(db, utf8.constData(), utf8.size(), &stmt, &tail) != SQLITE_OK) {
        const QString msg = engineMessage(db);
        sqlite3_finalize(stmt);
        throw DbError(msg);
    }
    if (!stmt)
        throw DbError(QStringLiteral("Invalid SQL statement: empty"));
    if (tail) {
        QByteArray rest(tail);
        rest = rest.trimmed();
        while (rest.startsWith(';'))
            rest = rest.mid(1).trimmed();
        if (!rest.isEmpty()) {
            sqlite3_finalize(stmt);
            throw DbError(QStringLiteral("Characters found after end of SQL statement."));
        }
    }
    return stmt;
}

struct Finalizer
{
    sqlite3_stmt *stmt;
    ~Finalizer() { sqlite3_finalize(stmt); }
};

} // namespace

Connection::~Connection()
{
    close();
}

void Connection::open()
{
    open(Data_Dir + DB_FILE, Db_Password);
}

void Connection::open(const QString &path, const QString &key)
{
    close();
    sqlite3 *db = nullptr;
    const QByteArray file = QFileInfo(path).absoluteFilePath().toUtf8();
    int rc = sqlite3_open_v2(file.constData(), &db, SQLITE_OPEN_READWRITE, nullptr);
    if (rc != SQLITE_OK) {
        const QString msg = engineMessage(db);
        sqlite3_close(db);
        throw DbError(msg);
    }
    const QByteArray k = key.toUtf8();
    sqlite3_key(db, k.constData(), k.size());
    // Proves the key: a wrong key or a file that is no database fails here.
    rc = sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (rc != SQLITE_OK) {
        const QString msg = engineMessage(db);
        sqlite3_close(db);
        throw DbError(msg);
    }
    sqlite3_busy_timeout(db, 2000);
    Register_Sql_Functions(db);
    m_db = db;
    m_path = path;
}

void Connection::close()
{
    if (m_db) {
        sqlite3_close_v2(m_db);
        m_db = nullptr;
    }
}

int Connection::execute(const QString &sql, const QVariantList &params)
{
    sqlite3_stmt *stmt = prepareOne(m_db, sql);
    Finalizer f{stmt};
    bindAll(m_db, stmt, params);
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    if (rc != SQLITE_DONE)
        throw DbError(engineMessage(m_db));
    return sqlite3_changes(m_db);
}

RowSet Connection::query(const QString &sql, const QVariantList &params)
{
    sqlite3_stmt *stmt = prepareOne(m_db, sql);
    Finalizer f{stmt};
    bindAll(m_db, stmt, params);
    RowSet rs;
    const int n = sqlite3_column_count(stmt);
    for (int i = 0; i < n; ++i)
        rs.m_names << QString::fromUtf8(sqlite3_column_name(stmt, i));
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        QVariantList row;
        row.reserve(n);
        for (int i = 0; i < n; ++i)
            row << columnValue(stmt, i);
        rs.m_rows.push_back(std::move(row));
    }
    if (rc != SQLITE_DONE)
        throw DbError(engineMessage(m_db));
    return rs;
}

QVariant Connection::scalar(const QString &sql, const QVariantList &params)
{
    RowSet rs = query(sql, params);
    return rs.eof() ? QVariant() : rs.value(0);
}

qint64 Connection::lastInsertId() const
{
    return m_db ? sqlite3_last_insert_rowid(m_db) : 0;
}

bool Connection::inTransaction() const
{
    return m_db && sqlite3_get_autocommit(m_db) == 0;
}

void Connection::begin()
{
    execute(QStringLiteral("BEGIN"));
}

void Connection::commit()
{
    execute(QStringLiteral("COMMIT"));
}

Transaction::Transaction(Connection &conn) : m_conn(conn)
{
    if (!conn.inTransaction()) {
        conn.begin();
        m_owner = true;
    }
}

Transaction::~Transaction()
{
    if (m_owner && m_conn.inTransaction()) {
        try {
            m_conn.commit();
        } catch (...) {
            // A destructor may not throw; the engine rolls back what it cannot commit.
        }
    }
}

Savepoint::Savepoint(Connection &conn) : m_conn(conn)
{
    static int counter = 0;
    m_name = QStringLiteral("unit%1").arg(++counter);
    m_conn.execute(QStringLiteral("SAVEPOINT ") + m_name);
}

Savepoint::~Savepoint()
{
    if (m_done || !m_conn.isOpen())
        return;
    try {
        m_conn.execute(QStringLiteral("ROLLBACK TO ") + m_name);
        m_conn.execute(QStringLiteral("RELEASE ") + m_name);
    } catch (...) {
        // A destructor may not throw; the engine has rolled back what it could not keep.
    }
}

void Savepoint::release()
{
    if (m_done)
        return;
    m_conn.execute(QStringLiteral("RELEASE ") + m_name);
    m_done = true;
}

int RowSet::fieldIndex(const QString &name) const
{
    for (int i = 0; i < m_names.size(); ++i)
        if (m_names.at(i).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QVariant RowSet::value(const QString &name) const
{
    const int i = fieldIndex(name);
    if (i < 0)
        throw DbError(QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal.")
                      + QStringLiteral(" (") + name + QLatin1Char(')'));
    return value(i);
}

QVariant RowSet::value(int field) const
{
    if (eof())
        throw DbError(QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record."));
    return value(m_pos, field);
}

QVariant RowSet::value(int row, int field) const
{
    if (row < 0 || row >= rowCount() || field < 0 || field >= m_names.size())
        throw DbError(QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal."));
    return m_rows[row].at(field);
}

short RowSet::toShort(const QString &name) const
{
    const QVariant v = value(name);
    return v.isNull() ? short(0) : To_Int16(v);
}

double RowSet::toDouble(const QString &name) const
{
    const QVariant v = value(name);
    if (v.isNull())
        return 0.0;
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (!ok)
        throw DbError(QStringLiteral("Type mismatch"));
    return d;
}

QString RowSet::text(const QString &name) const
{
    const QVariant v = value(name);
    if (v.isNull())
        return QString();
    if (v.typeId() == QMetaType::Double) {
        // Numbers read as the tallier typed them: 87.5, 12 (no ".0").
        return QString::number(v.toDouble(), 'g', 15);
    }
    return v.toString();
}

void RecordSet::open(Connection &conn, const QString &table, const QString &select)
{
    QString s = select.trimmed();
    if (!s.startsWith(QLatin1String("SELECT "), Qt::CaseInsensitive))
        throw DbError(QStringLiteral("A row set needs a SELECT statement"));
    m_conn = &conn;
    m_table = table;
    m_select = s;
    requery();
}

namespace {

// Where the first FROM outside brackets and quotes starts, or -1.
int topLevelFrom(const QString &sql)
{
    int depth = 0;
    QChar quote;
    for (int i = 0; i < sql.size(); ++i) {
        const QChar c = sql.at(i);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
            continue;
        }
        if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            quote = c;
        } else if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')')) {
            --depth;
        } else if (depth == 0 && sql.mid(i, 4).compare(QLatin1String("FROM"), Qt::CaseInsensitive) == 0
                   && (i == 0 || !sql.at(i - 1).isLetterOrNumber()) && (i + 4 >= sql.size() || !sql.at(i + 4).isLetterOrNumber())) {
            return i;
        }
    }
    return -1;
}

// The name the table goes by in the statement: its alias when it has one.
QString tableQualifier(const QString &sql, int from, const QString &table)
{
    static const QStringList notAlias = {"WHERE", "ORDER", "GROUP", "INNER", "LEFT", "JOIN", "CROSS", "ON", "HAVING", "LIMIT"};
    // Only the statement's own FROM list counts, not what stands in brackets.
    QString outer;
    int depth = 0;
    for (const QChar c : sql.mid(from + 4)) {
        if (c == QLatin1Char('('))
            ++depth;
        if (depth == 0)
            outer += c;
        else if (depth == 1 && c == QLatin1Char('('))
            outer += QLatin1String(" (sub) ");
        if (c == QLatin1Char(')'))
            --depth;
    }
    const QStringList words = outer.simplified().split(QLatin1Char(' '));
    for (int i = 0; i < words.size(); ++i) {
        QString w = words.at(i);
        w.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
        if (w.compare(table, Qt::CaseInsensitive) != 0)
            continue;
        int next = i + 1;
        if (next < words.size() && words.at(next).compare(QLatin1String("AS"), Qt::CaseInsensitive) == 0)
            ++next;
        if (next < words.size()) {
            QString alias = words.at(next);
            alias.remove(QLatin1Char(')')).remove(QLatin1Char(','));
            if (!alias.isEmpty() && alias.at(0).isLetter() && !notAlias.contains(alias.toUpper()))
                return alias;
        }
        break;
    }
    return table;
}

} // namespace

void RecordSet::requery()
{
    // The key goes last, so that ORDER BY by column number keeps its meaning.
    const int from = topLevelFrom(m_select);
    if (from < 0)
        throw DbError(QStringLiteral("A row set needs a SELECT statement with FROM"));
    const QString withKey = m_select.left(from).trimmed() + QStringLiteral(", ") + tableQualifier(m_select, from, m_table)
                            + QStringLiteral(".rowid AS __rowid__ ") + m_select.mid(from);
    m_rows = m_conn->query(withKey);
    m_changed.assign(m_rows.rowCount(), std::vector<bool>(m_rows.fieldCount(), false));
    m_original = m_rows.m_rows;
}

void RecordSet::close()
{
    m_conn = nullptr;
    m_rows = RowSet();
    m_changed.clear();
    m_original.clear();
}

int RecordSet::fieldIndex(const QString &name) const
{
    const int i = m_rows.fieldIndex(name);
    return i >= fieldCount() ? -1 : i;
}

QVariant RecordSet::value(int row, const QString &name) const
{
    const int f = fieldIndex(name);
    if (f < 0)
        throw DbError(QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal."));
    return value(row, f);
}

void RecordSet::setValue(int row, int field, const QVariant &v)
{
    if (row < 0 || row >= rowCount() || field < 0 || field >= fieldCount())
        throw DbError(QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record."));
    m_rows.m_rows[row][field] = v;
    m_changed[row][field] = true;
}

void RecordSet::setValue(int row, const QString &name, const QVariant &v)
{
    const int f = fieldIndex(name);
    if (f < 0)
        throw DbError(QStringLiteral("Item cannot be found in the collection corresponding to the requested name or ordinal."));
    setValue(row, f, v);
}

bool RecordSet::isChanged(int row) const
{
    for (bool c : m_changed.at(row))
        if (c)
            return true;
    return false;
}

void RecordSet::update(int row)
{
    if (!isChanged(row))
        return;
    QStringList sets;
    QVariantList params;
    for (int f = 0; f < fieldCount(); ++f) {
        if (!m_changed[row][f])
            continue;
        sets << m_rows.fieldName(f) + QStringLiteral(" = ?");
        params << m_rows.m_rows[row][f];
    }
    params << rowId(row);
    m_conn->execute(QStringLiteral("UPDATE ") + m_table + QStringLiteral(" SET ") + sets.join(QStringLiteral(", "))
                        + QStringLiteral(" WHERE rowid = ?"),
                    params);
    std::fill(m_changed[row].begin(), m_changed[row].end(), false);
    m_original[row] = m_rows.m_rows[row];
}

void RecordSet::cancelUpdate(int row)
{
    m_rows.m_rows[row] = m_original[row];
    std::fill(m_changed[row].begin(), m_changed[row].end(), false);
}

void RecordSet::remove(int row)
{
    m_conn->execute(QStringLiteral("DELETE FROM ") + m_table + QStringLiteral(" WHERE rowid = ?"), {rowId(row)});
    m_rows.m_rows.erase(m_rows.m_rows.begin() + row);
    m_changed.erase(m_changed.begin() + row);
    m_original.erase(m_original.begin() + row);
}

void RecordSet::append(qint64 rowid)
{
    const int from = topLevelFrom(m_select);
    const QString alias = tableQualifier(m_select, from, m_table);
    RowSet one = m_conn->query(m_select.left(from).trimmed() + QStringLiteral(", ") + alias
                                   + QStringLiteral(".rowid AS __rowid__ FROM ") + m_table + QStringLiteral(" AS ")
                                   + alias + QStringLiteral(" WHERE ") + alias + QStringLiteral(".rowid = ?"),
                               {rowid});
    if (one.rowCount() != 1 || one.fieldCount() != m_rows.fieldCount())
        throw DbError(QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record."));
    m_rows.m_rows.push_back(one.m_rows.front());
    m_changed.emplace_back(m_rows.fieldCount(), false);
    m_original.push_back(one.m_rows.front());
}

qint64 RecordSet::rowId(int row) const
{
    return m_rows.value(row, fieldCount()).toLongLong();
}

short To_Int16(qint64 v)
{
    if (v < -32768 || v > 32767)
        throw AppError(QStringLiteral("Overflow"));
    return static_cast<short>(v);
}

short To_Int16(const QVariant &v)
{
    if (v.isNull())
        throw AppError(QStringLiteral("Invalid use of Null"));
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (!ok)
        throw AppError(QStringLiteral("Type mismatch"));
    if (d < -32768.5 || d >= 32767.5)
        throw AppError(QStringLiteral("Overflow"));
    // Rounds half to even (2.5 gives 2, 3.5 gives 4), as every 16-bit conversion of the program does.
    return static_cast<short>(std::nearbyint(d));
}
