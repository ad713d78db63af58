#pragma once
// What one grid screen is, apart from its widgets: its record set, its
// columns and captions, its checks, its required cells and defaults, and the
// SQL of its inserts and its cascade. GridScreen (grid_screen.h) runs the
// editor and the save with it. See grid_screen.h for how a screen is built.

#include "core/dialogs.h"
#include "grid_cells.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

class Connection;
class RecordSet;

// A text the screen refuses, and the box that says why. row and col say where
// the cursor goes when a check at save time stops the loop (-1: stays).
struct Cell_Refusal
{
    QString text;
    QString title = QStringLiteral("Validation Error");
    int style = vbExclamation;
    int row = -1;
    int col = -1;
};

// The literal texts of one screen's boxes.
struct Grid_Texts
{
    // The save's failure box: title, failure line (the text of column 1 of the
    // row in work follows it), hint line (none when empty; joined to the
    // failure line without a break when hintJoined), then fixLine and the
    // closing line.
    QString failureTitle = QStringLiteral("Data Error");
    QString failureLine;
    QString hintLine;
    bool hintJoined = false;
    QString fixLine = QStringLiteral("Please fix this record and save again, otherwise you may loose some data!");

    // The box of Validate_Cell's handler: a check that faults (no number
    // where one is converted) instead of refusing.
    QString faultTitle = QStringLiteral("Data Error");
    QString faultText = QStringLiteral("There was an error! Re-enter or Hit <Escape> to exit");
    int faultStyle = vbExclamation;

    // cmdDel's question, titled "Deletion Confirmation".
    QString deleteQuestion;
};

// What a save works with. workRow and workCol follow the row and column in
// work, so that a fault can name the row (its column 1) and put the cursor
// back on it.
struct Save_Work
{
    Connection &conn;
    RecordSet &rs;
    const Grid_Cells &cells;
    int fixedRows;
    int addedRows;   // rows added since the last save
    int workRow = -1;
    int workCol = 1;
    QList<int> insertedRows;  // new grid rows written so far, in order
};

// One screen's differences. A screen derives from it, fills the data members
// in its constructor and overrides the hooks it needs.
class GridRules
{
public:
    virtual ~GridRules() = default;

    // --- Fixed at construction -------------------------------------------
    QString table;              // the table the record set updates
    int fixedRows = 1;          // caption rows above the data (2 on the events screen)
    QList<int> widths;          // twips per column, column 0 first; its size is the column count;
                                // a width of 0 hides the column
    QList<int> required;        // columns Find_Blank_Cell looks at
    bool commitMarksDirty = true;   // Commit_Edit sets the dirty flag when the text differs
    bool emptyCellIsNull = true;    // Field_Value's default for an empty cell: NULL, or ""
    Grid_Texts texts;

    int Column_Count() const { return static_cast<int>(widths.size()); }

    // --- The record set ---------------------------------------------------
    // The SELECT behind the grid: field n fills column n. Read at every
    // opening, so a screen may change it (a search).
    virtual QString Select_Sql() const = 0;
    // Runs before every opening of the record set.
    virtual void Before_Open(Connection &conn) {}
    // The text a stored value shows in the grid. Default: NULL empty, numbers
    // as 12 and 87.5.
    virtual QString Display_Text(int col, const QVariant &value) const;

    // --- Captions and new rows -------------------------------------------
    // One list of texts per caption row, column 0 first. afterSave: the
    // refresh after a save (some screens word it otherwise).
    virtual QList<QStringList> Captions(bool afterSave) const = 0;
    // Cells Set_Headers also writes into the first data row, in order.
    virtual QList<QPair<int, QString>> First_Row_Defaults() const { return {}; }
    // Column 0 of a row that Add_Row appends ("0", or the competition id).
    virtual QString New_Row_Filler() const = 0;
    // Cells Add_Row writes into the appended row, in order.
    virtual QList<QPair<int, QString>> New_Row_Defaults() const { return {}; }

