#include "grid_rules.h"
#include "core/db.h"
#include "core/errors.h"

#include <QMap>

QString Grid_Text(const QVariant &value)
{
    if (value.isNull())
        return QString();
    if (value.typeId() == QMetaType::Double)
        return QString::number(value.toDouble(), 'g', 15);
    return value.toString();
}

QString GridRules::Display_Text(int col, const QVariant &value) const
{
    return Grid_Text(value);
}

QVariant GridRules::Field_Value(int col, const QString &text) const
{
    if (text.isEmpty())
        return emptyCellIsNull ? QVariant() : QVariant(QString());
    return text;
}

void GridRules::Insert_New_From_Grid(Save_Work &w)
{
    for (int r = w.rs.rowCount() + w.fixedRows; r < w.cells.rows(); ++r) {
        if (Row_Is_Blank(w.cells, r))
            continue;
        w.workRow = r;
        w.workCol = 1;
        Insert_Row(w, r);
        w.insertedRows << r;
    }
}

bool GridRules::Row_Is_Blank(const Grid_Cells &cells, int row) const
{
    QMap<int, QString> defaults;
    for (const auto &[col, text] : First_Row_Defaults() + New_Row_Defaults())
        defaults[col] = text;
    for (int c = 1; c < cells.cols(); ++c) {
        const QString text = cells.text(row, c);
        if (!text.isEmpty() && !(defaults.contains(c) && defaults.value(c) == text))
            return false;
    }
    return true;
}

std::optional<Cell_Refusal> GridRules::Read_Values_From_Grid(Save_Work &w)
{
    for (int record = 0; record < w.rs.rowCount(); ++record) {
        const int gridRow = record + w.fixedRows;
        w.workRow = gridRow;
        w.workCol = 1;
        if (!Row_Needs_Write(gridRow))
            continue;
        if (std::optional<Cell_Refusal> stop = Write_Row(w, record, gridRow))
            return stop;
    }
    return std::nullopt;
}

std::optional<Cell_Refusal> GridRules::Write_Row(Save_Work &w, int record, int gridRow)
{
    for (int f = 1; f < w.rs.fieldCount(); ++f) {
        w.workCol = f;
        const QString text = w.cells.text(gridRow, f);
        if (std::optional<Cell_Refusal> stop = Check_At_Save(f, text)) {
            w.rs.cancelUpdate(record);
            if (stop->row < 0)
                stop->row = gridRow;
            if (stop->col < 0)
                stop->col = f;
            return stop;
        }
        w.rs.setValue(record, f, Field_Value(f, text));
    }
    w.workCol = 1;
    w.rs.update(record);
    return std::nullopt;
}

QString Save_Failure_Text(const Grid_Texts &texts, const QString &column1)
{
    QStringList lines;
    QString first = texts.failureLine + column1;
    if (texts.hintJoined)
        first += texts.hintLine;
    lines << first;
    if (!texts.hintJoined && !texts.hintLine.isEmpty())
        lines << texts.hintLine;
    lines << texts.fixLine << QStringLiteral("If problems persist, try deleting this record or closing this window!");
    return lines.join(QLatin1Char('\n'));
}

Grid_Save_Result Run_Grid_Save(GridRules &rules, Connection &conn, RecordSet &rs, const Grid_Cells &cells,
                               int addedRows)
{
    Grid_Save_Result result;
    if (std::optional<Cell_Refusal> refused = rules.Pre_Save_Check(cells)) {
        result.refusal = refused;
        result.preCheckRefused = true;
        return result;
    }
    Save_Work w{conn, rs, cells, rules.fixedRows, addedRows};
    const qint64 lastBefore =
        rules.table.isEmpty() ? 0 : conn.scalar(QStringLiteral("SELECT max(rowid) FROM ") + rules.table).toLongLong();
    try {
        Transaction t(conn);
        rules.Insert_New_From_Grid(w);
        if (std::optional<Cell_Refusal> stop = rules.Read_Values_From_Grid(w)) {
            result.refusal = stop;
            result.row = stop->row;
            result.col = stop->col;
        }
    } catch (const AppError &) {
        // The row in work keeps what the grid shows; the record set forgets
        // its half-written fields.
        const int record = w.workRow - w.fixedRows;
        if (record >= 0 && record < rs.rowCount())
            rs.cancelUpdate(record);
        QString column1;
        if (w.workRow >= 0 && w.workRow < cells.rows() && cells.cols() > 1)
            column1 = cells.text(w.workRow, 1);
        result.failed = true;
        result.failureText = Save_Failure_Text(rules.texts, column1);
        result.row = w.workRow;
        result.col = w.workCol;
        // The rows written before the fault stay stored: the grid takes them as saved.
        if (rules.table.isEmpty() || w.insertedRows.isEmpty())
            return result;
        RowSet written = conn.query(QStringLiteral("SELECT rowid FROM ") + rules.table
                                        + QStringLiteral(" WHERE rowid > ? ORDER BY rowid"),
                                    {lastBefore});
        for (; !written.eof(); written.next())
            result.writtenIds << written.value(0).toLongLong();
        if (result.writtenIds.size() == w.insertedRows.size())
            result.writtenRows = w.insertedRows;
        else
            result.writtenIds.clear();
    }
    return result;
}
