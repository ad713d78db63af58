#pragma once
#include "file_contents.h"

#include <QString>
#include <QStringList>
#include <functional>

class Connection;

// Reads a competition export file into the database, line by line, each line
// one or a few statements in the order of the file. Works on
// Current_Competition_Id, which it sets: -99 until a competition is found or
// made, and the imported competition at the end.
struct Import_Hooks
{
    // "Continue Confirmation": true to replace the competition found.
    std::function<bool(const QString &text)> confirm;
    // The bar: its maximum once, then the line counter after each line.
    std::function<void(int maximum)> start;
    std::function<void(int value)> step;
};

struct Import_Result
{
    enum Status { Done, Declined, Fault };
    Status status = Done;
    int line = 0;          // the line of the fault, from 1
    QString message;       // the engine's (or the program's) message
    File_Contents contents;   // what the lines read so far held
};

// The file's text split into lines: at CR LF, or at LF when that gives one
// line only.
QStringList Split_Export_Lines(const QString &text);

// All runs in one transaction, committed after a fault as well: the lines
// before the fault stay, at one sync.
Import_Result Import_Text(Connection &conn, const QString &text, const Import_Hooks &hooks = {});
// The file read whole (UTF-8 or Windows-1252, Decode_Text); an unreadable file is a fault at line 0.
Import_Result Import_File(Connection &conn, const QString &path, const Import_Hooks &hooks = {});

// True for a name whose extension is "dmp" exactly (capitals are not listed).
bool CheckFileExtension(const QString &name);
// The export files of a folder, without ".dmp", in the folder's name order.
QStringList List_Export_Files(const QString &folder);
