#pragma once
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

// Small routines shared by the screens.

// Doubles every single quote, for text that goes between quotes in SQL.
QString Sql_Quote(const QString &text);
QVariant Null_Default(const QVariant &value, const QVariant &def);
QString Default_If_Empty(const QString &value, const QString &def);
// A typed number as it goes into a statement bare; a text that is no number
// (a sign and digits, a point and digits) is the fault "Type mismatch".
QString Bare_Number(const QString &text);
bool File_Exists(const QString &path);
// True when the path is a folder; any error reads as false.
bool Is_Folder(const QString &path);
// True when a Shift key is down at this moment.
bool Shift_Down();
QString Computer_Name();

// Text of a place on reports: "Win", "1RU" .. "18RU" with Opt_Locale set (and
// empty beyond 19), else the digits.
QString Place_Text(short place);

// Three address lines joined with "|", or placeholders for hand filling.
QString Format_Address(const QVariant &line1, const QVariant &line2, const QVariant &town,
                       const QVariant &postcode);

// True when two entries are the same text (case-insensitively, as the keyed
// collection compared its keys).
bool Has_Duplicates(const QStringList &items);
// Moves entries up over NULL entries and over repeats; returns how many went.
int Remove_Nulls(QVariantList &items);

// count numbers drawn from first..last; with unique set each leaves the pool,
// and a draw larger than the pool is a fault.
QList<int> Random_Sample(int count, int first, int last, bool unique);
short Random_Between(short low, short high);
// One random character between the codes, hidden in the page by its class.
QString Noise_Char(int lowCode, int highCode);
// The next code in the order 0..9, A..Z on the last position, with carry.
QString Next_Code(const QString &code);
