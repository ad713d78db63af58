#include "event_rules.h"

#include "core/globals.h"

namespace {

std::optional<Cell_Refusal> Convert(const Cell_Check &c)
{
    if (!c)
        return std::nullopt;
    return Cell_Refusal{c->text, c->title, c->style};
}

} // namespace

EventRules::EventRules()
{
    table = QStringLiteral("age_groups");
    fixedRows = 2;
    widths = {0, 4200, 800, 1300, 700, 550, 550, 2000, 750, 850, 750, 750, 750};
    required = {1, 2, 3, 4, 5, 6};
    commitMarksDirty = true;
    texts.failureTitle = QStringLiteral("Data Error");
    texts.failureLine = QStringLiteral("There was an error updating event: ");
    texts.hintLine = QStringLiteral("Please ensure that that all fields have values entered and that 'Event Code' is unique!'");
    texts.fixLine = QStringLiteral("Please fix this record and save again, otherwise you may lose some data!");
    texts.faultTitle = QStringLiteral("Validation Error");
    texts.faultText = QStringLiteral("Invalid Number! Re-enter or Hit <Escape> to exit");
    texts.deleteQuestion = QStringLiteral("Are you sure you want to delete Event? \nIt will also delete all associated results.");
}

void EventRules::Before_Open(Connection &conn)
{
    Default_Split_Ages(conn, Current_Competition_Id);
}

QString EventRules::Select_Sql() const
{
    return QStringLiteral("Select group_id, age_group, competition_group_id, Category , no_prizes, split_overalls, "
                          "split_ages, championship_title, championship_type, no_overall_prizes, dancer_order, "
                          "orderby, inc_t_fling from age_groups where competition_id = ")
           + QString::number(Current_Competition_Id) + QStringLiteral(" ORDER BY championship_title,age_group");
}

QString EventRules::Display_Text(int col, const QVariant &value) const
{
    if (col == 9 && value.isNull())
        return QStringLiteral("6");
    return Grid_Text(value);
}

QList<QStringList> EventRules::Captions(bool) const
{
    return {{QString(), "Age Group Name", "Code", "Dance", "No", "Split", "Split", "Championship", "Open", "No O'all",
             "Dancer", "Group", "Inc T"},
            {QString(), QString(), QString(), "Category", "Prizes", "H/N", "Ages", "Title", "Closed", "Prizes", "Order",
             "Order", "Fling"}};
}

QList<QPair<int, QString>> EventRules::First_Row_Defaults() const
{
    return {{4, "6"}, {5, "N"}, {6, "N"}, {9, "1"}, {10, "A"}, {12, "Y"}};
}

QString EventRules::New_Row_Filler() const
{
    return QString::number(Current_Competition_Id);
}

QList<QPair<int, QString>> EventRules::New_Row_Defaults() const
{
    return {{5, "N"}, {6, "N"}, {4, "6"}, {9, "1"}, {10, "A"}, {12, "Y"}};
}

std::optional<Cell_Refusal> EventRules::Check_Cell(int, int col, QString &text)
{
    return Convert(Check_Event_Cell(col, text, lookup.codes));
}

std::optional<Cell_Refusal> EventRules::Pre_Save_Check(const Grid_Cells &cells)
{
    QStringList codes;
    for (int r = fixedRows; r < cells.rows(); ++r)
        codes << cells.text(r, 2);
    if (Has_Duplicate_Codes(codes))
        return Cell_Refusal{QStringLiteral("You have entered a duplicate group code!. Please re-enter unique ones.")};
    return std::nullopt;
}

void EventRules::Insert_Row(Save_Work &w, int gridRow)
{
    Insert_Event(w.conn, Current_Competition_Id, w.cells.row(gridRow));
}

std::optional<Cell_Refusal> EventRules::Check_At_Save(int col, const QString &text) const
{
    return Convert(Check_Event_Saved_Cell(col, text, lookup.codes));
}

QVariant EventRules::Field_Value(int col, const QString &text) const
{
    return Event_Field_Value(col, text);
}

void EventRules::Delete_Dependents(Connection &conn, const QStringList &row)
{
    Delete_Event_Dependents(conn, Current_Competition_Id, row.value(2));
}
