#pragma once
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// The entries file of the online service: tab-separated text, a header line,
// one entry a line, ending in a line end.
namespace Entries_File {

// Fields an entry line must reach (indexes 0..23).
inline constexpr int Fields = 24;

// Field indexes of an entry line.
enum Field {
    Forename = 1, Surname = 2, Tel = 4, Age = 5, Teacher = 7, Addr1 = 8, Addr2 = 9, City = 10, State = 11,
    Zip = 12, Country = 13, Events = 20, Fee = 21, Txn = 23
};

// Columns of the preview, in the grid's order.
enum Column {
    Col_Firstname, Col_Lastname, Col_Tel, Col_Age, Col_Teacher, Col_Addr1, Col_Addr2, Col_City, Col_State,
    Col_Zip, Col_Country, Col_Events, Col_Fee, Col_Txn, Columns
};

struct Contents
{
    // The highest line index once CR LF is added behind the text; the preview
    // grid has this many rows.
    int highestIndex = 0;
    // The lines that are looked at (index 1 up to but not including the
    // highest index minus 1), split at tabs. Lines are cut at LF only, so a
    // CR stays on the last field.
    QList<QStringList> lines;
};

// Reads the file's bytes through Decode_Text (UTF-8 or Windows-1252).
Contents Read(const QByteArray &bytes);

// Headings and widths (twips; 0 leaves the grid's own) of the preview columns.
QStringList Headings();
int Column_Width(int column);

// The preview row of an entry line of at least Fields fields: names get a
// capital first letter, and every column loses its single quotes.
QStringList Preview_Row(const QStringList &fields);

// The query that counts the competitors an entry line is already among: the
// same payment id, or the same forename and surname in any case.
QString Check_Sql(short competitionId, const QStringList &fields);

} // namespace Entries_File
