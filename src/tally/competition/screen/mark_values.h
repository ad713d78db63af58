#pragma once
#include <QString>
#include <QVariant>

// The marks of one dance of one event: which texts the mark grid accepts, how
// they are stored and shown, and which rows it shows.

enum class Mark_Check {
    Accepted,      // empty, or a number from 0 to 100 (fractions kept)
    Out_Of_Range,  // a number, but below 0 or above 100
    Invalid,       // no number, or beyond a 16-bit whole number
};
Mark_Check Check_Mark(const QString &text);

// The value a mark cell's text is stored as: NULL for an empty cell, the
// number for a number. Any other text goes as text, which the mark column
// refuses.
QVariant Mark_Value(const QString &text);

// The statement of the marks shown: all dancers of the dance, or with
// registeredOnly only those signed in or without card (registered not NULL).
// Ordered by number, orderSql "ASC" or "DESC".
QString Marks_Select(short comp, const QString &code, short dance, bool registeredOnly, const QString &orderSql);
