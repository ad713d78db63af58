#pragma once
#include <QHash>
#include <QString>
#include <QStringList>

class Connection;

// One computer's side of the first pair of lines that differ.
struct Compare_Side
{
    QString dance;   // dance name
    QString number;  // competitor number
    QString place;
    QString judge;   // result_no, judges' placings only
};

struct Compare_Outcome
{
    enum Kind { Match, Differ, No_File, Failure };
    Kind kind = Match;
    // 1: a place in a dance's result, 2: one judge's placing, 0: neither.
    int lineType = 0;
    Compare_Side here;
    Compare_Side remote;
};

// Walks both lists from the start and stops at the first pair that differs; a
// line left over on one side is a difference with an empty other side. Each
// list's last entry is the empty one behind the last line end and is never
// compared. Any line that cannot be read (too few fields, a dance that is not a
// number or not in the lookup) is the failure outcome.
Compare_Outcome Compare_Results(const QStringList &thisList, const QStringList &remoteList,
                                const QHash<int, QString> &danceNames);

// The remote file split at CR LF.
QStringList Split_Compare_Text(const QByteArray &bytes);

// Reads Opt_Check_Dir + "/" + event name + ".cmp" and compares it with the
// current event's own lines; "Champ" compares the three-judge layout.
Compare_Outcome Check_Results(Connection &conn, const QString &eventName, const QString &mode);

// The texts shown on the three-judge screens: the judges' placing of one side.
QString Check_Text(const QString &heading, const Compare_Outcome &outcome, bool remote);
