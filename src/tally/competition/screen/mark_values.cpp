#include "mark_sheet.h"

#include <cmath>

namespace {

bool Parse_Number(const QString &text, double *value)
{
    bool ok = false;
    const double d = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(d))
        return false;
    *value = d;
    return true;
}

bool Is_Number(const QVariant &v)
{
    return v.typeId() == QMetaType::LongLong || v.typeId() == QMetaType::Double || v.typeId() == QMetaType::Int;
}

// A row is written only when its mark differs from the stored one.
bool Same_Mark(const QVariant &a, const QVariant &b)
{
    if (a.isNull() || b.isNull())
        return a.isNull() && b.isNull();
    return Is_Number(a) && Is_Number(b) && a.toDouble() == b.toDouble();
}

// Columns of the record set: the marks grid shows the first two.
constexpr int Number_Field = 0;
constexpr int Mark_Field = 1;

} // namespace

Mark_Check Check_Mark(const QString &text)
{
    if (text.isEmpty())
        return Mark_Check::Accepted;
    double d = 0;
    if (!Parse_Number(text, &d))
        return Mark_Check::Invalid;
    // A mark must also pass as a 16-bit whole number (rounded half to even).
    const double whole = std::nearbyint(d);
    if (whole < -32768.0 || whole > 32767.0)
        return Mark_Check::Invalid;
    if (d < 0.0 || d > 100.0)
        return Mark_Check::Out_Of_Range;
    return Mark_Check::Accepted;
}

QVariant Mark_Value(const QString &text)
{
    if (text.isEmpty())
        return QVariant();
    double d = 0;
    if (!Parse_Number(text, &d))
        return QVariant(text);
    if (d == std::floor(d) && std::fabs(d) < 1e15)
        return QVariant(static_cast<qlonglong>(d));
    return QVariant(d);
}

QString Mark_Text(const QVariant &value)
{
    if (value.isNull())
        return QString();
    if (value.typeId() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 15);
    return value.toString();
}

QString Marks_Select(short comp, const QString &code, short dance, bool registeredOnly, const QString &orderSql)
{
    const QString id = QString::number(comp);
    const QString d = QString::number(dance);
    // The marks are written back through the table's own column names.
    if (registeredOnly)
        return "Select comp_judges_results.competitor_id, comp_judges_results.points_awarded1, "
               "comp_judges_results.competition_id, comp_judges_results.group_id, comp_judges_results.dance_id "
               "from comp_judges_results, competitors c where comp_judges_results.competition_id = "
               + id + " AND comp_judges_results.group_id = '" + code + "' AND comp_judges_results.dance_id = " + d
               + " AND c.competition_id = " + id
               + " AND c.competitor_id = comp_judges_results.competitor_id AND c.registered IS NOT NULL "
                 "Order by comp_judges_results.competitor_id "
               + orderSql;
    return "Select competitor_id, points_awarded1, competition_id, group_id, dance_id from comp_judges_results "
           "where competition_id = "
           + id + " AND group_id = '" + code + "' AND dance_id = " + d + " Order by competitor_id " + orderSql;
}

void Mark_Sheet::open(Connection &conn, short comp, const QString &code, short dance, bool registeredOnly,
                      const QString &orderSql)
{
    m_conn = &conn;
    m_rs.open(conn, QStringLiteral("comp_judges_results"), Marks_Select(comp, code, dance, registeredOnly, orderSql));
}

QString Mark_Sheet::number(int row) const
{
    return Mark_Text(m_rs.value(row, Number_Field));
}

QString Mark_Sheet::mark(int row) const
{
    return Mark_Text(m_rs.value(row, Mark_Field));
}

int Mark_Sheet::write(const QStringList &marks, QString *error)
{
    Transaction t(*m_conn);
    const int rows = qMin(static_cast<int>(marks.size()), rowCount());
    for (int row = 0; row < rows; ++row) {
        const QVariant value = Mark_Value(marks.at(row));
        const QVariant old = m_rs.value(row, Mark_Field);
        if (Same_Mark(value, old))
            continue;
        try {
            m_rs.setValue(row, Mark_Field, value);
            m_rs.update(row);
        } catch (const AppError &e) {
            m_rs.cancelUpdate(row);
            if (error)
                *error = e.message();
            return row;
        }
    }
    return -1;
}
