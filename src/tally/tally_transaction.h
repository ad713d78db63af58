#pragma once
#include "core/db.h"

#include <functional>
#include <optional>

// Progress of a tally's deliberate pause: called first with (0, max) when the
// pause starts (show the bar), then after each step. The caller hides the bar
// after a normal return; after a fault it stays up until the next good run.
// An empty function shows nothing.
using Tally_Progress = std::function<void(int value, int max)>;

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
