#pragma once
#include "entries/competitor_columns.h"
#include "core/db.h"
#include "entries/competitor_save.h"

#include <QList>
#include <QStringList>

// A stand-in for the grid's cells: row 0 the captions, then one row per
// saved competitor as the screen fills it, then any new rows.
struct Grid_Rows
{
    QList<QStringList> cells;

    // Stored values as the grid shows them: NULL empty, 12, 87.5.
    static QString shown(const QVariant &v)
    {
        if (v.isNull())
            return QString();
        return v.typeId() == QMetaType::Double ? QString::number(v.toDouble(), 'g', 15) : v.toString();
    }
    void fill(const RecordSet &rows)
    {
        cells = {Competitor_Captions()};
        for (int r = 0; r < rows.rowCount(); ++r) {
            QStringList row;
            for (int f = 0; f < rows.fieldCount(); ++f)
                row << shown(rows.value(r, f));
            cells << row;
        }
    }
    QStringList &addRow(short comp)
    {
        QStringList row;
        for (int c = 0; c < Competitor_Col::Count; ++c)
            row << QString();
        row[0] = QString::number(comp);
        cells << row;
        return cells.last();
    }
    int lastRow() const { return cells.size() - 1; }
    Cell_Reader reader() const
    {
        return [this](int row, int col) { return cells.at(row).at(col); };
    }
};
