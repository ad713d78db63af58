#pragma once
#include <QString>

// Values from a file that go bare into a statement (numbers, the word NULL).
// Anything else would change what the statement does, so it is a fault, as a
// malformed statement would have been.
QString Bare_Value(const QString &value);

// A 16-bit number read from a file field; empty or text is "Type mismatch",
// out of range "Overflow".
short Int16_Field(const QString &value);
