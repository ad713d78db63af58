#include "mark_rules.h"
#include "core/errors.h"
#include "core/db.h"
#include "core/routines.h"

#include <cmath>

namespace ThreeJudge {

namespace {

QString Num(int v)
{
    return QString::number(v);
}

bool Is_Disqualify(const QString &text)
{
    return text.trimmed().toUpper() == QLatin1String("D");
}

// A number as typed: blanks around it allowed, nothing else.
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
        // table takes no alias here.
        return "Select judges_results.competitor_id AS Num, judges_results.competition_id, judges_results.group_id, "
               "judges_results.dance_id, judges_results.points_awarded1, judges_results.points_awarded2,  "
               "judges_results.points_awarded3 from judges_results, competitors c where judges_results.competition_id = "
               + Num(comp) + " AND judges_results.group_id = '" + Sql_Quote(group) + "' AND judges_results.dance_id = " + Num(dance)
               + " AND c.competition_id = " + Num(comp)
               + " AND judges_results.competitor_id = c.competitor_id AND c.registered IS NOT NULL Order by "
                 "judges_results.competitor_id";
    }
    return "Select competitor_id AS Num, competition_id, group_id, dance_id, points_awarded1, points_awarded2,  "
           "points_awarded3 from judges_results where competition_id = " + Num(comp) + " AND group_id = '" + Sql_Quote(group)
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
    // past 16 bits is a fault rather than a range error.
    const double whole = std::nearbyint(value);
    if (whole < -32768 || whole > 32767)
        return Mark_Check::Not_A_Number;
    if (whole < 0 || whole > 100)
        return Mark_Check::Out_Of_Range;
    return Mark_Check::Accepted;
}

Mark_Rules::Mark_Rules()
{
    table = QStringLiteral("judges_results");
    fixedRows = 1;
    widths = {500, 0, 0, 0, 1500, 1500, 1500};
    emptyCellIsNull = true;
    texts.faultTitle = QStringLiteral("Validation Error");
    texts.faultText = Mark_Invalid_Message;
    texts.faultStyle = vbExclamation;
    select = Empty_Marks_Select();
}

QString Mark_Rules::Display_Text(int col, const QVariant &value) const
{
    return Grid_Text(value).replace(QLatin1String("-1"), QLatin1String("D"));
}

QList<QStringList> Mark_Rules::Captions(bool afterSave) const
{
    return {{QStringLiteral("Num"), QString(), QString(), QString(), QStringLiteral("Judge 1"),
             QStringLiteral("Judge 2"), QStringLiteral("Judge 3")}};
}

std::optional<Cell_Refusal> Mark_Rules::Check_Cell(int row, int col, QString &text)
{
    switch (Check_Mark(text)) {
    case Mark_Check::Accepted:
        return std::nullopt;
    case Mark_Check::Out_Of_Range:
        return Cell_Refusal{Mark_Range_Message, QStringLiteral("Validation Error"), vbExclamation};
    case Mark_Check::Not_A_Number:
        break;
    }
    throw AppError(QStringLiteral("Type mismatch"));
}

QVariant Mark_Rules::Field_Value(int col, const QString &text) const
{
    if (text.isEmpty())
        return QVariant();
    if (Is_Disqualify(text))
        return QVariant(qlonglong(-1));
    double value = 0;
    if (!Read_Number(text, value))
        throw DbError(QStringLiteral("Data type mismatch in criteria expression."));
    if (value == std::trunc(value) && std::fabs(value) < 9e15)
        return QVariant(qlonglong(value));
    return QVariant(value);
}

std::optional<Cell_Refusal> Mark_Rules::Write_Row(Save_Work &w, int record, int gridRow)
{
    // The key columns show "-1" as "D" like the marks; only the marks go back.
    for (int f = First_Judge_Column; f <= Last_Judge_Column && f < w.rs.fieldCount(); ++f) {
        w.workCol = f;
        w.rs.setValue(record, f, Field_Value(f, w.cells.text(gridRow, f)));
    }
    w.workCol = First_Judge_Column;
    w.rs.update(record);
    return std::nullopt;
}

} // namespace ThreeJudge
