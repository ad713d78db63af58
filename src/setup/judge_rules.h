#pragma once
#include "ui/grid/grid_rules.h"

// The judges of the current competition.
class JudgeRules : public GridRules
{
public:
    JudgeRules();

    QString Select_Sql() const override;
    QList<QStringList> Captions(bool afterSave) const override;
    QString New_Row_Filler() const override;
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    void Insert_Row(Save_Work &w, int gridRow) override;
    void Delete_Dependents(Connection &conn, const QStringList &row) override;
};
