#pragma once
#include <QString>
#include <QStringList>

class Connection;

// Layout of a compare file: the three-judge layout (judges' placings, then the
// scoring places with their tie marks) for 2, the Competition layout otherwise.
constexpr short Compare_Three_Judge = 2;

// The lines of the current event (Current_Competition_Id, Current_Group_Id),
// in file order, without line ends.
QStringList Compare_Lines(Connection &conn, short type);

// The compare file of the current event: Windows-1252, TAB between fields,
// CR LF after every line, in Data_Dir + "Compare" (made when missing), named
// event name + ".cmp", rewritten from nothing. Faults are AppError.
void Write_Compare_File(Connection &conn, short type, const QString &eventName);
// The same into another folder, as the Create Results File screen writes it.
void Write_Compare_File_To(Connection &conn, short type, const QString &folder, const QString &eventName);
// After a good save on a mark screen: the file when check mode is "Write" (1).
// True when a file was written.
bool Write_Compare_File_If_Checking(Connection &conn, short type, const QString &eventName);
// The same on a connection of its own to the database in Data_Dir.
void Write_Compare_File(short type, const QString &eventName);
