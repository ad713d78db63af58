#pragma once
#include "ui/grid/grid_rules.h"

// The dance names shared by every competition. The seventeen standard dances
// cannot be deleted.
class DanceRules : public GridRules
{
public:
    DanceRules();

    QString Select_Sql() const override;
    QList<QStringList> Captions(bool afterSave) const override;
    QString New_Row_Filler() const override { return QStringLiteral("0"); }
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    // New rows are written only when rows were added since the last save.
    void Insert_New_From_Grid(Save_Work &w) override;
    void Insert_Row(Save_Work &w, int gridRow) override;
    bool Delete_Allowed(const QStringList &row) const override;
    void Delete_Dependents(Connection &conn, const QStringList &row) override;
};
