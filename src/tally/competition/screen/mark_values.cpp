#include "mark_values.h"
#include "core/routines.h"

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

QString Marks_Select(short comp, const QString &code, short dance, bool registeredOnly, const QString &orderSql)
{
    const QString id = QString::number(comp);
    const QString d = QString::number(dance);
    // Number and mark only: the mark is written back through its own column name.
    if (registeredOnly)
        return "Select comp_judges_results.competitor_id, comp_judges_results.points_awarded1 from "
               "comp_judges_results, competitors c where comp_judges_results.competition_id = "
               + id + " AND comp_judges_results.group_id = '" + Sql_Quote(code) + "' AND comp_judges_results.dance_id = " + d
               + " AND c.competition_id = " + id
               + " AND c.competitor_id = comp_judges_results.competitor_id AND c.registered IS NOT NULL "
                 "Order by comp_judges_results.competitor_id "
               + orderSql;
    return "Select competitor_id, points_awarded1 from comp_judges_results where competition_id = " + id
           + " AND group_id = '" + Sql_Quote(code) + "' AND dance_id = " + d + " Order by competitor_id " + orderSql;
}
