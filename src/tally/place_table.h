#pragma once
#include "core/errors.h"

#include <array>

// Points of a place, the same in every kind of event. Slot 0 is never a place
// and slot 7 is empty; a place past slot 7 is a subscript fault, as it was
// when an overall was allowed more than six prizes.
inline constexpr std::array<short, 8> Place_Table{0, 137, 91, 71, 53, 37, 23, 0};

// The winner's points: a dance is won when its points are these.
inline constexpr short Winner_Points = 137;

inline short Place_Points(int place)
{
    if (place < 0 || place >= static_cast<int>(Place_Table.size()))
        throw AppError(QStringLiteral("Subscript out of range"));
    return Place_Table[static_cast<size_t>(place)];
}
