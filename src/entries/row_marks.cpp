#include "row_marks.h"
#include "core/errors.h"

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
