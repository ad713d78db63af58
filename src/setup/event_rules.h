#pragma once
#include "event_logic.h"
#include "ui/grid/grid_rules.h"

// The events grid of the current competition: two caption rows, thirteen
// columns, defaults on new rows, codes unique, codes and flags upper-cased.
class EventRules : public GridRules
{
public:
    EventRules();

    // The categories the checks accept besides "C" and "H", and the lookup list.
    Category_Lookup lookup;

    // Events that never went through the age split read "N".
    void Before_Open(Connection &conn) override;
    QString Select_Sql() const override;
    // A missing overall prize number shows as 6.
    QString Display_Text(int col, const QVariant &value) const override;
    QList<QStringList> Captions(bool afterSave) const override;
    QList<QPair<int, QString>> First_Row_Defaults() const override;
    QString New_Row_Filler() const override;
    QList<QPair<int, QString>> New_Row_Defaults() const override;
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    // Codes must be unique, whatever their case.
    std::optional<Cell_Refusal> Pre_Save_Check(const Grid_Cells &cells) override;
    void Insert_Row(Save_Work &w, int gridRow) override;
    std::optional<Cell_Refusal> Check_At_Save(int col, const QString &text) const override;
    QVariant Field_Value(int col, const QString &text) const override;
    void Delete_Dependents(Connection &conn, const QStringList &row) override;
};
