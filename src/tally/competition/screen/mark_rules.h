#pragma once
#include "ui/grid/grid_rules.h"

// The mark grid of the Competition screen: number (fixed, shown) and mark of
// each dancer of the dance; only the mark is ever written back, and rows are
// neither added nor deleted here.
class Mark_Rules : public GridRules
{
public:
    Mark_Rules();

    // What the grid shows; the screen sets these before each opening.
    short comp = 0;
    QString code;
    short dance = 0;
    bool registeredOnly = false;
    QString orderSql = QStringLiteral("ASC");

    // Set by a refusal for a number out of range, so that the screen can
    // select the text in the editor.
    bool outOfRangeRefused = false;

    QString Select_Sql() const override;
    QList<QStringList> Captions(bool afterSave) const override;
    QString New_Row_Filler() const override { return QString(); }
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    void Insert_New_From_Grid(Save_Work &w) override {}
    void Insert_Row(Save_Work &w, int gridRow) override {}
    // Writes column 1 only, and only when it differs from the stored mark.
    std::optional<Cell_Refusal> Write_Row(Save_Work &w, int record, int gridRow) override;
    bool Delete_Allowed(const QStringList &row) const override { return false; }
    void Delete_Dependents(Connection &conn, const QStringList &row) override {}
};

inline const QString Mark_Range_Message =
    QStringLiteral("Nunber must be between 0 and 100! Re-enter or Hit <Escape> to exit");
inline const QString Mark_Invalid_Message = QStringLiteral("Invalid Number! Re-enter or Hit <Escape> to exit");
