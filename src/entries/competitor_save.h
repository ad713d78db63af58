#pragma once
#include <QString>
#include <QStringList>
#include <functional>

class Connection;
class RecordSet;
class Row_Marks;

// The two ways a grid row of competitors reaches the table. New rows are
// written by INSERT with their own quoting and keep their case; saved rows go
// through the row set and are upper-cased, all but a few columns.

// The text, or the word Null when empty.
QString Text_Or_Null(const QString &text);
// NULL when empty, else the upper-cased text between quotes, not escaped.
QString Quoted_Or_Null(const QString &text);

// The INSERT of a new grid row (cells: the 25 columns).
QString New_Competitor_Insert(short competitionId, const QStringList &cells);
// Writes a new row and its events.
void Insert_New_Competitor(Connection &conn, short competitionId, const QStringList &cells);
// Writes an edited row through the row set, events first. Events are read
// from column 16 on, so Field4 also becomes an event of the dancer.
void Write_Edited_Competitor(Connection &conn, short competitionId, RecordSet &rows, int rsRow,
                             const QStringList &cells);

// Text of a grid cell: (grid row, column).
using Cell_Reader = std::function<QString(int row, int col)>;
QStringList Grid_Row_Cells(const Cell_Reader &cell, int row);

// A save's writes in one transaction: every grid row below the saved rows by
// INSERT, then each saved row that carries a mark (its mark cleared first).
// The grid has one caption row. workRow follows the row in work, so that a
// fault can name it; the fault itself goes to the caller, and what was
// written before it stays.
void Save_Competitor_Grid(Connection &conn, short competitionId, RecordSet &rows, Row_Marks &marks,
                          int lastGridRow, const Cell_Reader &cell, int &workRow);
