#include "judge_rules.h"
#include "judge_logic.h"

#include "core/globals.h"

JudgeRules::JudgeRules()
{
    table = QStringLiteral("judges");
    fixedRows = 1;
    widths = {0, 4000, 4000};
    required = {1, 2};
    commitMarksDirty = true;
    emptyCellIsNull = false;
    // The failure box borrows the words of the events screen.
    texts.failureTitle = QStringLiteral("Validation Error");
    texts.failureLine = QStringLiteral("There was an error updating group: ");
    texts.hintLine = QStringLiteral("Please ensure that the 'Group Code' is unique!'");
    texts.faultTitle = QStringLiteral("Validation Error");
    texts.faultText = QStringLiteral("There was an error! Re-enter or Hit <Escape> to exit");
    texts.deleteQuestion = QStringLiteral("Are you sure you want to delete Judge? \nIt will also delete judge from any results.");
}

QString JudgeRules::Select_Sql() const
{
    return QStringLiteral("Select judge_id, forename, surname from judges where competition_id = ")
           + QString::number(Current_Competition_Id);
}

QList<QStringList> JudgeRules::Captions(bool) const
{
    return {{QStringLiteral("Judge_id"), QStringLiteral("Firstname"), QStringLiteral("Surname")}};
}

QString JudgeRules::New_Row_Filler() const
{
    return QString::number(Current_Competition_Id);
}

std::optional<Cell_Refusal> JudgeRules::Check_Cell(int, int, QString &text)
{
    if (text.isEmpty())
        return Cell_Refusal{QStringLiteral("All fields are required! If you wish to delete this record, enter a value first")};
    return std::nullopt;
}

void JudgeRules::Insert_Row(Save_Work &w, int gridRow)
{
    Insert_Judge(w.conn, Current_Competition_Id, w.cells.text(gridRow, 1), w.cells.text(gridRow, 2));
}

void JudgeRules::Delete_Dependents(Connection &conn, const QStringList &row)
{
    Delete_Judge_Dependents(conn, Current_Competition_Id, row.value(0));
}
