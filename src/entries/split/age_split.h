#pragma once
#include <QList>
#include <QString>

class Connection;

// Cutting an event into age bands: the events marked for it, the ages of
// their dancers, the bands the operator builds, and the split itself.

struct Split_Event
{
    QString code;
    QString name;
};
// The competition's events marked for splitting, by name.
QList<Split_Event> Split_Events(Connection &conn, short comp);

// How many events an earlier split of this event made.
int Earlier_Split_Count(Connection &conn, short comp, const QString &code);

struct Age_Count
{
    short age = 0;
    short dancers = 0;
};
// The known ages among the dancers whose row names the event in one of its
// eight event columns, youngest first.
QList<Age_Count> Event_Ages(Connection &conn, short comp, const QString &code);
// "10 yrs (7 dancers)"
QString Age_Text(const Age_Count &age);

// A band of ages; a band of one age has the same lowest and highest age.
struct Age_Band
{
    short low = 0;
    short high = 0;
};

struct Band_Choice
{
    // It would enclose a band already listed.
    bool refused = false;
    Age_Band band;
    int dancers = 0;
    // The rows of the age list that go into the band, unselected ones between
    // included.
    int firstRow = 0;
    int lastRow = 0;
    QString text;
};
// A band from the selected rows of the age list. Only a band that encloses a
// listed one is refused; a partial overlap passes. With rows listed and none
// selected it is a fault.
Band_Choice Make_Band(const QList<Age_Count> &ages, const QList<bool> &selected, const QList<Age_Band> &listed);

// The event's name without blanks, cut to 4 characters.
QString Code_Stem(const QString &name);
// The first code after the stem, counting with Next_Code, that no event of
// the competition holds. The stem itself is never used.
QString Free_Code(Connection &conn, short comp, const QString &stem);

// Removes the events of an earlier split, then makes one event per band and
// enters into it the dancers of the event whose age falls in the band; the
// new event's code goes into their eighth event column. Runs in one
// transaction, committed also when a band fails; each band is whole or absent.
void Split_By_Age(Connection &conn, short comp, const QString &code, const QString &name,
                 const QList<Age_Band> &bands);
