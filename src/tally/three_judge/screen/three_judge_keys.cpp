// The Premiership and Championship mark screen: its keys beside those of the
// shared editor, and the quick find.
#include "three_judge_screen.h"
#include "mark_rules.h"
#include "ui/grid/flex_grid.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>

using namespace ThreeJudge;

namespace {

bool Is_Enter(const QKeyEvent *e)
{
    return e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
}

bool Is_Back_Tab(const QKeyEvent *e)
{
    return e->key() == Qt::Key_Backtab || (e->key() == Qt::Key_Tab && (e->modifiers() & Qt::ShiftModifier));
}

// The numeric "*" or Shift+8.
bool Is_Star(const QKeyEvent *e)
{
    return e->key() == Qt::Key_Asterisk || (e->key() == Qt::Key_8 && (e->modifiers() & Qt::ShiftModifier));
}

} // namespace

bool ThreeJudgeScreen::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *e = static_cast<QKeyEvent *>(event);
        if (watched == MSFlexGrid1 && Grid_Key_Here(e))
            return true;
        if (watched == txtEdit && Editor_Key_Here(e))
            return true;
        if (watched == txt_enter_no && Is_Enter(e)) {
            Quick_Find_Enter();
            return true;
        }
    }
    if (watched == txt_enter_no && event->type() == QEvent::FocusOut && frm_no->isVisible())
        Hide_Quick_Find();
    return GridScreen::eventFilter(watched, event);
}

bool ThreeJudgeScreen::Grid_Key_Here(QKeyEvent *e)
{
    if (Current_Row() < Fixed_Rows())
        return false;
    if (Is_Star(e)) {
        Toggle_Quick_Find();
        return true;
    }
    if (Is_Back_Tab(e)) {
        Move_Up();
        return true;
    }
    if (e->key() == Qt::Key_Tab || Is_Enter(e)) {
        Move_Down(true);
        return true;
    }
    return false;
}

bool ThreeJudgeScreen::Editor_Key_Here(QKeyEvent *e)
{
    const bool back = Is_Back_Tab(e);
    const bool tab = e->key() == Qt::Key_Tab || e->key() == Qt::Key_Backtab;
    const bool enter = Is_Enter(e);
    if (!tab && !enter)
        return false;
    if (!Validate_Cell())
        return true;
    // The cursor moves before this returns: a key typed after this one lands
    // on the next cell, however fast it comes.
    MSFlexGrid1->setFocus();
    // Enter wraps to the next judge at the last row; Tab only goes down.
    if (back)
        Move_Up();
    else
        Move_Down(enter);
    return true;
}

void ThreeJudgeScreen::Move_Down(bool wrap)
{
    const int row = Current_Row();
    const int col = Current_Col();
    if (row < Row_Count() - 1) {
        MSFlexGrid1->setCurrentCell(row + 1, col);
    } else if (wrap) {
        const int lastCol = MSFlexGrid1->columnCount() - 1;
        MSFlexGrid1->setCurrentCell(Fixed_Rows(), col < lastCol ? col + 1 : col);
    }
}

void ThreeJudgeScreen::Move_Up()
{
    if (Current_Row() > Fixed_Rows())
        MSFlexGrid1->setCurrentCell(Current_Row() - 1, Current_Col());
}

void ThreeJudgeScreen::Toggle_Quick_Find()
{
    if (frm_no->isVisible())
        Hide_Quick_Find();
    else
        Show_Quick_Find();
}

void ThreeJudgeScreen::Show_Quick_Find()
{
    txt_enter_no->clear();
    Place_Floating();
    frm_no->show();
    frm_no->raise();
    txt_enter_no->setFocus();
}

void ThreeJudgeScreen::Hide_Quick_Find()
{
    frm_no->hide();
    txt_enter_no->clear();
}

void ThreeJudgeScreen::Quick_Find_Enter()
{
    const QString wanted = txt_enter_no->text();
    frm_no->hide();
    bool found = false;
    for (int r = Fixed_Rows(); r < Row_Count(); ++r) {
        if (Cell(r, 0) == wanted) {
            MSFlexGrid1->setCurrentCell(r, First_Judge_Column);
            MSFlexGrid1->scrollTo(MSFlexGrid1->model()->index(r, First_Judge_Column), QAbstractItemView::PositionAtTop);
            found = true;
            break;
        }
    }
    if (!found)
        txt_enter_no->clear();
    MSFlexGrid1->setFocus();
}
