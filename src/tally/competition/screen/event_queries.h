#pragma once
#include <QList>
#include <QString>

class Connection;

// What the Competition mark screen reads about a competition and its events.

// A Competition event of the list: neither Championship nor Premiership.
struct Event_Entry
{
    QString code;       // age_groups.competition_group_id
    QString name;       // age_groups.age_group, shown in the list
    QString category;
};
QList<Event_Entry> Competition_Events(Connection &conn, short comp);

struct Judge_Entry
{
    int id = 0;
    QString name;       // forename, blank, surname
};
// The competition's judges by surname.
QList<Judge_Entry> Competition_Judges(Connection &conn, short comp);

// The settings of an event that the tallies and the screen follow.
struct Event_Settings
{
    short noPrizes = 0;
    short noOverallPrizes = 0;
    QString splitOveralls;
    QString incTFling;
    QString dancerOrderSql;   // "ASC", or "DESC" when dancer_order is "D"
};
// Throws when the event is not there.
Event_Settings Read_Event_Settings(Connection &conn, short comp, const QString &code);

struct Dance_Entry
{
    short id = 0;
    QString name;
};
// The dances of a category in running order.
QList<Dance_Entry> Event_Dances(Connection &conn, short comp, const QString &category);
