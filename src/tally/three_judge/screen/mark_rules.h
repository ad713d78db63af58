#pragma once
#include "ui/grid/grid_rules.h"

#include <QString>

namespace ThreeJudge {

// The marks of one dance of a three-judge event as the grid shows them: one
// row per dancer, columns Num, competition_id, group_id, dance_id (these three
// hidden) and the marks of judges 1 to 3. A disqualification is stored as -1
// and shown as "D".

// The statement of the marks; with registeredOnly only signed-in dancers.
QString Marks_Select(short comp, const QString &group, short dance, bool registeredOnly);
// The statement the screen opens on before any event is chosen: no rows.
QString Empty_Marks_Select();

inline constexpr int Group_Column = 2;
inline constexpr int First_Judge_Column = 4;
inline constexpr int Last_Judge_Column = 6;

enum class Mark_Check { Accepted, Out_Of_Range, Not_A_Number };

// The editor's check of a typed mark: empty, "D" or "d", or a number read as
// a 16-bit whole number lying from 0 to 100 (a fraction is rounded for the
// check only and kept as typed).
Mark_Check Check_Mark(const QString &text);
inline const QString Mark_Range_Message =
    QStringLiteral("Nunber must be between 0 and 100 or D for disqualify! Re-enter or Hit <Escape> to exit");
inline const QString Mark_Invalid_Message = QStringLiteral("Invalid Entry! Re-enter or Hit <Escape> to exit");
inline const QString Mark_Update_Message = QStringLiteral("There was an error during the update!");

// The mark grid for the shared editor: its checks, its display of -1 as "D"
// and its write-back of the marks, where "D" or "d" becomes -1 and a text
// that is no number refuses the write. No rows are added or deleted on this grid.
class Mark_Rules : public GridRules
{
public:
    Mark_Rules();

    // The statement of the marks on screen, set before each opening.
    QString select;

    QString Select_Sql() const override { return select; }
    // Whatever reads "-1" shows as "D", by text and in every column.
    QString Display_Text(int col, const QVariant &value) const override;
    QList<QStringList> Captions(bool afterSave) const override;
    QString New_Row_Filler() const override { return QString(); }
    std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) override;
    void Insert_Row(Save_Work &w, int gridRow) override {}
    QVariant Field_Value(int col, const QString &text) const override;
    // Writes the judges' three marks only, never the hidden key columns.
    std::optional<Cell_Refusal> Write_Row(Save_Work &w, int record, int gridRow) override;
    void Delete_Dependents(Connection &conn, const QStringList &row) override {}
};

} // namespace ThreeJudge
