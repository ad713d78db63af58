#pragma once
#include <QString>
#include <QStringList>

class Connection;
class Report;

// The events of a competition as the line-up screen lists them: ordered by
// title, then age group, each shown as the age group, a blank and the title.
struct Lineup_Events
{
    QStringList texts;
    QStringList codes;   // competition_group_id, parallel to texts
};
Lineup_Events Read_Lineup_Events(Connection &conn, short comp);

// Fills the line-up sheet (DataReport5) of one event: the heading, the footer
// and the dancers by number, each once, with "Reg", "No Card" or nothing.
void Fill_Lineup_Sheet(Connection &conn, Report &report, short comp, const QString &code, const QString &eventText);
