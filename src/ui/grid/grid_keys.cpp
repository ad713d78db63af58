// The keys of a grid screen: in the grid while the editor is closed, and in
// the editor while it is open, plus the mouse and the scroll bars.
#include "grid_screen.h"
#include "flex_grid.h"

#include <QApplication>
#include <QCloseEvent>
#include <QClipboard>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isBackTab(const QKeyEvent *e)
{
    return e->key() == Qt::Key_Backtab || (e->key() == Qt::Key_Tab && (e->modifiers() & Qt::ShiftModifier));
}

bool isCtrl(const QKeyEvent *e, int key)
{
    return e->key() == key && (e->modifiers() & Qt::ControlModifier) && !(e->modifiers() & Qt::AltModifier);
}

// The selection end as the box reports it: the caret when nothing is selected.
int selectionEnd(const QLineEdit *box)
{
    return box->hasSelectedText() ? box->selectionEnd() : box->cursorPosition();
}

} // namespace

// Sees every mouse press and shortcut of the program before its target does,
// so that the editor's text is checked before the focus leaves the box.
class Leave_Guard : public QObject
{
public:
    explicit Leave_Guard(GridScreen *screen) : QObject(screen), m_screen(screen) {}
    bool eventFilter(QObject *watched, QEvent *event) override { return m_screen->Leaving_Editor(watched, event); }

private:
    GridScreen *m_screen;
};

void GridScreen::Install_Leave_Guard()
{
    m_leaveGuard = new Leave_Guard(this);
    qApp->installEventFilter(m_leaveGuard);
}

bool GridScreen::Leaving_Editor(QObject *watched, QEvent *event)
{
    const QEvent::Type t = event->type();
    if (t != QEvent::MouseButtonPress && t != QEvent::MouseButtonDblClick && t != QEvent::Shortcut)
        return false;
    if (!m_editorOpen || m_placing || !watched->isWidgetType())
        return false;
    auto *w = static_cast<QWidget *>(watched);
    // The grid's own clicks and scrolling have their handling; a lookup list
    // takes the text as it stands.
    if (!isAncestorOf(w) || w == txtEdit || MSFlexGrid1->isAncestorOf(w) || w == MSFlexGrid1 || !w->isEnabled())
        return false;
    for (QWidget *panel : std::as_const(m_lookupPanels))
        if (panel == w || panel->isAncestorOf(w))
            return false;
    // A refused text keeps the editor and the focus; the click goes nowhere.
    return !Validate_Cell();
}

void GridScreen::closeEvent(QCloseEvent *event)
{
    if (m_editorOpen && !Validate_Cell()) {
        event->ignore();
        return;
    }
    Screen::closeEvent(event);
}

bool GridScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == MSFlexGrid1) {
        if (event->type() == QEvent::KeyPress)
            return Grid_Key(static_cast<QKeyEvent *>(event));
        if (event->type() == QEvent::FocusIn)
            Commit_Edit();
    } else if (watched == txtEdit) {
        if (event->type() == QEvent::KeyPress)
            return Editor_Key(static_cast<QKeyEvent *>(event));
    } else if (watched == MSFlexGrid1->viewport()) {
        // A click on the grid while the editor is open leaves the cell only
        // through validation; a refused text keeps the editor and the click
        // goes nowhere.
        const QEvent::Type t = event->type();
        if ((t == QEvent::MouseButtonPress || t == QEvent::MouseButtonDblClick) && m_editorOpen) {
            if (!Validate_Cell())
                return true;
            Grid_Focus();
        }
    }
    return Screen::eventFilter(watched, event);
}

void GridScreen::Send_Key(int key)
{
    // Delivered through the event queue: the cursor moves after the handler returns.
    QCoreApplication::postEvent(MSFlexGrid1, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    QCoreApplication::postEvent(MSFlexGrid1, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier));
}

void GridScreen::Grid_Tab(bool back)
{
    const int col = Current_Col();
    if (back) {
        if (col > 1)
            MSFlexGrid1->setCurrentCell(Current_Row(), col - 1);
    } else if (col < MSFlexGrid1->columnCount() - 1) {
        Send_Key(Qt::Key_Right);
    }
}

void GridScreen::Grid_Enter()
{
    if (Current_Row() < Row_Count() - 1) {
        Send_Key(Qt::Key_Home);
        Send_Key(Qt::Key_Down);
    } else {
        Add_Row();
    }
}

