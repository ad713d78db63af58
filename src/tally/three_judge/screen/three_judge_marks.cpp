// The Premiership and Championship mark screen: the marks of a dance, their
// judges, the save and tally, and the result grids.
#include "three_judge_screen.h"
#include "mark_rules.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"
#include "core/routines.h"
#include "tally/three_judge/three_judge_tally.h"
#include "core/doing.h"
#include "ui/application.h"
#include "ui/geometry_store.h"
#include "ui/grid/flex_grid.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

using namespace ThreeJudge;

namespace {

const QListWidgetItem *Selected(const QListWidget *list)
{
    const QList<QListWidgetItem *> items = list->selectedItems();
    return items.isEmpty() ? nullptr : items.first();
}

const QString Validation_Title = QStringLiteral("Validation Error");

// A column kept at least as wide as its caption, so that the caption reads
// whole in the screen's font.
void Fit_Caption(FlexGrid *grid, int col)
{
    if (grid->isColumnHidden(col))
        return;
    QFont bold = grid->font();
    bold.setBold(true);
    const int needed = QFontMetrics(bold).horizontalAdvance(grid->Text(0, col)) + 14;
    if (grid->columnWidth(col) < needed)
        grid->setColumnWidth(col, needed);
}

void Fill_Result_Grid(FlexGrid *grid, const QStringList &headers, const QList<int> &widths,
                      const QList<QStringList> &rows)
{
    grid->clearContents();
    grid->Set_Size(static_cast<int>(rows.size()) + 1, static_cast<int>(headers.size()));
    for (int c = 0; c < headers.size(); ++c) {
        grid->Set_Text(0, c, headers.at(c));
        grid->Set_Col_Width(c, widths.at(c));
        Fit_Caption(grid, c);
    }
    for (int r = 0; r < rows.size(); ++r)
        for (int c = 0; c < headers.size() && c < rows.at(r).size(); ++c)
            grid->Set_Text(r + 1, c, rows.at(r).at(c));
}

} // namespace

ThreeJudge::Mark_Rules &ThreeJudgeScreen::Marks()
{
    return static_cast<Mark_Rules &>(rules());
}

int ThreeJudgeScreen::Filter_Value() const
{
    const QListWidgetItem *it = Selected(lst_filter);
    return it ? it->data(Qt::UserRole).toInt() : 0;
}

void ThreeJudgeScreen::Refresh_Dance()
{
    Show_Checker(QString(), QString());
    Load_Marks();
    Load_Result_Grids();
    Load_No_Dancers();
    Hide_Quick_Find();
}

void ThreeJudgeScreen::Load_Marks()
{
    if (!conn().isOpen()) {
        Msg_Box(QStringLiteral("Unable to open database ") + Data_Dir + DB_FILE);
        conn().close();
        return;
    }
    const short comp = Current_Competition_Id;
    const QString group = Current_Group_Id;
    const short dance = Current_Dance_Id;
    Marks().select = Marks_Select(comp, group, dance, Filter_Value() == 1);
    Read_Marks();
    if (Flag_Small_Dance(conn(), comp, group, dance))
        lstnodancers->setEnabled(false);
    Load_Dance_Judges();
}

void ThreeJudgeScreen::Read_Marks()
{
    // Open_Marks and Read_Values.
    Refresh_Grid();
    if (records().rowCount() == 0) {
        Disable_Buttons();
        return;
    }
    Enable_Buttons();
    Set_Grid_Widths();
}

void ThreeJudgeScreen::Set_Grid_Widths()
{
    const int judges = qMax(600, (Pixels_To_Twips(MSFlexGrid1->viewport()->width()) - 1000) / 3);
    MSFlexGrid1->Set_Col_Width(0, 500);
    Fit_Caption(MSFlexGrid1, 0);
    for (int c = 1; c < First_Judge_Column; ++c)
        MSFlexGrid1->Set_Col_Width(c, 0);
    for (int c = First_Judge_Column; c <= Last_Judge_Column; ++c)
        MSFlexGrid1->Set_Col_Width(c, judges);
}

void ThreeJudgeScreen::resizeEvent(QResizeEvent *event)
{
    GridScreen::resizeEvent(event);
    if (MSFlexGrid1->columnCount() > Last_Judge_Column)
        Set_Grid_Widths();
    Place_Floating();
}

void ThreeJudgeScreen::Clear_Mark_Grid()
{
    MSFlexGrid1->clearContents();
    MSFlexGrid1->Set_Size(Fixed_Rows(), rules().Column_Count());
    MSFlexGrid1->Set_Fixed_Rows(Fixed_Rows());
    Set_Headers(false);
}

void ThreeJudgeScreen::Load_Dance_Judges()
{
    const auto names = ThreeJudge::Load_Dance_Judges(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id);
    for (int n = 1; n <= 3; ++n)
        if (names[n - 1])
            Set_Cell(0, First_Judge_Column - 1 + n, *names[n - 1]);
}

void ThreeJudgeScreen::Load_Result_Grids()
{
    if (!conn().isOpen()) {
        Msg_Box(QStringLiteral("Unable to open database ") + Data_Dir + DB_FILE);
        conn().close();
        return;
    }
    Fill_Result_Grid(GrdHR, {QStringLiteral("Place"), QStringLiteral("Num"), QStringLiteral("Pts"), QStringLiteral("Name")},
                     {600, 500, 500, 2500}, Overall_Result_Rows(conn(), Current_Competition_Id, Current_Group_Id));
    Fill_Result_Grid(GrdODR, {QStringLiteral("Place"), QStringLiteral("Num"), QStringLiteral("Name")}, {600, 500, 2500},
                     Dance_Result_Rows(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id));
}

