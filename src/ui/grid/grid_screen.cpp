#include "grid_screen.h"
#include "flex_grid.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

GridScreen::GridScreen(const QString &formName, const QString &caption, std::unique_ptr<GridRules> rules,
                       QWidget *parent)
    : Screen(formName, caption, parent), m_rules(std::move(rules))
{
    MSFlexGrid1 = new FlexGrid(this);
    MSFlexGrid1->Set_Fixed_Rows(m_rules->fixedRows);
    MSFlexGrid1->Set_Size(m_rules->fixedRows + 1, m_rules->Column_Count());

    CmdAdd = new QPushButton(QStringLiteral("&Add"), this);
    CmdAdd->setObjectName(QStringLiteral("CmdAdd"));
    CmdSave = new QPushButton(QStringLiteral("&Save"), this);
    CmdSave->setObjectName(QStringLiteral("CmdSave"));
    cmdDel = new QPushButton(QStringLiteral("&Delete"), this);
    cmdDel->setObjectName(QStringLiteral("cmdDel"));

    m_body = new QVBoxLayout;
    m_body->addWidget(MSFlexGrid1, 1);
    m_buttons = new QHBoxLayout;
    m_buttons->addWidget(CmdAdd);
    m_buttons->addWidget(CmdSave);
    m_buttons->addWidget(cmdDel);
    m_buttons->addStretch(1);
    auto *outer = new QVBoxLayout(this);
    outer->addLayout(m_body, 1);
    outer->addLayout(m_buttons);

    // The editor floats above the grid, a child of the screen like the grid.
    txtEdit = new QLineEdit(this);
    txtEdit->setObjectName(QStringLiteral("txtEdit"));
    txtEdit->setFrame(false);
    // A thin border tells the operator the cell is being edited.
    txtEdit->setStyleSheet(QStringLiteral("QLineEdit#txtEdit { border: 1px solid palette(highlight); padding: 0 1px; }"));
    txtEdit->hide();

    MSFlexGrid1->installEventFilter(this);
    MSFlexGrid1->viewport()->installEventFilter(this);
    txtEdit->installEventFilter(this);
    connect(MSFlexGrid1, &QTableWidget::currentCellChanged, this, [this] { Commit_Edit(); });
    connect(MSFlexGrid1, &QTableWidget::cellDoubleClicked, this, [this](int row, int) {
        if (row >= Fixed_Rows())
            Begin_Edit(QString());
    });
    connect(MSFlexGrid1->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { On_Scroll(); });
    connect(MSFlexGrid1->horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { On_Scroll(); });
    connect(CmdAdd, &QPushButton::clicked, this, &GridScreen::CmdAdd_Click);
    connect(CmdSave, &QPushButton::clicked, this, &GridScreen::CmdSave_Click);
    connect(cmdDel, &QPushButton::clicked, this, &GridScreen::cmdDel_Click);
    Install_Leave_Guard();
}

GridScreen::~GridScreen() = default;

int GridScreen::Fixed_Rows() const
{
    return m_rules->fixedRows;
}

int GridScreen::Row_Count() const
{
    return MSFlexGrid1->rowCount();
}

int GridScreen::Current_Row() const
{
    return MSFlexGrid1->currentRow();
}

int GridScreen::Current_Col() const
{
    return MSFlexGrid1->currentColumn();
}

void GridScreen::Go_To(int row, int col)
{
    if (row < Fixed_Rows() || row >= Row_Count())
        return;
    MSFlexGrid1->setCurrentCell(row, qBound(1, col, MSFlexGrid1->columnCount() - 1));
}

QString GridScreen::Cell(int row, int col) const
{
    return MSFlexGrid1->Text(row, col);
}

void GridScreen::Set_Cell(int row, int col, const QString &text)
{
    MSFlexGrid1->Set_Text(row, col, text);
}

QStringList GridScreen::Row_Cells(int row) const
{
    QStringList cells;
    for (int c = 0; c < MSFlexGrid1->columnCount(); ++c)
        cells << Cell(row, c);
    return cells;
}