    // --- Editing ----------------------------------------------------------
    // The screen's checks on the editor's text at (row, col). A refusal keeps
    // the editor open; a fault (AppError) gets the handler's box of texts.
    // The check may change the text (upper case), which the editor then shows.
    virtual std::optional<Cell_Refusal> Check_Cell(int row, int col, QString &text) = 0;
    // Commit_Edit found a different text in the row (commitMarksDirty
    // screens only). May fault: the fault then reaches the handler.
    virtual void Row_Changed(int row) {}
    // A grid row moved to another place (a written new row joining the saved
    // ones): whatever the screen keeps by row follows it.
    virtual void Row_Moved(int from, int to) {}
    // A grid row was removed: the rows below it move up one.
    virtual void Row_Removed(int row) {}
    // The grid was filled anew from the store: nothing in it waits to be written.
    virtual void Rows_Reloaded() {}

    // --- Save -------------------------------------------------------------
    // A refusal here shows its box and saves nothing (the result stays true).
    virtual std::optional<Cell_Refusal> Pre_Save_Check(const Grid_Cells &cells) { return std::nullopt; }
    // Default: Insert_Row for each grid row below the record set's rows that
    // is not blank.
    virtual void Insert_New_From_Grid(Save_Work &w);
    // A new row with nothing typed in it (empty cells, or the defaults Add_Row
    // wrote) is no record and is not written.
    bool Row_Is_Blank(const Grid_Cells &cells, int row) const;
    // Writes one new grid row (INSERT). Faults go to the failure box.
    virtual void Insert_Row(Save_Work &w, int gridRow) = 0;
    // Default: Write_Row for each record set row whose grid row
    // Row_Needs_Write; the first refusal stops the loop and is returned (the
    // rows before it stay written).
    virtual std::optional<Cell_Refusal> Read_Values_From_Grid(Save_Work &w);
    virtual bool Row_Needs_Write(int gridRow) const { return true; }
    // Default: every field but column 0 takes Field_Value of its cell, after
    // Check_At_Save; then the record is updated. A refusal drops the row's
    // pending changes.
    virtual std::optional<Cell_Refusal> Write_Row(Save_Work &w, int record, int gridRow);
    virtual std::optional<Cell_Refusal> Check_At_Save(int col, const QString &text) const { return std::nullopt; }
    // Default: empty -> NULL or "" (emptyCellIsNull), else the text.
    virtual QVariant Field_Value(int col, const QString &text) const;

    // --- Delete -----------------------------------------------------------
    // False: cmdDel does nothing at all for this row (no box).
    virtual bool Delete_Allowed(const QStringList &row) const { return true; }
    // The cascade for the cursor row's cells, its guard included (return at
    // once for a row never saved). The record itself goes afterwards.
    virtual void Delete_Dependents(Connection &conn, const QStringList &row) = 0;
};

// The text of a stored value, NULL empty, numbers as 12 and 87.5.
QString Grid_Text(const QVariant &value);

// The save's failure box text: failure line and column 1's text, the hint,
// the fix line and "If problems persist, try deleting this record or closing
// this window!", joined by line breaks.
QString Save_Failure_Text(const Grid_Texts &texts, const QString &column1);

// What the writing part of a save (insert new rows, write the record set's
// rows, in one transaction) came to.
struct Grid_Save_Result
{
    // A refusal of the pre-check (nothing written) or of a check at save time
    // (rows before it written, the save goes on).
    std::optional<Cell_Refusal> refusal;
    bool preCheckRefused = false;
    // A fault: the box text, and the row and column in work.
    bool failed = false;
    QString failureText;
    int row = -1;
    int col = -1;
    // After a fault: the new grid rows already written and their rowids, in
    // order; they are saved rows from then on.
    QList<int> writtenRows;
    QList<qint64> writtenIds;
};

// Steps 2 to 5 of a save: pre-check, Insert_New_From_Grid,
// Read_Values_From_Grid, in one transaction committed whatever happens.
// No box is shown here.
Grid_Save_Result Run_Grid_Save(GridRules &rules, Connection &conn, RecordSet &rs, const Grid_Cells &cells,
                               int addedRows);
