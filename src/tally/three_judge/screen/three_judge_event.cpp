// The Premiership and Championship mark screen: choosing an event and a
// dance, and the dance names.
#include "three_judge_screen.h"
#include "mark_rules.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"
#include "tally/three_judge/three_judge_tally.h"
#include "ui/application.h"
#include "ui/grid/flex_grid.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace ThreeJudge;

namespace {

const QString Bold = QStringLiteral("font-weight: bold");

} // namespace

short ThreeJudgeScreen::Dance_Id_Of(int n) const
{
    return m_kind.danceIdsFromCategory ? Event_Dance_Ids[n] : static_cast<short>(n);
}

std::array<short, 4> ThreeJudgeScreen::Event_Dances() const
{
    return {Dance_Id_Of(1), Dance_Id_Of(2), Dance_Id_Of(3), Dance_Id_Of(4)};
}

void ThreeJudgeScreen::LstGroup_Click()
{
    const QList<QListWidgetItem *> selected = LstGroup->selectedItems();
    const int row = selected.isEmpty() ? -1 : LstGroup->row(selected.first());
    if (row < 0 || row >= m_events.size() || m_loadingEvent)
        return;
    m_loadingEvent = true;
    // What is unsaved belongs to the event shown until now.
    Own_Choice();
    // Changing the event asks whatever the auto-save setting says; a failed
    // save keeps the event shown, in the list too.
    if (Unsaved_Marks() && !Ask_And_Save()) {
        LstGroup->setCurrentRow(m_eventRow);
        m_loadingEvent = false;
        return;
    }
    Doing doing(QStringLiteral("Selecting the event ") + LstGroup->item(row)->text());
    try {
        m_eventRow = row;
        Select_Event(row);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
    m_loadingEvent = false;
}

void ThreeJudgeScreen::Select_Event(int row)
{
    const short comp = Choice.competition;
    Choice.group = m_events.at(row).code;
    Own_Choice();
    const QString group = Choice.group;
    Disable_Buttons();
    // The grid is cleared: no marks of the last event are left to save.
    Set_Dirty(false);
    // Until the event's marks are read, the grid reads nothing of the last one.
    Marks().select = Empty_Marks_Select();
    const short before = Choice.dance;

    if (m_kind.danceIdsFromCategory) {
        if (Premiership_Dance_Count(conn(), comp, group) != 4) {
            Msg_Box(Premiership_Dances_Message);
            return;
        }
        Load_Event_Dances();
    }
    Current_Dance_Id = 1;
    Sync_Entries(conn(), comp, group, Event_Dances());
    No_Overall_Prizes = Read_No_Overall_Prizes(conn(), comp, group);
    if (m_kind.namesFromTable)
        Load_Dance_Names();
    // Dance ids 1 to 4 by number, on both screens.
    Tally_Event_Dances(conn());
    Flag_Small_Event(conn(), comp, group);
    Tally_Overall_Shown();

    Current_Dance_Id = before;
    if (m_kind.danceIdsFromCategory && before == No_Dance_Yet)
        Current_Dance_Id = Event_Dance_Ids[1];
    Choice.dance = Current_Dance_Id;
    m_eventName = LstGroup->item(row)->text();
    lblEvent->setText(m_eventName);
    Show_Current_Dance();
    Refresh_Dance();
    Clear_Judge_Lists();
    lst_filter->setEnabled(true);
    Set_Dirty(false);
}

void ThreeJudgeScreen::Load_Event_Dances()
{
    const QList<Event_Dance> dances = ThreeJudge::Load_Event_Dances(conn(), Current_Competition_Id, Current_Group_Id);
    for (int i = 0; i < dances.size(); ++i) {
        const int n = i + 1;
        if (n > 12)
            throw AppError(QStringLiteral("Subscript out of range"));
        Event_Dance_Ids[n] = dances.at(i).id;
        Current_Dance_Id = dances.at(i).id;
        if (n <= 4) {
            Dance_Buttons[i]->setText(dances.at(i).name);
            Dance_Buttons[i]->setVisible(true);
            Dance_Buttons[i]->setEnabled(true);
        }
    }
}

void ThreeJudgeScreen::Load_Dance_Names()
{
    Dance_Names = ThreeJudge::Load_Dance_Names(conn(), Current_Competition_Id, Current_Group_Id);
    for (int n = 1; n <= 4; ++n)
        Set_Dance_Caption(n, Dance_Names[n - 1]);
}

void ThreeJudgeScreen::Set_Dance_Caption(int n, const QString &name)
{
    Dance_Buttons[n - 1]->setText(name);
    Dance_Buttons[n - 1]->setToolTip(QStringLiteral("Display ") + name);
}

void ThreeJudgeScreen::Show_Current_Dance()
{
    for (int n = 1; n <= 4; ++n) {
        const bool current = Dance_Id_Of(n) == Current_Dance_Id;
        Dance_Buttons[n - 1]->setStyleSheet(current ? Bold : QString());
        if (current) {
            Frame5->setTitle(QStringLiteral("Judges Results - ") + Dance_Buttons[n - 1]->text());
            Frame4->setTitle(Dance_Buttons[n - 1]->text() + QStringLiteral(" Result"));
        }
    }
}

void ThreeJudgeScreen::Dance_Button_Click(int n)
{
    Own_Choice();
    if (!Check_Unsaved())
        return;
    Doing doing(QStringLiteral("Showing the dance ") + Dance_Buttons[n - 1]->text() + QStringLiteral(" of ") + m_eventName);
    try {
        Choice.dance = Dance_Id_Of(n);
        Own_Choice();
        Show_Current_Dance();
        Refresh_Dance();
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
    Set_Dirty(false);
    Clear_Judge_Lists();
}

void ThreeJudgeScreen::Show_Dance_Name_Editor()
{
    Hide_Quick_Find();
    for (int i = 0; i < 4; ++i)
        edit_dance[i]->setText(Dance_Buttons[i]->text());
    Place_Floating();
    frm_edit_dances->show();
    frm_edit_dances->raise();
    edit_dance[0]->setFocus();
}

void ThreeJudgeScreen::Save_Dance_Names()
{
    Own_Choice();
    // Dance by dance; a name that cannot be stored stops here with its box,
    // the names before it saved and the editor still open.
    for (int n = 1; n <= 4; ++n) {
        const QString name = edit_dance[n - 1]->text();
        try {
            Doing doing(QStringLiteral("Saving the name of dance %1 (%2)").arg(n).arg(name));
            Save_Dance_Name(conn(), Current_Competition_Id, Current_Group_Id, n, name);
        } catch (const AppError &e) {
            Show_Unhandled_Fault(e.message());
            return;
        }
        if (name != Default_Dance_Names()[n - 1]) {
            Set_Dance_Caption(n, name);
            Dance_Names[n - 1] = name;
        }
    }
    Show_Current_Dance();
    frm_edit_dances->hide();
}

void ThreeJudgeScreen::Reset_Dance_Names()
{
    Own_Choice();
    Dance_Names = Default_Dance_Names();
    for (int n = 1; n <= 4; ++n)
        Set_Dance_Caption(n, Dance_Names[n - 1]);
    Doing doing(QStringLiteral("Setting the dance names of ") + m_eventName + QStringLiteral(" back to the usual ones"));
    try {
        ThreeJudge::Reset_Dance_Names(conn(), Current_Competition_Id, Current_Group_Id);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
        return;
    }
    Show_Current_Dance();
    frm_edit_dances->hide();
}
