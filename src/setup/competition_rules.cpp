#include "competition_rules.h"
#include "competition_logic.h"

#include "core/db.h"

CompetitionRules::CompetitionRules()
{
    table = QStringLiteral("competitions");
    fixedRows = 1;
    widths = {0, 3500, 1000, 1000, 1000, 1300, 1300, 1300, 700, 1100, 900};
    required = {1, 2};
    commitMarksDirty = false;
    emptyCellIsNull = true;
    texts.failureTitle = QStringLiteral("Data Error");
    texts.failureLine = QStringLiteral("There was an error updating record: ");
    texts.hintLine = QStringLiteral(" Ensure all fields are populated!");
    texts.hintJoined = true;
    texts.faultTitle = QStringLiteral("Data Error");
    texts.faultText = QStringLiteral("There was an error! Re-enter or Hit <Escape> to exit");
    texts.deleteQuestion = QStringLiteral("Are you sure you want to delete Competition? \n"
                                          "It will also delete all associated results and entries.");
}

QString CompetitionRules::Select_Sql() const
{
    return QStringLiteral("Select competition_id, competition_name, competition_date, competition_organiser, "
                          "organiser_role, competition_venue, competition_town, address, registration_id, "
                          "registration_email, registration_key FROM competitions ORDER BY competition_name");
}

QList<QStringList> CompetitionRules::Captions(bool afterSave) const
{
    QStringList row = {QString(), "Name", "Date", "Organiser", "Role", "Venue", "Town", "Org Address"};
    if (afterSave)
        row << "Reg ID" << "Reg Email" << "Reg Key";
    else
        row << "Online ID" << "Online Email" << "Online Key";
    return {row};
}

std::optional<Cell_Refusal> CompetitionRules::Check_Cell(int row, int col, QString &text)
{
    if ((col == 1 || col == 2) && text.isEmpty())
        return Cell_Refusal{QStringLiteral("Name and date are required! If you wish to delete this record, enter a "
                                           "value first")};
    return std::nullopt;
}

void CompetitionRules::Insert_Row(Save_Work &w, int gridRow)
{
    QStringList cells;
    for (int col = 1; col <= 7; ++col)
        cells << w.cells.text(gridRow, col);
    Insert_Competition(w.conn, cells);
}

void CompetitionRules::Delete_Dependents(Connection &conn, const QStringList &row)
{
    const QString id = row.value(0);
    if (id == QLatin1String("0") || id.isEmpty())
        return;
    Delete_Competition_Dependents(conn, To_Int16(id.toLongLong()));
}
