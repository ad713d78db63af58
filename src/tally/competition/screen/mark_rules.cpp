#include "mark_rules.h"
#include "mark_values.h"
#include "core/db.h"

namespace {

constexpr int Mark_Col = 1;

bool Same_Mark(const QVariant &a, const QVariant &b)
{
    if (a.isNull() || b.isNull())
        return a.isNull() && b.isNull();
    bool okA = false;
    bool okB = false;
    const double x = a.toDouble(&okA);
    const double y = b.toDouble(&okB);
    return okA && okB && a.typeId() != QMetaType::QString && x == y;
}

} // namespace

Mark_Rules::Mark_Rules()
{
    table = QStringLiteral("comp_judges_results");
    fixedRows = 1;
    widths = {500, 750};
    commitMarksDirty = false;
    texts.failureTitle = QStringLiteral("Validation Error");
    texts.faultTitle = QStringLiteral("Validation Error");
    texts.faultText = Mark_Invalid_Message;
}

QString Mark_Rules::Select_Sql() const
{
    return Marks_Select(comp, code, dance, registeredOnly, orderSql);
}

QList<QStringList> Mark_Rules::Captions(bool) const
{
    return {{QStringLiteral("Num"), QStringLiteral("Mark")}};
}

std::optional<Cell_Refusal> Mark_Rules::Check_Cell(int, int, QString &text)
{
    outOfRangeRefused = false;
    switch (Check_Mark(text)) {
    case Mark_Check::Accepted:
        return std::nullopt;
    case Mark_Check::Out_Of_Range:
        outOfRangeRefused = true;
        return Cell_Refusal{Mark_Range_Message};
    case Mark_Check::Invalid:
        break;
    }
    return Cell_Refusal{Mark_Invalid_Message};
}

std::optional<Cell_Refusal> Mark_Rules::Write_Row(Save_Work &w, int record, int gridRow)
{
    const QVariant value = Mark_Value(w.cells.text(gridRow, Mark_Col));
    if (Same_Mark(value, w.rs.value(record, Mark_Col)))
        return std::nullopt;
    w.workCol = Mark_Col;
    w.rs.setValue(record, Mark_Col, value);
    w.rs.update(record);
    return std::nullopt;
}
