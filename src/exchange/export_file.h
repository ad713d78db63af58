#pragma once
#include "file_contents.h"

#include <QString>
#include <functional>

class Connection;

// The competition export file: one whole competition (set-up, entries, raw
// marks, custom reports; no results) as tab-separated records, Windows-1252,
// every line ended by CR LF, NULL written as an empty field.

// Called after each section but the last with the bar's new value (2 to 12 of
// 13), after the 100 ms wait.
using Export_Step = std::function<void(int value)>;

// The file name typed by the operator with / \ : * ? < > | & deleted.
QString Clean_Export_Name(const QString &typed);

// Writes the competition to path, overwriting any file there. The reads run in
// one transaction. A fault (SQL or file) ends the work and leaves the part
// written on disk; it reaches the caller as AppError or DbError. Gives what
// the file holds.
File_Contents Write_Export_File(Connection &conn, short competitionId, const QString &path, const Export_Step &step = {});
