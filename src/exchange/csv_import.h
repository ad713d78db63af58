#pragma once
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

class Connection;

// Competitors from any delimited text file. The database fields that can be
// matched, in their fixed order: a field's position here is its position in
// the matching list.
const QStringList &Csv_Field_Names();
inline constexpr int Csv_Positions = 24;

struct Csv_Item
{
    QString text;
    int index = -1;    // the field's index in the file; -1 for "<Blank>"
};

struct Csv_File
{
    QStringList lines;   // split at CR LF after one was added behind the text
    int highest = 0;     // highest line index (the empty element behind the last line end)
    int width = 0;       // highest field index found in the file
    QStringList sample;  // the fields of the widest line
};

// The file's text read into lines, with the widest line as the sample.
Csv_File Read_Csv(const QString &text, const QString &delimiter);

// The two lists as the screen first shows them. Matching by headings needs
// both the heading flag and the matching flag.
struct Csv_Lists
{
    QList<Csv_Item> unplaced;   // List1
    QList<Csv_Item> placed;     // List2, in database order
};
Csv_Lists Build_Csv_Lists(const Csv_File &file, const QString &delimiter, bool header, bool byHeadings);

struct Csv_Result
{
    int count = 0;     // rows loaded
    int line = 0;      // the line (from 1) that stopped the load, 0 when none did
    QString reason;
    // The closing message: the count, and where and why the load stopped.
    QString message() const;
};

// Loads the lines (from the second when header is set) into the competition:
// a competitor number that exists is replaced, a line whose fields are all
// empty is passed over. map holds, per position, the file's field index or -1.
// Each line is one unit: a fault rolls back that line's work and ends the
// load, the lines before stay.
Csv_Result Import_Csv(Connection &conn, short competitionId, const Csv_File &file, const QString &delimiter, bool header,
               const QList<int> &map, const std::function<void(int line)> &step = {});
