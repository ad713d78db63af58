#pragma once
#include "entries/competitor_columns.h"
#include "entries/competitor_rules.h"

#include "core/db.h"
#include "ui/grid/grid_cells.h"

#include <QStringList>

// The competitors grid without its widgets: the rules, the row set opened on
// their statement and the cells as the screen fills them (row 0 the
// captions), saved through the editor's own save sequence.
struct Grid_Rows
{
    Connection &conn;
    Competitor_Rules rules;
    RecordSet rs;
    Grid_Cells cells;
    int added = 0;

    Grid_Rows(Connection &c, short comp) : conn(c), rules(comp) {}

    void open()
    {
        rs.open(conn, rules.table, rules.Select_Sql());
        cells = Grid_Cells(0, Competitor_Col::Count);
        cells.appendRow(Competitor_Captions());
        for (int r = 0; r < rs.rowCount(); ++r) {
            QStringList row;
            for (int f = 0; f < rs.fieldCount(); ++f)
                row << rules.Display_Text(f, rs.value(r, f));
            cells.appendRow(row);
        }
        added = 0;
    }
    // Steps of a save, then the refresh.
    Grid_Save_Result save()
    {
        const Grid_Save_Result result = Run_Grid_Save(rules, conn, rs, cells, added);
        if (!result.failed)
            open();
        return result;
    }
    int addRow()
    {
        QStringList row;
        for (int c = 0; c < Competitor_Col::Count; ++c)
            row << QString();
        row[0] = rules.New_Row_Filler();
        cells.appendRow(row);
        ++added;
        return cells.rows() - 1;
    }
    void set(int row, int col, const QString &text) { cells.setText(row, col, text); }
    QString text(int row, int col) const { return cells.text(row, col); }
    // The grid row of a dancer; -1 when not shown.
    int rowOf(int number) const
    {
        for (int r = 1; r < cells.rows(); ++r)
            if (cells.text(r, Competitor_Col::Number) == QString::number(number))
                return r;
        return -1;
    }
    // An edit committed from the editor: the cell changes and the row is marked.
    void edit(int number, int col, const QString &text)
    {
        const int r = rowOf(number);
        cells.setText(r, col, text);
        rules.Row_Changed(r);
    }
};
