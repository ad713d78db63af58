#pragma once
#include <array>

// Which grid rows are to be written at the next save: a small integer per
// grid row, rows 0 to 1500. A row beyond has no place: marking it is a fault.
class Row_Marks
{
public:
    static constexpr int Last_Row = 1500;

    void set(int row);
    void clear(int row);
    bool isSet(int row) const;
    void clearAll() { m_marks.fill(0); }
    // The mark follows its row: a removed row's marks below move up one; a
    // moved row takes its mark along, the rows between shift.
    void remove(int row);
    void move(int from, int to);

private:
    std::array<short, Last_Row + 1> m_marks{};
};