Grid_Cells GridScreen::Snapshot() const
{
    Grid_Cells cells(0, MSFlexGrid1->columnCount());
    for (int r = 0; r < Row_Count(); ++r)
        cells.appendRow(Row_Cells(r));
    return cells;
}

void GridScreen::Clear_Grid()
{
    Hide_Editor();
    MSFlexGrid1->clearContents();
    m_rules->Rows_Reloaded();
    MSFlexGrid1->Set_Size(Fixed_Rows() + 1, m_rules->Column_Count());
    MSFlexGrid1->Set_Fixed_Rows(Fixed_Rows());
}

// --- Opening and filling ------------------------------------------------------

void GridScreen::Open_Records()
{
    m_rules->Before_Open(conn());
    m_rs.open(conn(), m_rules->table, m_rules->Select_Sql());
}

bool GridScreen::Load_Grid()
{
    Apply_Widths();
    if (!Open_Connection()) {
        Set_Headers(false);
        return false;
    }
    Open_Records();
    Set_Headers(false);
    Read_Values();
    Go_To(Fixed_Rows(), 1);
    m_dirty = false;
    return true;
}

void GridScreen::Apply_Widths()
{
    for (int c = 0; c < m_rules->widths.size(); ++c)
        MSFlexGrid1->Set_Col_Width(c, m_rules->widths.at(c));
}

void GridScreen::Set_Headers(bool afterSave)
{
    const QList<QStringList> captions = m_rules->Captions(afterSave);
    for (int r = 0; r < Fixed_Rows() && r < captions.size(); ++r)
        for (int c = 0; c < MSFlexGrid1->columnCount(); ++c)
            Set_Cell(r, c, captions.at(r).value(c));
    for (const auto &[col, text] : m_rules->First_Row_Defaults())
        Set_Cell(Fixed_Rows(), col, text);
}

void GridScreen::Read_Values()
{
    m_rules->Rows_Reloaded();
    if (m_rs.rowCount() == 0)
        return;
    const int fixed = Fixed_Rows();
    MSFlexGrid1->setUpdatesEnabled(false);
    MSFlexGrid1->Set_Size(m_rs.rowCount() + fixed, m_rs.fieldCount());
    for (int rec = 0; rec < m_rs.rowCount(); ++rec)
        for (int f = 0; f < m_rs.fieldCount(); ++f)
            Set_Cell(rec + fixed, f, m_rules->Display_Text(f, m_rs.value(rec, f)));
    MSFlexGrid1->setUpdatesEnabled(true);
}

void GridScreen::Refresh_Grid()
{
    const int row = Current_Row();
    const int col = Current_Col();
    Open_Records();
    Clear_Grid();
    Set_Headers(true);
    Read_Values();
    Go_To(qMin(qMax(row, Fixed_Rows()), Row_Count() - 1), qMax(col, 1));
}

// --- The editor -----------------------------------------------------------------

void GridScreen::Begin_Edit(const QString &text, bool caretAtEnd)
{
    if (Current_Row() < Fixed_Rows() || Current_Col() < 1)
        return;
    // Opening the editor counts as a change, even if nothing is typed.
    m_dirty = true;
    // The box holds its text before pending events run, so that keys typed
    // meanwhile land after it, in order.
    if (text.isEmpty()) {
        const QString current = Cell(Current_Row(), Current_Col());
        txtEdit->setText(current);
        txtEdit->setSelection(current.size(), -current.size());
    } else if (text == QLatin1String("DEL")) {
        txtEdit->clear();
    } else {
        txtEdit->setText(text);
        txtEdit->setCursorPosition(caretAtEnd ? text.size() : 1);
    }
    Place_Editor();
}

