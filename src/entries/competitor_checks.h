#pragma once
#include <QString>
#include <QStringList>

// Outcome of the checks on one cell of the competitors grid. A refusal
// carries its box; a text that cannot be converted where a number is needed
// is a fault (AppError), which the screen's handler turns into its own box.
struct Cell_Check
{
    bool ok = true;
    QString message;
    QString title;
};

// Checks the editor's text for a column. The postcode column upper-cases the
// text in place. codes is the event code table with its spare empty place.
Cell_Check Check_Competitor_Cell(int col, QString &text, const QStringList &codes);

// A number as typed, converted the way the screens always did: blanks around
// it, a sign, a decimal point and an accounting "(12)" are accepted; anything
// else is "Type mismatch". Rounding is half to even.
double Typed_Number(const QString &text);
// Whole-number conversions with the range faults ("Overflow").
short Typed_Int16(const QString &text);
qint32 Typed_Int32(const QString &text);
