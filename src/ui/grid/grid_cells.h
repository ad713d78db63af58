#pragma once
#include <QString>
#include <QStringList>
#include <vector>

// The texts of a grid, row by row, caption rows included, without any widget:
// what a save works from. Column 0 is the hidden key column.
class Grid_Cells
{
public:
    Grid_Cells() = default;
    Grid_Cells(int rows, int cols);

    int rows() const { return static_cast<int>(m_rows.size()); }
    int cols() const { return m_cols; }
    // A cell outside the grid is the fault "Subscript out of range", so that a
    // save never mistakes a missing row for an empty one.
    QString text(int row, int col) const;
    void setText(int row, int col, const QString &text);
    // The row's cells, column 0 first.
    QStringList row(int r) const;
    void appendRow(const QStringList &cells = {});

private:
    std::vector<QStringList> m_rows;
    int m_cols = 0;
};
