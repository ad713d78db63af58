#pragma once
#include <QString>
#include <QStringList>
#include <QVariant>
#include <vector>

class Connection;

// The updatable rows behind the competitors grid. The grid's statement may be
// a search that names competitors under an alias and joins other tables, so
// the row set keeps each competitor's rowid (read through the alias) unseen
// and writes back to competitors by that rowid alone; it never takes the
// number in the grid for a key, since the number can be changed there.
class Competitor_Rows
{
public:
    void open(Connection &conn, const QString &statement);
    void requery();
    void close();
    bool isOpen() const { return m_conn != nullptr; }
    QString statement() const { return m_statement; }

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int fieldCount() const { return m_names.size(); }
    QVariant value(int row, int field) const;
    // The value as the grid shows it; NULL is empty.
    QString text(int row, int field) const;

    void setValue(int row, int field, const QVariant &v);
    // Writes the fields set since the last update; nothing when none was set.
    void update(int row);
    void remove(int row);

    // The name under which the statement reads competitors ("c" in a search).
    static QString Alias_Of(const QString &statement);

private:
    struct Row
    {
        qint64 rowid = 0;
        QVariantList values;
        std::vector<bool> set;
    };
    Connection *m_conn = nullptr;
    QString m_statement;
    QStringList m_names;
    std::vector<Row> m_rows;
};

// Text of a stored value as the grids show it: NULL empty, 87.5, 12.
QString Grid_Text(const QVariant &v);
