#include "grid_cells.h"
#include "core/errors.h"

namespace {

[[noreturn]] void outOfRange()
{
    throw AppError(QStringLiteral("Subscript out of range"));
}

} // namespace

Grid_Cells::Grid_Cells(int rows, int cols) : m_cols(cols)
{
    QStringList empty;
    for (int c = 0; c < cols; ++c)
        empty << QString();
    m_rows.assign(static_cast<size_t>(qMax(rows, 0)), empty);
}

QString Grid_Cells::text(int row, int col) const
{
    if (row < 0 || row >= rows() || col < 0 || col >= m_cols)
        outOfRange();
    return m_rows[static_cast<size_t>(row)].at(col);
}

void Grid_Cells::setText(int row, int col, const QString &text)
{
    if (row < 0 || row >= rows() || col < 0 || col >= m_cols)
        outOfRange();
    m_rows[static_cast<size_t>(row)][col] = text;
}

QStringList Grid_Cells::row(int r) const
{
    if (r < 0 || r >= rows())
        outOfRange();
    return m_rows[static_cast<size_t>(r)];
}

void Grid_Cells::appendRow(const QStringList &cells)
{
    QStringList row = cells.mid(0, m_cols);
    while (row.size() < m_cols)
        row << QString();
    m_rows.push_back(row);
}
