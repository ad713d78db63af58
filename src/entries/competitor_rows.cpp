#include "competitor_rows.h"
#include "core/db.h"

#include <QRegularExpression>

namespace {

const QString No_Current_Record = QStringLiteral(
    "Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record.");

} // namespace

QString Grid_Text(const QVariant &v)
{
    if (v.isNull())
        return QString();
    if (v.typeId() == QMetaType::Double)
        return QString::number(v.toDouble(), 'g', 15);
    return v.toString();
}

QString Competitor_Rows::Alias_Of(const QString &statement)
{
    static const QRegularExpression re(
        QStringLiteral("\\bcompetitors\\s+(?:as\\s+)?(?!where\\b|order\\b|inner\\b|left\\b|join\\b)([a-z_]\\w*)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto m = re.match(statement);
    return m.hasMatch() ? m.captured(1) : QStringLiteral("competitors");
}

void Competitor_Rows::open(Connection &conn, const QString &statement)
{
    m_conn = &conn;
    m_statement = statement.trimmed();
    requery();
}

void Competitor_Rows::requery()
{
    if (!m_statement.startsWith(QLatin1String("Select "), Qt::CaseInsensitive))
        throw DbError(QStringLiteral("A row set needs a SELECT statement"));
    // The rowid goes last, so that an order by column number still counts
    // the statement's own columns.
    static const QRegularExpression from(QStringLiteral("\\sfrom\\s"), QRegularExpression::CaseInsensitiveOption);
    const qsizetype at = m_statement.indexOf(from);
    if (at < 0)
        throw DbError(QStringLiteral("A row set needs a SELECT statement"));
    RowSet rs = m_conn->query(m_statement.left(at) + QStringLiteral(", ") + Alias_Of(m_statement)
                              + QStringLiteral(".rowid AS __rowid__") + m_statement.mid(at));
    const int key = rs.fieldCount() - 1;
    m_names.clear();
    for (int f = 0; f < key; ++f)
        m_names << rs.fieldName(f).section(QLatin1Char('.'), -1);
    m_rows.clear();
    m_rows.reserve(rs.rowCount());
    for (int r = 0; r < rs.rowCount(); ++r) {
        Row row;
        row.rowid = rs.value(r, key).toLongLong();
        row.values.reserve(key);
        for (int f = 0; f < key; ++f)
            row.values << rs.value(r, f);
        m_rows.push_back(std::move(row));
    }
}

void Competitor_Rows::close()
{
    m_conn = nullptr;
    m_names.clear();
    m_rows.clear();
}

QVariant Competitor_Rows::value(int row, int field) const
{
    if (row < 0 || row >= rowCount() || field < 0 || field >= fieldCount())
        throw DbError(No_Current_Record);
    return m_rows[row].values.at(field);
}

QString Competitor_Rows::text(int row, int field) const
{
    return Grid_Text(value(row, field));
}

void Competitor_Rows::setValue(int row, int field, const QVariant &v)
{
    if (row < 0 || row >= rowCount() || field < 0 || field >= fieldCount())
        throw DbError(No_Current_Record);
    Row &r = m_rows[row];
    if (r.set.empty())
        r.set.assign(m_names.size(), false);
    r.values[field] = v;
    r.set[field] = true;
}

void Competitor_Rows::update(int row)
{
    if (row < 0 || row >= rowCount())
        throw DbError(No_Current_Record);
    Row &r = m_rows[row];
    if (r.set.empty())
        return;
    QStringList sets;
    QVariantList params;
    for (int f = 0; f < fieldCount(); ++f) {
        if (!r.set[f])
            continue;
        sets << m_names.at(f) + QStringLiteral(" = ?");
        params << r.values.at(f);
    }
    params << r.rowid;
    m_conn->execute(QStringLiteral("UPDATE competitors SET ") + sets.join(QStringLiteral(", "))
                        + QStringLiteral(" WHERE rowid = ?"),
                    params);
    r.set.clear();
}

void Competitor_Rows::remove(int row)
{
    if (row < 0 || row >= rowCount())
        throw DbError(No_Current_Record);
    m_conn->execute(QStringLiteral("DELETE FROM competitors WHERE rowid = ?"), {m_rows[row].rowid});
    m_rows.erase(m_rows.begin() + row);
}
