#pragma once
// The in-place grid editor shared by the competitions, events, dances, judges
// and competitors screens.
//
// HOW A SCREEN IS BUILT
//
// 1. Rules (no widgets, testable without a window): derive from GridRules
//    (grid_rules.h) and fill in its constructor
//        table = "judges"; fixedRows = 1;          // 2 on the events screen
//        widths = {0, 4000, 4000};                 // twips, column 0 first; 0 hides it
//        required = {1, 2};                        // what Find_Blank_Cell looks at
//        commitMarksDirty = true;                  // false on the competitions screen
//        emptyCellIsNull = false;                  // "" instead of NULL for an empty cell
//        texts.failureLine = "There was an error updating group: ";
//        texts.hintLine = "...";  texts.hintJoined = false;  texts.fixLine = "...";
//        texts.failureTitle / faultTitle / faultText;   // failure box, Validate_Cell's handler box
//        texts.deleteQuestion = "Are you sure you want to delete Judge? \nIt will ...";
//    and override
//        Select_Sql()            the record set's SELECT; field n fills column n
//        Captions(afterSave)     one QStringList per caption row, column 0 first
//        New_Row_Filler()        column 0 of an appended row: "0" or the competition id
//        Check_Cell(row, col, text)   return a Cell_Refusal{text, title, style} to refuse;
//                                throw AppError for the handler's box; may upper-case text
//        Insert_Row(w, gridRow)  the INSERT of one new row: w.conn, w.cells.row(gridRow)
//        Delete_Dependents(conn, rowCells)   the cascade, its guard included
//    and where the screen needs them: Before_Open, Display_Text,
//    First_Row_Defaults, New_Row_Defaults, Row_Changed (changed-row marks),
//    Pre_Save_Check, Insert_New_From_Grid (whole loop), Row_Needs_Write,
//    Write_Row (one record set row), Check_At_Save, Field_Value,
//    Delete_Allowed (false: cmdDel silently does nothing).
//    Every hook that writes gets a Save_Work: conn, rs (RecordSet), cells
//    (Grid_Cells snapshot, caption rows included), fixedRows, addedRows, and
//    workRow/workCol to keep on the row in work. The whole write runs in one
//    transaction; an AppError thrown from it becomes the failure box.
//
// 2. Screen: derive from GridScreen, pass the form name, caption and rules:
//        frmJudges() : GridScreen("frmJudges", App_Title + " - Judges",
//                                 std::make_unique<JudgeRules>()) { ...; Load_Grid(); }
//    Call Load_Grid() at the end of the constructor (connection, record set,
//    widths, Set_Headers, Read_Values, dirty flag cleared). Extra widgets go
//    into Body() (beside or below the grid) or Button_Row(); floating panels
//    may be children of the screen placed by hand. Widget hooks to override:
//        F2_Lookup(fromEditor)        a lookup list on F2; return false for the
//                                     plain editor (grid) / nothing (editor)
//        Before_Cascade()             just before Delete_Dependents
//        Delete_Captions(yes, cleared) captions after a cmdDel click; default:
//                                     Set_Headers(false) after a clear
//        Set_Headers(afterSave)       default writes rules.Captions and
//                                     First_Row_Defaults
//        Add_Row()                    virtual, call the base
//    Set_Arrows_By_Sent_Keys(true) makes the editor's arrows move by keys
//    sent to the grid (competitors screen). Keys of the screen's own go in
//    an eventFilter override that returns GridScreen::eventFilter for the
//    rest. Set column widths with MSFlexGrid1->Set_Col_Width (keeps the
//    caption rows in step). A screen closes itself with Unload().
//
// 3. Controls by objectName: MSFlexGrid1 (FlexGrid, a QTableWidget; caption
//    rows are rows 0..fixedRows-1, column 0 hidden), txtEdit (QLineEdit
//    floating over the cell), CmdAdd, CmdSave, cmdDel (QPushButton; set their
//    text and tool tips in the screen). The screen itself has its form name;
//    Esc on it closes it, asking "Do you want to save your changes? " when dirty.
//
// Rows: a record set row p is grid row p + fixedRows; rows below the last
// record set row are new rows, written only by Insert_New_From_Grid at save.

#include "grid_rules.h"
#include "ui/screen.h"

