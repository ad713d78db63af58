#pragma once
#include <QString>
#include <QStringList>

class Connection;

// Database work of the competitions screen, apart from its widgets.

// Writes a new competition from the seven cells name, date, organiser, role,
// venue, town and address; looks it up again by name and date (the last row
// read wins, so two of the same name and date are confused), leaves that id in
// Current_Competition_Id and gives it the standard categories and dances.
short Insert_Competition(Connection &conn, const QStringList &cells);

// The four standard categories and the twelve standard category dances.
void Add_Standard_Categories(Connection &conn, short competitionId);

// Everything that hangs on a competition, in the order the screen removes it.
// Of the trophies only the first one's detail rows go; every trophy row goes.
// The competitions row itself is left to the caller.
void Delete_Competition_Dependents(Connection &conn, short competitionId);

// Makes a new competition of name and date from the source: its categories,
// their dances (ordered by dance id, not by the source's order) and its
// events; with copyCompetitors also its dancers and their events. Judges,
// marks, results and trophies are never copied. Returns the new id.
short Copy_Competition(Connection &conn, short sourceId, const QString &name, const QString &date,
                       bool copyCompetitors);