void ThreeJudgeScreen::Load_No_Dancers()
{
    m_noDancersLive = false;
    const bool flagged = Dance_Flagged_No_Dancers(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id);
    lstnodancers->setCurrentRow(flagged ? 1 : 0);
    m_noDancersLive = true;
}

void ThreeJudgeScreen::Tally_Overall_Shown()
{
    Tally_Overall(conn(), [this](int value, int max) {
        Label_progress->show();
        ProgressBar1->show();
        ProgressBar1->setRange(0, max);
        ProgressBar1->setValue(value);
    });
    // Another screen may have taken the focus during the tally's pause.
    Own_Choice();
    Load_Result_Grids();
    ProgressBar1->setValue(ProgressBar1->maximum());
    ProgressBar1->hide();
    Label_progress->hide();
}

void ThreeJudgeScreen::Clear_Judge_Lists()
{
    // The lists never show who is chosen; the grid's captions do.
    for (QListWidget *list : LstJudge) {
        const QSignalBlocker quiet(list);
        list->setCurrentRow(-1);
        list->clearSelection();
    }
}

void ThreeJudgeScreen::Judge_List_Click(int n)
{
    const QListWidgetItem *it = Selected(LstJudge[n - 1]);
    if (!it)
        return;
    Own_Choice();
    const int judge = it->data(Qt::UserRole).toInt();
    Doing doing(QStringLiteral("Setting judge %1 of ").arg(n) + m_eventName);
    try {
        Set_Cell(0, First_Judge_Column - 1 + n, Judge_Name(conn(), judge));
        // Saved at once; not an unsaved change.
        Set_Dance_Judge(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id, n, judge);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void ThreeJudgeScreen::lstnodancers_Click()
{
    const QListWidgetItem *it = Selected(lstnodancers);
    if (!m_noDancersLive || !it)
        return;
    Own_Choice();
    Doing doing(QStringLiteral("Setting whether this dance of ") + m_eventName + QStringLiteral(" counts for the trophies"));
    try {
        Set_Include_In_Trophies(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id,
                                it->data(Qt::UserRole).toInt());
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void ThreeJudgeScreen::lst_filter_Click()
{
    Own_Choice();
    if (!lst_filter->isEnabled() || !Check_Unsaved())
        return;
    Doing doing(QStringLiteral("Showing the marks of ") + m_eventName);
    try {
        Refresh_Dance();
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
    Set_Dirty(false);
}

// --- Saving ---------------------------------------------------------------------------

bool ThreeJudgeScreen::Check_Unsaved(bool withCompare)
{
    if (!Unsaved_Marks())
        return true;
    if (!Opt_Auto_Save
        && Msg_Box(QStringLiteral("Do you want to save your changes? "), vbYesNo + vbQuestion,
                   QStringLiteral("Save Changes Confirmation"))
               != vbYes)
        return true;
    if (!Save_And_Tally())
        return false;
    if (withCompare)
        Write_Compare_After_Save();
    return true;
}

bool ThreeJudgeScreen::Ask_And_Save()
{
    if (Msg_Box(QStringLiteral("Do you want to save your changes? "), vbYesNo + vbQuestion,
                QStringLiteral("Save Changes Confirmation"))
        != vbYes)
        return true;
    return Save_And_Tally();
}

bool ThreeJudgeScreen::Save_And_Tally()
{
    Own_Choice();
    Hide_Quick_Find();
    Commit_Edit();
    try {
        if (!Read_Values_From_Grid())
            return false;
        Tally_Dance(conn());
        Tally_Overall_Shown();
        return true;
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There was an error when tallying! Please try again (exit if required)"), vbExclamation,
                Validation_Title);
        return false;
    }
}

bool ThreeJudgeScreen::Read_Values_From_Grid()
{
    const Grid_Save_Result result = Run_Grid_Save(rules(), conn(), records(), Snapshot(), 0);
    if (result.failed || result.refusal) {
        Msg_Box(Mark_Update_Message, vbExclamation, Validation_Title);
        return false;
    }
    return true;
}

void ThreeJudgeScreen::Cmd_Tally_Click()
{
    // The compare file follows whether the save succeeded or not; after a
    // failure every typed mark stays on screen, still unsaved.
    Own_Choice();
    if (Save_And_Tally())
        Set_Dirty(false);
    Write_Compare_After_Save();
}

bool ThreeJudgeScreen::Query_Unload()
{
    if (!Unsaved_Marks())
        return true;
    Own_Choice();
    return Ask_And_Save();
}

// --- Other buttons ----------------------------------------------------------------------

void ThreeJudgeScreen::CmdRand_Click()
{
    Own_Choice();
    Doing doing(QStringLiteral("Making a random draw for ") + m_eventName);
    try {
        const int rows = MSFlexGrid1->rowCount();
        const QList<int> numbers = Random_Sample(4 * rows, 1, 1000, true);
        Msg_Box(QString::number(rows));
        QStringList dancers;
        for (int r = Fixed_Rows(); r < rows; ++r)
            dancers << Cell(r, 0);
        Write_Random_Draw(conn(), Current_Competition_Id, Current_Group_Id, dancers, numbers);
        Read_Marks();
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void ThreeJudgeScreen::Report_Button_Click(QPushButton *button)
{
    if (button != CmdSOBHD && button != Cmd_Top_10 && button != Cmd_Top_10_Print)
        Hide_Quick_Find();
    Own_Choice();
    if (!Check_Unsaved())
        return;
    Set_Dirty(false);
    Show_Sheet(button);
}

// Create File and Check Results are in three_judge_check.cpp.