#include <QList>
#include <memory>

class FlexGrid;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

class GridScreen : public Screen
{
    Q_OBJECT
public:
    GridScreen(const QString &formName, const QString &caption, std::unique_ptr<GridRules> rules,
               QWidget *parent = nullptr);
    ~GridScreen() override;

    FlexGrid *MSFlexGrid1 = nullptr;
    QLineEdit *txtEdit = nullptr;
    QPushButton *CmdAdd = nullptr;
    QPushButton *CmdSave = nullptr;
    QPushButton *cmdDel = nullptr;

    GridRules &rules() { return *m_rules; }
    RecordSet &records() { return m_rs; }
    QVBoxLayout *Body() const { return m_body; }
    QHBoxLayout *Button_Row() const { return m_buttons; }

    // Opening: connection, record set, widths, captions, values; the dirty
    // flag is cleared last. False when the database could not be opened.
    bool Load_Grid();

    // --- The idiom ----------------------------------------------------------
    void Read_Values();
    virtual void Set_Headers(bool afterSave);
    // Reopens the record set, clears the grid, captions (as after a save),
    // Read_Values; the cursor stays where it was when it can.
    void Refresh_Grid();
    // text empty: the cell's text, all selected; "DEL": an empty box; else the
    // text with the caret after its first character, or at its end with
    // caretAtEnd (a paste).
    void Begin_Edit(const QString &text, bool caretAtEnd = false);
    void Place_Editor();
    void Commit_Edit();
    bool Validate_Cell();
    virtual void Add_Row();
    bool Find_Blank_Cell(int row) const;
    bool Save_Changes();
    void Show_Saved_Box();

    // --- State ----------------------------------------------------------------
    bool Dirty() const { return m_dirty; }
    void Set_Dirty(bool dirty) { m_dirty = dirty; }
    int Added_Rows() const { return m_added; }
    bool Editor_Open() const { return m_editorOpen; }
    int Edit_Row() const { return m_editRow; }
    int Edit_Col() const { return m_editCol; }
    int Fixed_Rows() const;
    int Row_Count() const;
    int Current_Row() const;
    int Current_Col() const;
    void Go_To(int row, int col);
    QString Cell(int row, int col) const;
    void Set_Cell(int row, int col, const QString &text);
    QStringList Row_Cells(int row) const;
    // The grid's texts as the save sees them.
    Grid_Cells Snapshot() const;
    // Clears every cell and leaves the caption rows and one empty data row.
    void Clear_Grid();
    void Set_Arrows_By_Sent_Keys(bool on) { m_arrowsBySentKeys = on; }

    // The buttons' actions.
    void CmdAdd_Click();
    void CmdSave_Click();
    void cmdDel_Click();

protected:
    virtual bool F2_Lookup(bool fromEditor) { return false; }
    virtual void Before_Cascade() {}
    virtual void Delete_Captions(bool yes, bool cleared);
    // A panel the editor's text may go to unchecked (a lookup list): clicks
    // in it do not pass through Validate_Cell.
    void Keep_Editor_Open_For(QWidget *panel) { m_lookupPanels << panel; }

    bool Query_Unload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    friend class Leave_Guard;
    bool Leaving_Editor(QObject *watched, QEvent *event);
    void Install_Leave_Guard();
    void Take_Written_Rows(const Grid_Save_Result &result);
    bool Grid_Key(QKeyEvent *e);
    bool Editor_Key(QKeyEvent *e);
    void Grid_Tab(bool back);
    void Grid_Enter();
    void Send_Key(int key);
    void Hide_Editor();
    void Grid_Focus();
    void On_Scroll();
    void Apply_Widths();
    void Open_Records();

    std::unique_ptr<GridRules> m_rules;
    RecordSet m_rs;
    QVBoxLayout *m_body = nullptr;
    QHBoxLayout *m_buttons = nullptr;
    bool m_dirty = false;
    int m_added = 0;
    bool m_editorOpen = false;
    int m_editRow = -1;
    int m_editCol = -1;
    bool m_placing = false;
    bool m_arrowsBySentKeys = false;
    QList<QWidget *> m_lookupPanels;
    bool m_preCheckRefused = false;
    QObject *m_leaveGuard = nullptr;
};
