#pragma once
#include <QString>

// What the program is doing, said first in any box that falls back on a
// fault's own words: "Saving the event Under 12: database or disk is full".
// An action names itself for as long as it runs; actions may nest, and the
// innermost one speaks. A fault that unwinds an action keeps its name until
// the box that shows the fault has taken it.
class Doing
{
public:
    explicit Doing(const QString &what);
    ~Doing();
    Doing(const Doing &) = delete;
    Doing &operator=(const Doing &) = delete;

private:
    int m_uncaught;
};

// The fault's text with what the program was doing put first. Takes the
// name a fault left behind as it unwound; when nothing is named the
// fallback is said instead.
QString Fault_Text(const QString &fault, const QString &fallback = QString());
// Forgets a name left by a fault that was handled without a box.
void Forget_Failed_Action();
