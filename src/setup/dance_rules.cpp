#include "dance_rules.h"
#include "category_logic.h"

DanceRules::DanceRules()
{
    table = QStringLiteral("dances");
    fixedRows = 1;
    widths = {0, 4000};
    required = {1};
    commitMarksDirty = true;
    emptyCellIsNull = false;
    texts.failureTitle = QStringLiteral("Data Error");
    texts.failureLine = QStringLiteral("There was an error updating Dance: ");
    texts.faultTitle = QStringLiteral("Data Error");
    texts.faultText = QStringLiteral("There was an error! Re-enter or Hit <Escape> to exit");
    texts.deleteQuestion = QStringLiteral("Are you sure you want to delete Dance? \nIt will also delete all associated results.");
}

QString DanceRules::Select_Sql() const
{
    return QStringLiteral("Select dance_id, dance FROM dances ORDER BY dance_id");
}

QList<QStringList> DanceRules::Captions(bool) const
{
    return {{QString(), QStringLiteral("Dance Name")}};
}

std::optional<Cell_Refusal> DanceRules::Check_Cell(int, int, QString &text)
{
    if (text.isEmpty())
        return Cell_Refusal{QStringLiteral("All fields are required! If you wish to delete this record, enter a value first")};
    return std::nullopt;
}

void DanceRules::Insert_New_From_Grid(Save_Work &w)
{
    if (w.addedRows > 0)
        GridRules::Insert_New_From_Grid(w);
}

void DanceRules::Insert_Row(Save_Work &w, int gridRow)
{
    Insert_Dance(w.conn, w.cells.text(gridRow, 1));
}

bool DanceRules::Delete_Allowed(const QStringList &row) const
{
    return Dance_Can_Be_Deleted(row.value(0));
}

void DanceRules::Delete_Dependents(Connection &conn, const QStringList &row)
{
    Delete_Dance_Dependents(conn, row.value(0));
}
