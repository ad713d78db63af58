#pragma once
#include "ui/grid/grid_rules.h"

// The competitions grid: every competition in the file, by name. A new row
// brings the standard categories and dances with it.
class CompetitionRules : public GridRules
{
public:
    CompetitionRules();

    QString Select_Sql() const override;
    // The online columns are worded otherwise after a save.
    QList<QStringList> Captions(bool afterSave) const override;
    QString New_Row_Filler() const override { return QStringLiteral("0"); }
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    // Columns 1 to 7 only: the online login of a new row is not stored.
    void Insert_Row(Save_Work &w, int gridRow) override;
    // Nothing for a row never saved (id "0" or empty).
    void Delete_Dependents(Connection &conn, const QStringList &row) override;
};
