#include "mark_sheet.h"

#include <cmath>

namespace {

QString Num(int v)
{
    return QString::number(v);
}

bool Is_Disqualify(const QString &text)
{
    return text.trimmed().toUpper() == QLatin1String("D");
}

// A text read as a number the way the marks are typed: blanks around it
// allowed, nothing else.
bool Read_Number(const QString &text, double &value)
{
    bool ok = false;
    value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value);
}

} // namespace

QString Marks_Select(short comp, const QString &group, short dance, bool registeredOnly)
{
    if (registeredOnly) {
        // The row set finds its rows by the table's own name, so the mark
        // table is not given an alias here.
        return "Select judges_results.competitor_id AS Num, judges_results.competition_id, judges_results.group_id, "
               "judges_results.dance_id, judges_results.points_awarded1, judges_results.points_awarded2,  "
               "judges_results.points_awarded3 from judges_results, competitors c where judges_results.competition_id = "
               + Num(comp) + " AND judges_results.group_id = '" + group + "' AND judges_results.dance_id = " + Num(dance)
               + " AND c.competition_id = " + Num(comp)
               + " AND judges_results.competitor_id = c.competitor_id AND c.registered IS NOT NULL Order by "
                 "judges_results.competitor_id";
    }
    return "Select competitor_id AS Num, competition_id, group_id, dance_id, points_awarded1, points_awarded2,  "
           "points_awarded3 from judges_results where competition_id = " + Num(comp) + " AND group_id = '" + group
           + "' AND dance_id = " + Num(dance) + " Order by competitor_id";
}

QString Empty_Marks_Select()
{
    return QStringLiteral("Select competitor_id AS Num, points_awarded1, points_awarded2,  points_awarded3, "
                          "competition_id, group_id, dance_id  from judges_results where competition_id = 0 AND "
                          "group_id = '0' AND dance_id = 0 Order by competitor_id");
}

Mark_Check Check_Mark(const QString &text)
{
    if (text.isEmpty() || Is_Disqualify(text))
        return Mark_Check::Accepted;
    double value = 0;
    if (!Read_Number(text, value))
        return Mark_Check::Not_A_Number;
    // Read as a 16-bit whole number: halves go to the even side, and a value
    // past 16 bits is a fault, not a range error.
    const double whole = std::nearbyint(value);
    if (whole < -32768 || whole > 32767)
        return Mark_Check::Not_A_Number;
    if (whole < 0 || whole > 100)
        return Mark_Check::Out_Of_Range;
    return Mark_Check::Accepted;
}

void Mark_Sheet::open(Connection &conn, const QString &select)
{
    m_conn = &conn;
    m_rs.open(conn, QStringLiteral("judges_results"), select);
}

void Mark_Sheet::requery()
{
    m_rs.requery();
}

QString Mark_Sheet::cellText(int row, int field) const
{
    const QVariant v = m_rs.value(row, field);
    if (v.isNull())
        return QString();
    QString text = v.typeId() == QMetaType::Double ? QString::number(v.toDouble(), 'g', 15) : v.toString();
    // By text, not by value: whatever reads "-1" shows as "D".
    return text.replace(QLatin1String("-1"), QLatin1String("D"));
}

QVariant Mark_Sheet::Field_Value(int field, const QString &text) const
{
    if (text.isEmpty())
        return QVariant();
    if (fieldName(field).compare(QLatin1String("group_id"), Qt::CaseInsensitive) == 0)
        return text;
    if (Is_Disqualify(text))
        return QVariant(qlonglong(-1));
    double value = 0;
    if (!Read_Number(text, value))
        throw DbError(QStringLiteral("Data type mismatch in criteria expression."));
    if (value == std::trunc(value) && std::fabs(value) < 9e15)
        return QVariant(qlonglong(value));
    return QVariant(value);
}

void Mark_Sheet::writeBack(const QList<QStringList> &grid)
{
    Transaction t(*m_conn);
    const int rows = std::min(rowCount(), static_cast<int>(grid.size()));
    for (int r = 0; r < rows; ++r) {
        const QStringList &cells = grid.at(r);
        try {
            for (int f = 0; f < fieldCount() && f < cells.size(); ++f) {
                if (cells.at(f) == cellText(r, f))
                    continue;
                m_rs.setValue(r, f, Field_Value(f, cells.at(f)));
            }
            m_rs.update(r);
        } catch (...) {
            m_rs.cancelUpdate(r);
            throw;
        }
    }
}
