#pragma once
#include <QList>
#include <QString>
#include <QStringList>

class Connection;
class Report;

// Database work of the trophy screens, apart from their widgets. A trophy is
// a row of custom_reports with the events, dances and free-field values it
// counts in three detail tables.

struct Trophy
{
    int id = 0;
    QString name;
};
// The competition's trophies by name, then id.
QList<Trophy> Read_Trophies(Connection &conn, short comp);
// A new trophy; gives the newest id of that name.
int Create_Trophy(Connection &conn, short comp, const QString &name);
// The trophy and its detail rows.
void Delete_Trophy(Connection &conn, int trophy);

// The three pages of details: events, dances, free-field values.
enum class Trophy_Page { Groups, Dances, Fields };

struct Trophy_Item
{
    QString key;    // event code, dance id or the value itself
    QString text;   // as the list shows it
};
// What the page offers: all events; the dances of the trophy's events; the
// values of the four free fields of the competition's dancers.
QList<Trophy_Item> Available_Items(Connection &conn, short comp, int trophy, Trophy_Page page);
// What the trophy holds of the page.
QList<Trophy_Item> Included_Items(Connection &conn, short comp, int trophy, Trophy_Page page);
// Writes the page's table anew with the keys, as one unit: a fault leaves
// the rows as they were.
void Save_Page(Connection &conn, int trophy, Trophy_Page page, const QStringList &keys);
// Empties the page's table for the trophy.
void Reset_Page(Connection &conn, int trophy, Trophy_Page page);

struct Trophy_Row
{
    QString number;
    QString name;
    QString points;
};
// Points of the trophy's events and dances by dancer, best first and by
// number: the first ten and any level with the tenth. With free-field values
// only matching dancers count, once per matching field; dances flagged as too
// small for trophies and rows without points count nothing.
QList<Trophy_Row> Trophy_Top_10(Connection &conn, short comp, int trophy);

// Fills the trophy sheet (DataReport8) of the current competition.
void Fill_Trophy_Report(Connection &conn, Report &report, int trophy, const QString &trophyName);
