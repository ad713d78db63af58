// Saving on the Competition mark screen: the save and tally, the questions
// before leaving a dance or an event, the buttons that save first, closing,
// and the keys in which the mark grid differs from the other grid screens.
#include "FrmTallyComp.h"
#include "mark_rules.h"
#include "mark_values.h"
#include "crosscheck/FrmCreateCompare.h"
#include "crosscheck/check_run.h"
#include "crosscheck/compare_file.h"
#include "core/database_file.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "ui/grid/flex_grid.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

const QString Validation_Error = QStringLiteral("Validation Error");
const QString Button_Failure = QStringLiteral("There has been an error udating this result. Please retry!");

} // namespace

bool FrmTallyComp::Save_And_Tally()
{
    Own_Choice();
    const Grid_Save_Result written = Run_Grid_Save(rules(), conn(), records(), Snapshot(), 0);
    if (written.failed || written.refusal) {
        Msg_Box(QStringLiteral("There was an error doing the update!"), vbExclamation, Validation_Error);
        // Every typed mark stays on screen and unsaved; the record set reads
        // again what the store really holds, so that the next save writes
        // each mark that differs from it.
        try {
            records().requery();
        } catch (const AppError &) {
            // Unreadable too: the next save tries every mark that differs from the last reading.
        }
        return false;
    }
    try {
        Tally_Dance();
        Tally_Overall();
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("Err2: There was an error while tallying! Please try again!"), vbExclamation,
                Validation_Error);
        return false;
    }
    return true;
}

bool FrmTallyComp::Editor_Accepts()
{
    if (!Editor_Open())
        return true;
    Marks().outOfRangeRefused = false;
    if (Validate_Cell())
        return true;
    if (Marks().outOfRangeRefused)
        txtEdit->selectAll();
    return false;
}

bool FrmTallyComp::Save_Step(bool askAlways, bool withCompare)
{
    if (!Changed())
        return true;
    const bool save = (Opt_Auto_Save && !askAlways)
                      || Msg_Box(QStringLiteral("Do you want to save your changes? "), vbYesNo + vbQuestion,
                                 QStringLiteral("Save Changes Confirmation"))
                             == vbYes;
    if (!save)
        return true;
    if (!Save_And_Tally())
        return false;
    Set_Dirty(false);
    if (withCompare)
        Write_Compare_File_If_Checking();
    return true;
}

void FrmTallyComp::Write_Compare_File_If_Checking()
{
    ::Write_Compare_File_If_Checking(conn(), 1, Event_Name);
}

void FrmTallyComp::CmdTally_Click()
{
    Own_Choice();
    if (!Editor_Accepts())
        return;
    try {
        if (Save_And_Tally()) {
            Set_Dirty(false);
            Write_Compare_File_If_Checking();
        }
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("Err1: ") + Button_Failure, vbExclamation, Validation_Error);
    }
}

void FrmTallyComp::Run_Report_Button(void (FrmTallyComp::*report)())
{
    Own_Choice();
    if (!Editor_Accepts())
        return;
    try {
        if (!Save_Step(false, true))
            return;
        if (report)
            (this->*report)();
    } catch (const AppError &) {
        Msg_Box(Button_Failure, vbExclamation, Validation_Error);
    }
}

// The four report buttons are in FrmTallyComp_reports.cpp.
void FrmTallyComp::CmdCheck_Click()
{
    Own_Choice();
    if (!Editor_Accepts())
        return;
    try {
        if (Save_Step(false, true))
            Run_Check(conn(), Event_Name, QStringLiteral("Comp"), window());
    } catch (const AppError &) {
        Msg_Box(Button_Failure, vbExclamation, Validation_Error);
    }
}

void FrmTallyComp::CmdPrepare_Click()
{
    Own_Choice();
    // Only asks: no auto-save here, and no compare file: the Create Results
    // File screen writes it into the folder made ready here.
    if (!Editor_Accepts())
        return;
    try {
        if (!Save_Step(true, false))
            return;
        QString compare = Data_Sub_Dir(QStringLiteral("Compare"));
        compare.chop(1);
        if (!Last_Compare_Dir.isEmpty())
            txtfile = Last_Compare_Dir;
        else if (txtfile.isEmpty())
            txtfile = compare;
        FrmCreateCompare::Open_Modal(txtfile, Event_Name, window());
    } catch (const AppError &) {
        Msg_Box(Button_Failure, vbExclamation, Validation_Error);
    }
}

bool FrmTallyComp::Query_Unload()
{
    Own_Choice();
    if (!Changed())
        return true;
    if (Msg_Box(QStringLiteral("Do you want to save your changes? "), vbYesNo + vbQuestion,
                QStringLiteral("Save Changes Confirmation"))
        != vbYes)
        return true;
    return Editor_Accepts() && Save_And_Tally();
}

// --- Keys -------------------------------------------------------------------------

bool FrmTallyComp::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && (watched == MSFlexGrid1 || watched == txtEdit)) {
        if (Grid_Move_Key(static_cast<QKeyEvent *>(event), watched == txtEdit))
            return true;
    }
    Marks().outOfRangeRefused = false;
    const bool handled = GridScreen::eventFilter(watched, event);
    // A number out of range stays in the box, selected for retyping.
    if (Marks().outOfRangeRefused && Editor_Open())
        txtEdit->selectAll();
    return handled;
}

bool FrmTallyComp::Grid_Move_Key(QKeyEvent *e, bool fromEditor)
{
    // Tab and Enter go down the column of marks (Shift+Tab up), never across
    // and never past the last dancer.
    const int key = e->key();
    const bool tab = key == Qt::Key_Tab || key == Qt::Key_Backtab;
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!tab && !enter)
        return false;
    if (!fromEditor && Current_Row() < Fixed_Rows())
        return false;
    if (fromEditor) {
        if (!Editor_Accepts())
            return true;
        MSFlexGrid1->setFocus();
    }
    // The cursor moves before this returns: a key typed after this one
    // opens the editor on the next dancer, however fast it comes.
    const bool back = key == Qt::Key_Backtab || (tab && (e->modifiers() & Qt::ShiftModifier));
    Move_Row(back ? -1 : 1);
    return true;
}

void FrmTallyComp::Move_Row(int delta)
{
    const int row = Current_Row() + delta;
    if (row >= Fixed_Rows() && row < Row_Count())
        MSFlexGrid1->setCurrentCell(row, Current_Col());
}
