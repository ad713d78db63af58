#pragma once
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

class Connection;

namespace ThreeJudge {

// What the Premiership and Championship mark screens read and write about an
// event, apart from the marks themselves and the tallies. Every function works
// on the screen's connection with the competition and event code passed in.

struct Event_Entry
{
    QString code;   // competition_group_id
    QString text;   // age_group + " " + championship_title
};

// The competition's events of one category ('PS' or 'C'), in list order.
QList<Event_Entry> Load_Events(Connection &conn, short comp, const QString &category);

struct Judge_Entry
{
    QString text;
    int judgeId = 0;
};

// The competition's judges, sorted by surname; shown surname first when asked.
QList<Judge_Entry> Load_Judge_Lists(Connection &conn, short comp, bool surnameFirst);

// Distinct dances of the event's category; a Premiership needs exactly four.
int Premiership_Dance_Count(Connection &conn, short comp, const QString &group);
inline const QString Premiership_Dances_Message = QStringLiteral("Premierships require 4 dances in dance categories!");

struct Event_Dance
{
    short id = 0;
    QString name;
};

// The dances of the event's category in their order.
QList<Event_Dance> Load_Event_Dances(Connection &conn, short comp, const QString &group);

// The four display names of a Championship: the defaults, replaced by the
// event's own names where it has them.
std::array<QString, 4> Load_Dance_Names(Connection &conn, short comp, const QString &group);
// One dance of the rename (n 1 to 4): a name that differs from the default is
// stored, otherwise only the old row goes. A fault keeps the old row and goes
// on to the caller. True when stored.
bool Save_Dance_Name(Connection &conn, short comp, const QString &group, int n, const QString &name);
// All four names back to the defaults.
void Reset_Dance_Names(Connection &conn, short comp, const QString &group);

// Every entered dancer gets an empty mark row in each of the four dances;
// dancers no longer entered, or gone from the competitors, lose their marks.
void Sync_Entries(Connection &conn, short comp, const QString &group, const std::array<short, 4> &dances);

short Read_No_Overall_Prizes(Connection &conn, short comp, const QString &group);

int Count_Event_Dancers(Connection &conn, short comp, const QString &group);
// Fewer than six dancers entered: dances 1 to 4 are flagged as counting for
// no trophy. True when flagged.
bool Flag_Small_Event(Connection &conn, short comp, const QString &group);
// Fewer than six mark rows in the dance: the dance is flagged anew. True when flagged.
bool Flag_Small_Dance(Connection &conn, short comp, const QString &group, short dance);
bool Dance_Flagged_No_Dancers(Connection &conn, short comp, const QString &group, short dance);
// "Include in Trophies": value 1 (Yes) clears the flag, anything else sets it.
void Set_Include_In_Trophies(Connection &conn, short comp, const QString &group, short dance, int value);

QString Judge_Name(Connection &conn, int judgeId);
// Judge n (1 to 3) of the dance, saved at once.
void Set_Dance_Judge(Connection &conn, short comp, const QString &group, short dance, int n, int judgeId);
// Names of judges 1 to 3 of the dance; none where nobody was chosen.
std::array<std::optional<QString>, 3> Load_Dance_Judges(Connection &conn, short comp, const QString &group,
                                                        short dance);

// Rows of the result grids as text, NULL as empty: Place, Num, Pts, Name for
// the event, Place, Num, Name for the dance (placed dancers only).
QList<QStringList> Overall_Result_Rows(Connection &conn, short comp, const QString &group);
QList<QStringList> Dance_Result_Rows(Connection &conn, short comp, const QString &group, short dance);

// The random draw: numbers are used in turn, dance 1 to 4, each dancer of the
// grid in grid order; numbers must hold 4 x dancers entries.
void Write_Random_Draw(Connection &conn, short comp, const QString &group, const QStringList &dancers,
                       const QList<int> &numbers);

} // namespace ThreeJudge
