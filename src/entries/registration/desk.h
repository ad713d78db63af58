#pragma once
#include <QList>
#include <QString>
#include <QVariant>

class Connection;

// The sign-in desk's work on the database: finding a dancer, reading and
// correcting the entry, and the dancer's sign-in state in `registered`.

struct Desk_Search
{
    QString number;
    QString forename;
    QString surname;
};
// An empty number, or one that fits 16 bits.
bool Valid_Desk_Number(const QString &text);

struct Desk_Hit
{
    short number = 0;
    QString text;   // "12 MORAG ROSS, Oban"; empty when one dancer was found
};
// The dancers the search finds: none, one, or several listed by surname.
QList<Desk_Hit> Desk_Find(Connection &conn, short comp, const Desk_Search &search);

struct Desk_Entry
{
    short number = 0;
    QString forename, surname, address1, address2, town, age, teacher, notes;
    QVariant registered;   // NULL not signed in, 1 signed in, 0 no card shown
};
Desk_Entry Read_Desk_Entry(Connection &conn, short comp, short number);
// Writes the corrected entry; an age that is not a whole number is a fault.
void Save_Desk_Entry(Connection &conn, short comp, const Desk_Entry &entry);

// state: 1, 0, or a null value for not signed in.
void Set_Registered(Connection &conn, short comp, short number, const QVariant &state);
// Marks every dancer with a judge's mark who is not yet signed in as present
// without a card; returns how many.
int Register_All(Connection &conn, short comp);