void GridScreen::Place_Editor()
{
    m_editRow = Current_Row();
    m_editCol = Current_Col();
    const bool placing = m_placing;
    m_placing = true;
    MSFlexGrid1->Flush_Layout();
    const QModelIndex cell = MSFlexGrid1->model()->index(m_editRow, m_editCol);
    MSFlexGrid1->scrollTo(cell);
    const QRect r = MSFlexGrid1->visualRect(cell);
    txtEdit->setGeometry(QRect(MSFlexGrid1->viewport()->mapTo(this, r.topLeft()), r.size()));
    m_editorOpen = true;
    // While the editor is open a click on the grid must pass Validate_Cell
    // before the grid may take the focus.
    MSFlexGrid1->setFocusPolicy(Qt::NoFocus);
    txtEdit->show();
    txtEdit->raise();
    // The box has the focus before pending events run: keys already typed go
    // into it, not to the grid.
    txtEdit->setFocus();
    QCoreApplication::processEvents();
    m_placing = placing;
}

void GridScreen::Hide_Editor()
{
    txtEdit->hide();
    m_editorOpen = false;
    MSFlexGrid1->setFocusPolicy(Qt::StrongFocus);
}

void GridScreen::Grid_Focus()
{
    MSFlexGrid1->setFocusPolicy(Qt::StrongFocus);
    MSFlexGrid1->setFocus();
}

void GridScreen::Commit_Edit()
{
    if (!m_editorOpen)
        return;
    const QString text = txtEdit->text();
    if (m_editRow >= 0 && m_editRow < Row_Count() && m_editCol >= 0 && m_editCol < MSFlexGrid1->columnCount()) {
        if (m_rules->commitMarksDirty && text != Cell(m_editRow, m_editCol)) {
            m_dirty = true;
            m_rules->Row_Changed(m_editRow);
        }
        Set_Cell(m_editRow, m_editCol, text);
    }
    Hide_Editor();
}

bool GridScreen::Validate_Cell()
{
    if (!m_editorOpen)
        return true;
    try {
        QString text = txtEdit->text();
        const std::optional<Cell_Refusal> refused = m_rules->Check_Cell(m_editRow, m_editCol, text);
        if (text != txtEdit->text())
            txtEdit->setText(text);
        if (refused) {
            Msg_Box(refused->text, refused->style, refused->title);
            txtEdit->setFocus();
            return false;
        }
        Commit_Edit();
        return true;
    } catch (const AppError &) {
        Msg_Box(m_rules->texts.faultText, m_rules->texts.faultStyle, m_rules->texts.faultTitle);
        txtEdit->setFocus();
        return false;
    }
}

// --- Rows -------------------------------------------------------------------------

bool GridScreen::Find_Blank_Cell(int row) const
{
    for (int col : m_rules->required)
        if (Cell(row, col).isEmpty())
            return true;
    return false;
}

void GridScreen::Add_Row()
{
    const int last = Row_Count() - 1;
    if (Find_Blank_Cell(last)) {
        // Column 1 is the landing place, also when the empty cell lies further right.
        Grid_Focus();
        MSFlexGrid1->setCurrentCell(last, 1);
        return;
    }
    const int added = last + 1;
    MSFlexGrid1->Set_Size(added + 1, MSFlexGrid1->columnCount());
    Set_Cell(added, 0, m_rules->New_Row_Filler());
    MSFlexGrid1->setCurrentCell(added, 1);
    for (const auto &[col, text] : m_rules->New_Row_Defaults())
        Set_Cell(added, col, text);
    Begin_Edit(QString());
    ++m_added;
}

void GridScreen::CmdAdd_Click()
{
    if (m_editorOpen && !Validate_Cell())
        return;
    Add_Row();
}

// --- Save -------------------------------------------------------------------------

bool GridScreen::Save_Changes()
{
    Doing doing(QStringLiteral("Saving ") + windowTitle().section(QStringLiteral(" - "), -1));
    // What stands in the box goes into the cell as it is.
    Commit_Edit();
    const Grid_Save_Result result = Run_Grid_Save(*m_rules, conn(), m_rs, Snapshot(), m_added);
    m_preCheckRefused = result.preCheckRefused;
    if (result.preCheckRefused) {
        Msg_Box(result.refusal->text, result.refusal->style, result.refusal->title);
        return true;
    }
    auto fail = [this](const QString &text, int row, int col) {
        Msg_Box(text, vbExclamation, m_rules->texts.failureTitle);
        Grid_Focus();
        Go_To(row, col);
        return false;
    };
    if (result.failed) {
        Take_Written_Rows(result);
        return fail(result.failureText, result.row, result.col);
    }
    if (result.refusal) {
        Msg_Box(result.refusal->text, result.refusal->style, result.refusal->title);
        Go_To(result.row, result.col);
    }
    try {
        Refresh_Grid();
    } catch (const AppError &) {
        return fail(Save_Failure_Text(m_rules->texts, QString()), Current_Row(), Current_Col());
    }
    m_added = 0;
    m_dirty = false;
    Show_Saved_Box();
    Grid_Focus();
    return true;
}

