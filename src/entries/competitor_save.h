#pragma once
#include <QString>
#include <QStringList>

class Connection;
class RecordSet;

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
