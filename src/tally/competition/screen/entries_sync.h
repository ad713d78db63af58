#pragma once
#include <QList>
#include <QString>

class Connection;

// Keeps the mark rows of an event in step with its entries, and marks the
// dances of small events so that they count for no trophy.

// Dancers entered in the event.
int Count_Event_Dancers(Connection &conn, short comp, const QString &code);

// With fewer than six dancers entered, every dance of the event's category is
// flagged in dance_no_dancers (the event's old flags go first). Returns true
// when the event was flagged.
bool Flag_Small_Event(Connection &conn, short comp, const QString &code, const QString &category);

// The same rule for one dance, counted on its mark rows. Returns true when
// the dance was flagged.
bool Flag_Small_Dance(Connection &conn, short comp, const QString &code, short dance);

// An empty mark row for each entered dancer who has none in each dance given;
// the marks of dancers no longer entered go from every dance; entries whose
// dancer is gone from competitors go with their marks.
void Sync_Entries(Connection &conn, short comp, const QString &code, const QList<short> &dances);
