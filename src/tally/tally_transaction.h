#pragma once
#include "core/db.h"
#include "core/globals.h"

#include <functional>
#include <optional>

// Progress of a tally's deliberate pause: called first with (0, max) when the
// pause starts (show the bar), then after each step. The caller hides the bar
// after a normal return; after a fault it stays up until the next good run.
// An empty function shows nothing.
using Tally_Progress = std::function<void(int value, int max)>;

// The event a tally was asked for. Window events run during a tally's pause,
// and another mark screen taking the focus then sets the globals to its own
// event: the tally puts back the event it was asked for before it goes on.
class Held_Event
{
public:
    void Restore() const
    {
        Current_Competition_Id = m_competition;
        Current_Group_Id = m_group;
        Current_Dance_Id = m_dance;
    }

private:
    short m_competition = Current_Competition_Id;
    QString m_group = Current_Group_Id;
    short m_dance = Current_Dance_Id;
};

// Every tally runs in one transaction that is committed whether it ends
// normally or by a fault. The benchmark turns this off to time the same work
// with every statement in autocommit.
inline bool Tally_In_Transaction = true;

class Tally_Transaction
{
public:
    explicit Tally_Transaction(Connection &conn)
    {
        if (Tally_In_Transaction)
            m_t.emplace(conn);
    }

private:
    std::optional<Transaction> m_t;
};
