#pragma once
#include "core/db.h"

#include <QList>
#include <QString>
#include <QStringList>

// The marks of one dance of a three-judge event as the grid shows them: one
// row per dancer, fields Num, competition_id, group_id, dance_id and the marks
// of judges 1 to 3. A disqualification is stored as -1 and shown as "D".

// The statement of the marks; with registeredOnly only signed-in dancers.
QString Marks_Select(short comp, const QString &group, short dance, bool registeredOnly);

// The statement the screen opens on before any event is chosen: no rows.
QString Empty_Marks_Select();

// Where the judges' marks stand in the grid.
inline constexpr int First_Judge_Column = 4;
inline constexpr int Last_Judge_Column = 6;

enum class Mark_Check { Accepted, Out_Of_Range, Not_A_Number };

// The editor's check of a typed mark: empty, "D" or "d", or a whole number
// read as 16 bits lying from 0 to 100 (a fraction is rounded for the check
// only, and kept as typed).
Mark_Check Check_Mark(const QString &text);
inline const QString Mark_Range_Message =
    QStringLiteral("Nunber must be between 0 and 100 or D for disqualify! Re-enter or Hit <Escape> to exit");
inline const QString Mark_Invalid_Message = QStringLiteral("Invalid Entry! Re-enter or Hit <Escape> to exit");

class Mark_Sheet
{
public:
    // Open_Marks: reads the marks of the statement, updatable.
    void open(Connection &conn, const QString &select);
    void requery();
    bool isOpen() const { return m_rs.isOpen(); }
    void close() { m_rs.close(); }

    int rowCount() const { return m_rs.rowCount(); }
    int fieldCount() const { return m_rs.fieldCount(); }
    QString fieldName(int field) const { return m_rs.fieldName(field); }

    // The text of a field as the grid shows it: NULL empty, and every "-1"
    // in the text shown as "D".
    QString cellText(int row, int field) const;

    // Read_Values_From_Grid: grid row r holds record r (header row left out),
    // one text per field. An empty text writes NULL; "D" or "d" is stored as
    // -1 in a number field; a text that is no number refuses the write. A
    // cell still showing what was read is left as it is. Rows before a
    // refused one stay written; the refused row keeps its old values.
    void writeBack(const QList<QStringList> &grid);

private:
    QVariant Field_Value(int field, const QString &text) const;
    Connection *m_conn = nullptr;
    RecordSet m_rs;
};
