#pragma once
#include <QList>
#include <QPair>
#include <QString>

class Connection;
class Report;

// Points by teacher over the competition's dance results, best first: the
// first ten and any teacher tied with the tenth. Dances flagged as too small
// for trophies count nothing; teachers are told apart by their text.
QList<QPair<QString, QString>> Teachers_Top_10(Connection &conn, short comp);

// Fills the teachers' trophy sheet (DataReport9) of the current competition.
void Fill_Teachers_Report(Connection &conn, Report &report);

// The menu's Teachers Trophy: fills the sheet on a connection of its own and
// shows it.
void Show_Teachers_Report();
