#pragma once
#include <algorithm>
#include "core/db.h"
#include "core/errors.h"

#include <array>
#include <limits>
#include <vector>

// The placing of a list sorted best first on one number: equal values share a
// place and the next value skips the places they took (95, 95, 90 place 1, 1,
// 3). Every tally of the program places its lists this way.
//
// The walk holds its rows in 21 slots. A row that must be held in a 22nd slot
// is a subscript fault: a list that long means the event ought to have been
// split, and the limit is kept on purpose.
class Rank_Walk
{
public:
    static constexpr int Slots = 21;
    static constexpr int No_Limit = std::numeric_limits<int>::min();

    enum Outcome {
        New_Place,   // the row opens a place
        Same_Place,  // the row ties with the row before it
        Skipped,     // above the last value: cannot come from a sorted list
        Stopped,     // the prizes are given: the walk ends here
    };

    // start: a value above any the list can hold. limit: with that many rows
    // taken, a row that would open a new place stops the walk; ties with the
    // last place are always kept. No_Limit: every row is kept.
    Rank_Walk(double start, int limit) : m_last(start), m_limit(limit) {}

    Outcome take(double value)
    {
        Outcome outcome;
        if (value < m_last) {
            if (m_limit != No_Limit && m_count >= m_limit)
                return Stopped;
            m_nextPlace += m_step;
            m_step = 1;
            m_last = value;
            outcome = New_Place;
        } else if (value == m_last) {
            ++m_step;
            outcome = Same_Place;
        } else {
            ++m_count;
            return Skipped;
        }
        if (m_count >= Slots)
            throw AppError(QStringLiteral("Subscript out of range"));
        m_slot = m_count++;
        return outcome;
    }

    // Slot and place of the row just held.
    int slot() const { return m_slot; }
    short place() const { return static_cast<short>(m_nextPlace - 1); }
    // Rows taken so far, skipped ones included: the slots in use are 0 to count - 1.
    int count() const { return m_count; }

private:
    double m_last;
    int m_limit;
    int m_nextPlace = 1;
    int m_step = 1;
    int m_count = 0;
    int m_slot = -1;
};

// What every placed row holds; each tally adds its own fields.
struct Ranked_Entry
{
    bool held = false;
    short competitor = 0;
    short place = 0;
    short points = 0;
};

// Places rs, sorted best first on field, through walk. Each row held gets its
// competitor_id and place, then fill(entry) adds the rest with rs still on that
// row. An Entry with a tie and a Tie_Mark gets the mark, and so does the row
// before it, when the row ties with that row. Returns the held rows in order;
// a fault of the walk comes before anything is written.
template <typename Entry, typename Fill>
std::vector<Entry> Rank_Rows(RowSet &rs, const QString &field, Rank_Walk walk, Fill fill)
{
    std::array<Entry, Rank_Walk::Slots> entries;
    for (; !rs.eof(); rs.next()) {
        const Rank_Walk::Outcome outcome = walk.take(rs.toDouble(field));
        if (outcome == Rank_Walk::Stopped)
            break;
        if (outcome == Rank_Walk::Skipped)
            continue;
        Entry &e = entries[static_cast<size_t>(walk.slot())];
        e.held = true;
        e.competitor = rs.toShort(QStringLiteral("competitor_id"));
        e.place = walk.place();
        fill(e);
        if constexpr (requires { Entry::Tie_Mark; }) {
            if (outcome == Rank_Walk::Same_Place) {
                e.tie = Entry::Tie_Mark;
                if (walk.slot() > 0)
                    entries[static_cast<size_t>(walk.slot() - 1)].tie = Entry::Tie_Mark;
            }
        }
    }
    std::vector<Entry> held;
    // Skipped rows count without a slot: never read past the last slot.
    const int used = std::min(walk.count(), int(Rank_Walk::Slots));
    for (int i = 0; i < used; ++i) {
        if (entries[static_cast<size_t>(i)].held)
            held.push_back(entries[static_cast<size_t>(i)]);
    }
    return held;
}