void GridScreen::Take_Written_Rows(const Grid_Save_Result &result)
{
    // Written rows move up to stand after the saved ones, in the order written,
    // and join the record set; a later save no longer inserts them.
    try {
        for (int i = 0; i < result.writtenRows.size(); ++i) {
            const int from = result.writtenRows.at(i);
            const int to = m_rs.rowCount() + Fixed_Rows();
            if (from != to) {
                const QStringList cells = Row_Cells(from);
                MSFlexGrid1->removeRow(from);
                MSFlexGrid1->insertRow(to);
                for (int c = 0; c < cells.size(); ++c)
                    Set_Cell(to, c, cells.at(c));
            }
            m_rs.append(result.writtenIds.at(i));
            m_rules->Row_Moved(from, to);
            --m_added;
        }
    } catch (const AppError &) {
        // The store could not give the row back: the grid shows it as it was.
    }
    m_added = qMax(0, m_added);
}

void GridScreen::CmdSave_Click()
{
    Save_Changes();
}

void GridScreen::Show_Saved_Box()
{
    Show_Timed_Box(QStringLiteral("Changes Saved!"), QStringLiteral("Confirmation"), 1000);
}

// --- Delete -----------------------------------------------------------------------

void GridScreen::Delete_Captions(bool yes, bool cleared)
{
    if (yes && cleared)
        Set_Headers(false);
}

void GridScreen::cmdDel_Click()
{
    if (m_editorOpen && !Validate_Cell())
        return;
    const int row = Current_Row();
    if (row < Fixed_Rows())
        return;
    const QStringList cells = Row_Cells(row);
    if (!m_rules->Delete_Allowed(cells))
        return;
    if (Msg_Box(m_rules->texts.deleteQuestion, vbYesNo + vbQuestion, QStringLiteral("Deletion Confirmation")) != vbYes) {
        Delete_Captions(false, false);
        Grid_Focus();
        return;
    }
    Before_Cascade();
    const int dataRows = Row_Count() - Fixed_Rows();
    try {
        Transaction t(conn());
        m_rules->Delete_Dependents(conn(), cells);
        // With unsaved rows in the grid the record stays: rows and records are
        // then off by one until the next refresh.
        if (m_rs.rowCount() >= dataRows)
            m_rs.remove(row - Fixed_Rows());
    } catch (const AppError &e) {
        Msg_Box(Fault_Text(e.message(), QStringLiteral("Deleting from ") + windowTitle().section(QStringLiteral(" - "), -1)),
                vbCritical, App_Title);
        Grid_Focus();
        return;
    }
    if (dataRows == 1) {
        Clear_Grid();
        Delete_Captions(true, true);
        if (Cell(Fixed_Rows(), 1).isEmpty())
            m_dirty = false;
        Go_To(Fixed_Rows(), 1);
    } else {
        Hide_Editor();
        MSFlexGrid1->removeRow(row);
        m_rules->Row_Removed(row);
        Delete_Captions(true, false);
    }
    Grid_Focus();
}

// --- Closing ----------------------------------------------------------------------

bool GridScreen::Query_Unload()
{
    if (!m_dirty)
        return true;
    if (Msg_Box(QStringLiteral("Do you want to save your changes? "), vbYesNo + vbQuestion,
                QStringLiteral("Save Changes Confirmation"))
        != vbYes)
        return true;
    // A save its pre-check refused wrote nothing: the screen stays, as after a failed save.
    return Save_Changes() && !m_preCheckRefused;
}
