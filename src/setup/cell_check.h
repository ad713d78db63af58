#pragma once
#include "core/dialogs.h"

#include <QString>
#include <optional>

// A refused text and the box that tells the operator why. The screens show it;
// the checks themselves open nothing.
struct Refusal
{
    QString text;
    QString title;
    int style = vbExclamation;
};

using Cell_Check = std::optional<Refusal>;

inline Refusal Validation_Refusal(const QString &text)
{
    return Refusal{text, QStringLiteral("Validation Error"), vbExclamation};
}

// A whole number as the screens convert it: blanks around it and a sign are
// allowed. Anything else is a "Type mismatch" fault, a value outside 16 bits an
// "Overflow" fault; the screens' handlers turn both into their own box.
short To_Whole_Number(const QString &text);