bool GridScreen::Grid_Key(QKeyEvent *e)
{
    // In a caption row no key does anything.
    if (Current_Row() < Fixed_Rows()) {
        const bool moves = e->key() == Qt::Key_Down || e->key() == Qt::Key_Up || e->key() == Qt::Key_Left
                           || e->key() == Qt::Key_Right;
        return !moves;
    }
    if (e->key() == Qt::Key_Tab || e->key() == Qt::Key_Backtab) {
        Grid_Tab(isBackTab(e));
        return true;
    }
    if (isEnter(e->key())) {
        Grid_Enter();
        return true;
    }
    if (e->key() == Qt::Key_Delete && !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        Begin_Edit(QStringLiteral("DEL"));
        return true;
    }
    if (e->key() == Qt::Key_F2) {
        if (!F2_Lookup(false))
            Begin_Edit(QString());
        return true;
    }
    if (isCtrl(e, Qt::Key_V)) {
        const QString clip = QApplication::clipboard()->text();
        Begin_Edit(clip, true);
        return true;
    }
    if (isCtrl(e, Qt::Key_C)) {
        QApplication::clipboard()->setText(Cell(Current_Row(), Current_Col()));
        return true;
    }
    if (isCtrl(e, Qt::Key_X)) {
        // Cut empties the cell without counting as a change.
        QApplication::clipboard()->setText(Cell(Current_Row(), Current_Col()));
        Set_Cell(Current_Row(), Current_Col(), QString());
        MSFlexGrid1->setFocus();
        return true;
    }
    if (e->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return false;
    const QString text = e->text();
    if (text.size() == 1 && text.at(0).isPrint()) {
        const ushort code = text.at(0).unicode();
        // A printable character opens the editor; the space and other
        // characters do nothing (and never search the grid).
        if (code >= 33 && code <= 126)
            Begin_Edit(text);
        return true;
    }
    return false;
}

bool GridScreen::Editor_Key(QKeyEvent *e)
{
    const int key = e->key();
    if (key == Qt::Key_Escape) {
        // The cell keeps its text; the dirty flag stays as it is.
        txtEdit->clear();
        Hide_Editor();
        Grid_Focus();
        return true;
    }
    if (key == Qt::Key_F2) {
        F2_Lookup(true);
        return true;
    }
    const bool back = isBackTab(e);
    const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    const bool enter = isEnter(key);
    const int col = Current_Col();
    const int row = Current_Row();
    const int lastCol = MSFlexGrid1->columnCount() - 1;
    const int lastRow = Row_Count() - 1;
    bool leave = tab || enter || key == Qt::Key_Up || key == Qt::Key_Down;
    // The arrows move the caret until it reaches an edge of the text.
    if (key == Qt::Key_Left && !(e->modifiers() & Qt::ShiftModifier))
        leave = selectionEnd(txtEdit) == 0;
    if (key == Qt::Key_Right && !(e->modifiers() & Qt::ShiftModifier))
        leave = selectionEnd(txtEdit) == txtEdit->text().size();
    if (!leave)
        return false;

    if (!Validate_Cell())
        return true;
    Grid_Focus();
    QCoreApplication::processEvents();

    if (tab) {
        Grid_Tab(back);
    } else if (enter) {
        Grid_Enter();
    } else if (key == Qt::Key_Left) {
        if (col > 1)
            m_arrowsBySentKeys ? Send_Key(Qt::Key_Left) : MSFlexGrid1->setCurrentCell(row, col - 1);
    } else if (key == Qt::Key_Right) {
        if (col < lastCol)
            m_arrowsBySentKeys ? Send_Key(Qt::Key_Right) : MSFlexGrid1->setCurrentCell(row, col + 1);
    } else if (key == Qt::Key_Up) {
        if (row > Fixed_Rows())
            m_arrowsBySentKeys ? Send_Key(Qt::Key_Up) : MSFlexGrid1->setCurrentCell(row - 1, col);
    } else if (key == Qt::Key_Down) {
        if (row >= lastRow)
            Add_Row();
        else
            m_arrowsBySentKeys ? Send_Key(Qt::Key_Down) : MSFlexGrid1->setCurrentCell(row + 1, col);
    }
    return true;
}

void GridScreen::On_Scroll()
{
    if (!m_editorOpen || m_placing)
        return;
    if (Validate_Cell())
        Grid_Focus();
    else
        Place_Editor();
}
