#pragma once
#include "errors.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <vector>

struct sqlite3;

class RowSet;
class RecordSet;

// One connection to the encrypted database file. Opened read-write and never
// created: a missing file, a wrong key or a file that is no database all fail.
// Every statement is one statement; text left after the first is refused.
class Connection
{
public:
    Connection() = default;
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    // Opens Data_Dir + tallier.mdb with Db_Password.
    void open();
    void open(const QString &path, const QString &key);
    bool isOpen() const { return m_db != nullptr; }
    void close();

    // Runs a statement that returns no rows; gives the number of rows changed.
    int execute(const QString &sql, const QVariantList &params = {});
    // Runs a SELECT and reads all its rows forward.
    RowSet query(const QString &sql, const QVariantList &params = {});
    // First column of the first row, or a null value when there is no row.
    QVariant scalar(const QString &sql, const QVariantList &params = {});

    qint64 lastInsertId() const;
    bool inTransaction() const;
    void begin();
    void commit();

    sqlite3 *handle() const { return m_db; }
    QString path() const { return m_path; }

private:
    sqlite3 *m_db = nullptr;
    QString m_path;
};

// Bulk work runs in one transaction that is committed whether the work ends
// normally or by a fault: what ran before the fault stays, at one sync.
// Inside an open transaction it does nothing.
class Transaction
{
public:
    explicit Transaction(Connection &conn);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

private:
    Connection &m_conn;
    bool m_owner = false;
};

// One unit of work that deletes rows and writes them anew: if any statement of
// the unit fails, the unit is rolled back to its savepoint and the fault goes on
// to the caller; units before it stay. Call release() when the unit succeeded.
// Outside a transaction it opens one of its own, committed on release.
class Savepoint
{
public:
    explicit Savepoint(Connection &conn);
    ~Savepoint();  // rolls the unit back unless released
    void release();
    Savepoint(const Savepoint &) = delete;
    Savepoint &operator=(const Savepoint &) = delete;

private:
    Connection &m_conn;
    QString m_name;
    bool m_done = false;
};

// Runs one unit under a Savepoint: released on success, rolled back and
// rethrown on a fault.
template <typename Work>
void In_Savepoint(Connection &conn, Work &&work)
{
    Savepoint unit(conn);
    work();
    unit.release();
}

// A forward row set, read whole when the statement runs. Fields are found by
// name, case-insensitively: statements spell a field in either case.
class RowSet
{
public:
    RowSet() = default;

    bool eof() const { return m_pos >= static_cast<int>(m_rows.size()); }
    void next() { ++m_pos; }
    void moveFirst() { m_pos = 0; }
    int position() const { return m_pos; }
    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int fieldCount() const { return m_names.size(); }
    QString fieldName(int i) const { return m_names.value(i); }
    int fieldIndex(const QString &name) const;  // -1 when absent

    QVariant value(const QString &name) const;
    QVariant value(int field) const;
    QVariant value(int row, int field) const;
    bool isNull(const QString &name) const { return value(name).isNull(); }
    // 16-bit reader: a NULL reads 0, a value out of range is an overflow fault.
    short toShort(const QString &name) const;
    double toDouble(const QString &name) const;
    // NULL reads as an empty text.
    QString text(const QString &name) const;

private:
    friend class Connection;
    friend class RecordSet;
    QStringList m_names;
    std::vector<QVariantList> m_rows;
    int m_pos = 0;
};

// An updatable row set over one table. Each row keeps its rowid unseen and
// writes its changed fields back by that rowid; it never guesses a key from
// the visible columns.
class RecordSet
{
public:
    RecordSet() = default;
    // select must be "SELECT <fields> FROM <table> ...": the rows written back
    // are the table's, found by its rowid (under the table's alias if it has one).
    void open(Connection &conn, const QString &table, const QString &select);
    void requery();
    bool isOpen() const { return m_conn != nullptr; }
    void close();

    int rowCount() const { return m_rows.rowCount(); }
    int fieldCount() const { return m_rows.fieldCount() - 1; }
    QString fieldName(int field) const { return m_rows.fieldName(field); }
    int fieldIndex(const QString &name) const;

    QVariant value(int row, int field) const { return m_rows.value(row, field); }
    QVariant value(int row, const QString &name) const;
    void setValue(int row, int field, const QVariant &v);
    void setValue(int row, const QString &name, const QVariant &v);
    bool isChanged(int row) const;
    // Writes the row's changed fields; nothing when none changed.
    void update(int row);
    // Drops unsaved changes of a row, as after a failed update.
    void cancelUpdate(int row);
    void remove(int row);
    qint64 rowId(int row) const;
    // Takes a row written since the last reading in at the end, read by its
    // rowid with the statement's fields.
    void append(qint64 rowid);

private:
    Connection *m_conn = nullptr;
    QString m_table;
    QString m_select;
    RowSet m_rows;                       // the last field is the rowid
    std::vector<std::vector<bool>> m_changed;
    std::vector<QVariantList> m_original;
};

// 16-bit range check: a number out of range is an "Overflow" fault.
short To_Int16(qint64 v);
short To_Int16(const QVariant &v);
