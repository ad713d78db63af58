#pragma once
#include <QString>
#include <QStringList>

class Connection;

// An event list read once: names to show and, by the same position, the codes.
struct Event_List
{
    QStringList names;
    QStringList codes;
};

// The list beside the grid (LstAG). Its code table has one spare empty place
// at its end, so an emptied event cell counts as a known event.
Event_List Load_Event_Lookup(Connection &conn, short competitionId);

// The events of the search panel (Combo1).
Event_List Load_Search_Events(Connection &conn, short competitionId);

// True when the text in upper case is an entry of the code table.
bool Group_Exists(const QStringList &codes, const QString &text);
