#pragma once
#include "cell_check.h"

#include <QStringList>
#include <QVariant>

class Connection;

// Database work and checks of the events screen, apart from its widgets.
// Columns are those of the events grid: 1 name, 2 code, 3 category, 4 prizes,
// 5 split H/N, 6 split ages, 7 title, 8 open/closed, 9 overall prizes,
// 10 dancer order, 11 group order, 12 include Trophy Fling.

// Codes and names of the competition's categories for the lookup list,
// names descending, codes at the same positions.
struct Category_Lookup
{
    QStringList names;
    QStringList codes;
};
Category_Lookup Read_Category_Lookup(Connection &conn, short competitionId);

// True for "C" and "H" without looking, else when the text in upper case is
// one of the codes.
bool Category_Exists(const QString &text, const QStringList &codes);
// At least one character and nothing but the digits 0 to 9.
bool Is_Digits(const QString &text);

// The check of a cell as the operator leaves it. Refuses with the column's
// box; a text that should be a number and is none throws (the screen's
// "Invalid Number!" handler).
Cell_Check Check_Event_Cell(int col, const QString &text, const QStringList &codes);
// The checks of a saved row's cell at save time (columns 3, 5 and 12),
// worded otherwise than at the cell.
Cell_Check Check_Event_Saved_Cell(int col, const QString &text, const QStringList &codes);
// What goes into the field of a saved row: names and numbers as typed, the
// group order NULL when empty, the rest in upper case.
QVariant Event_Field_Value(int col, const QString &text);

// True when two codes are the same regardless of case.
bool Has_Duplicate_Codes(const QStringList &codes);

// Writes a new event from the cells 1 to 12 (index 0 unused).
void Insert_Event(Connection &conn, short competitionId, const QStringList &cells);

// Events that never went through the age split read "N" on every opening.
void Default_Split_Ages(Connection &conn, short competitionId);

// Results, entries and trophy links of an event code; the age_groups row and
// the dancers' group_id1..8 columns are left alone.
void Delete_Event_Dependents(Connection &conn, short competitionId, const QString &code);
