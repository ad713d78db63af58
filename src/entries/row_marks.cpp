#include "row_marks.h"
#include "core/errors.h"

#include <algorithm>

namespace {

void checkRow(int row)
{
    if (row < 0 || row > Row_Marks::Last_Row)
        throw AppError(QStringLiteral("Subscript out of range"));
}

} // namespace

void Row_Marks::set(int row)
{
    checkRow(row);
    m_marks[row] = 1;
}

void Row_Marks::clear(int row)
{
    checkRow(row);
    m_marks[row] = 0;
}

bool Row_Marks::isSet(int row) const
{
    // A row with no place in the table can carry no mark.
    return row >= 0 && row <= Last_Row && m_marks[row] != 0;
}

void Row_Marks::remove(int row)
{
    if (row < 0 || row > Last_Row)
        return;
    std::move(m_marks.begin() + row + 1, m_marks.end(), m_marks.begin() + row);
    m_marks[Last_Row] = 0;
}

void Row_Marks::move(int from, int to)
{
    if (from == to || from < 0 || to < 0 || from > Last_Row || to > Last_Row)
        return;
    const short mark = m_marks[from];
    remove(from);
    std::move_backward(m_marks.begin() + to, m_marks.end() - 1, m_marks.end());
    m_marks[to] = mark;
}
