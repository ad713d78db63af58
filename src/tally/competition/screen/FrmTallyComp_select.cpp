// Taking up an event or a dance on the Competition mark screen, and the
// lists that belong to the dance shown.
#include "FrmTallyComp.h"
#include "dance_settings.h"
#include "entries_sync.h"
#include "event_queries.h"
#include "mark_rules.h"
#include "result_rows.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"
#include "tally/competition/dance_tally.h"
#include "tally/competition/overall_tally.h"
#include "tally/competition/prize_count.h"
#include "ui/application.h"
#include "ui/grid/flex_grid.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace {

const QString Unable_To_Open = QStringLiteral("Unable to open database ");

const QListWidgetItem *Selected_Item(const QListWidget *list)
{
    const QList<QListWidgetItem *> items = list->selectedItems();
    return items.isEmpty() ? nullptr : items.first();
}

int Item_Value(const QListWidget *list)
{
    const QListWidgetItem *item = list->currentItem();
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

} // namespace

void FrmTallyComp::LstGroup_Click()
{
    const QListWidgetItem *picked = Selected_Item(LstGroup);
    const int row = picked ? LstGroup->row(picked) : -1;
    if (row != m_selectedEvent)
        Load_Event(row);
}

void FrmTallyComp::Load_Event(int row)
{
    if (row < 0 || row >= Event_Codes.size())
        return;
    // What is unsaved belongs to the event shown until now.
    Own_Choice();
    Doing doing(QStringLiteral("Selecting the event ") + LstGroup->item(row)->text());
    auto stay = [this] {
        m_eventLive = false;
        LstGroup->setCurrentRow(m_selectedEvent);
        m_eventLive = true;
    };
    if (!Editor_Accepts()) {
        stay();
        return;
    }
    // Leaving an event always asks, auto-save or not.
    if (!Save_Step(true, false)) {
        stay();
        return;
    }
    m_selectedEvent = row;
    try {
        Event_Category = Event_Categories.at(row);
        Choice.group = Event_Codes.at(row);
        Own_Choice();
        Event_Name = LstGroup->item(row)->text();
        Set_Dirty(false);

        const Event_Settings s = Read_Event_Settings(conn(), Current_Competition_Id, Current_Group_Id);
        No_Prizes = s.noPrizes;
        Event_No_Prizes = s.noPrizes;
        Overall.No_Overall_Prizes = s.noOverallPrizes;
        Overall.Inc_T_Fling = s.incTFling;
        Overall.Split_Overalls = s.splitOveralls;
        Dancer_Order_Sql = s.dancerOrderSql;
        Overall.Dance_Filter = Build_Dance_Filter(conn(), Overall.Inc_T_Fling);

        Prizes_Live = false;
        No_Dancers_Live = false;
        Select_Prize_Entry(No_Prizes);
        Select_Entry(lstnodancers, 0);

        // A small event counts for no trophy.
        Flag_Small_Event(conn(), Current_Competition_Id, Current_Group_Id, Event_Category);

        Clear_Dance_Buttons();
        Fill_Dance_Buttons();
        QList<short> dances;
        for (int n = 1; n <= No_Of_Dances; ++n)
            dances << Dance_Ids[n];
        Sync_Entries(conn(), Current_Competition_Id, Current_Group_Id, dances);
        Disable_Buttons();
        Tally_Overall();
        Load_Marks();

        Prizes_Live = true;
        No_Dancers_Live = true;
        Show_Setting_Icons();
        lst_filter->setEnabled(true);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void FrmTallyComp::Fill_Dance_Buttons()
{
    const short before = Choice.dance;
    const QList<Dance_Entry> dances = Event_Dances(conn(), Current_Competition_Id, Event_Category);
    Dance_Ids.fill(0);
    m_danceButton = 0;
    for (int i = 0; i < dances.size(); ++i) {
        const int n = i + 1;
        const Dance_Entry &d = dances.at(i);
        if (n <= 10) {
            Cmd[n]->setText(d.name);
            Cmd[n]->setEnabled(true);
            Cmd[n]->show();
        }
        if (n < static_cast<int>(Dance_Ids.size()))
            Dance_Ids[n] = d.id;
        if (d.id == before && n <= 10)
            m_danceButton = n;
        // Every dance is tallied afresh, so a change made elsewhere shows at once.
        Current_Dance_Id = d.id;
        No_Prizes = Choose_No_Prizes(conn(), Event_No_Prizes).No_Prizes;
        Tally_Dance();
    }
    No_Of_Dances = qMin(static_cast<int>(dances.size()), 10);
    if (!dances.isEmpty()) {
        // The dance shown before stays when the event has it, else the first.
        if (m_danceButton == 0)
            m_danceButton = 1;
        Choice.dance = Dance_Ids[m_danceButton];
        Current_Dance_Id = Choice.dance;
        Mark_Dance_Button(m_danceButton);
        Frame5->setTitle(Cmd[m_danceButton]->text());
        Frame4->setTitle(Cmd[m_danceButton]->text() + QStringLiteral(" Result"));
        No_Prizes = Choose_No_Prizes(conn(), Event_No_Prizes).No_Prizes;
        Select_Prize_Entry(No_Prizes);
        Select_Entry(lstnodancers,
                     Has_No_Dancers_Flag(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id) ? 1 : 0);
    }
    Lay_Out_Frames();
}

void FrmTallyComp::Cmd_Click(int n)
{
    if (Dance_Ids[n] == 0)
        return;
    Own_Choice();
    if (!Editor_Accepts() || !Save_Step(false, true)) {
        // The screen stays on the dance it shows.
        Mark_Dance_Button(m_danceButton);
        return;
    }
    try {
        m_danceButton = n;
        Mark_Dance_Button(n);
        Choice.dance = Dance_Ids[n];
        Own_Choice();
        Take_No_Prizes();
        No_Dancers_Live = false;
        Select_Entry(lstnodancers,
                     Has_No_Dancers_Flag(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id) ? 1 : 0);
        No_Dancers_Live = true;
        Frame5->setTitle(Cmd[n]->text());
        Frame4->setTitle(Cmd[n]->text() + QStringLiteral(" Result"));
        Load_Marks();
        Load_Results();
        Set_Dirty(false);
        LstJudge->setEnabled(true);
    } catch (const AppError &) {
        Msg_Box(QStringLiteral("There has been an error udating this result. Please retry!"), vbExclamation,
                QStringLiteral("Validation Error"));
    }
}

void FrmTallyComp::Take_No_Prizes()
{
    const Prize_Choice choice = Choose_No_Prizes(conn(), Event_No_Prizes);
    No_Prizes = choice.No_Prizes;
    // Without a row of its own the dance takes the event's count through the
    // list, whose handler then writes that count for the dance.
    const bool live = Prizes_Live;
    if (choice.From_Dance)
        Prizes_Live = false;
    Select_Prize_Entry(No_Prizes);
    Prizes_Live = live;
}

void FrmTallyComp::Select_Prize_Entry(short noPrizes)
{
    // A count the list cannot show (above 16) selects no entry; the dance is
    // tallied with the stored count all the same.
    const int entry = noPrizes - 1;
    Select_Entry(LstNoPrizes, entry >= 0 && entry < LstNoPrizes->count() ? entry : -1);
}

void FrmTallyComp::Select_Entry(QListWidget *list, int row)
{
    list->setCurrentRow(row);
}

void FrmTallyComp::Load_Marks()
{
    if (!conn().isOpen()) {
        Msg_Box(Unable_To_Open + Data_Dir + DB_FILE);
        conn().close();
        return;
    }
    Mark_Rules &marks = Marks();
    marks.comp = Current_Competition_Id;
    marks.code = Current_Group_Id;
    marks.dance = Current_Dance_Id;
    marks.registeredOnly = Item_Value(lst_filter) == 1;
    marks.orderSql = Dancer_Order_Sql;
    Refresh_Grid();
    if (records().rowCount() == 0) {
        Disable_Buttons();
    } else {
        Enable_Buttons();
        Style_Number_Column();
        Go_To(Fixed_Rows(), 1);
    }
    if (Flag_Small_Dance(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id))
        lstnodancers->setEnabled(false);
    // The dance's judge is the name beside the list; the list waits for a new choice.
    LstJudge->setCurrentRow(-1);
    txtJudge->setText(Dance_Judge_Name(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id));
}

void FrmTallyComp::Style_Number_Column()
{
    // The numbers stand in a fixed column: shown, never the cursor's.
    for (int r = Fixed_Rows(); r < Row_Count(); ++r) {
        QTableWidgetItem *item = MSFlexGrid1->item(r, 0);
        if (!item)
            continue;
        item->setFlags(Qt::NoItemFlags);
        item->setForeground(palette().brush(QPalette::Active, QPalette::ButtonText));
        item->setBackground(palette().brush(QPalette::Active, QPalette::Button));
    }
}

void FrmTallyComp::Load_Results()
{
    if (!conn().isOpen()) {
        Msg_Box(Unable_To_Open + Data_Dir + DB_FILE);
        conn().close();
        return;
    }
    Read_Values_OR();
    if (Overall.Split_Overalls == QLatin1String("Y")) {
        Read_Values_HR();
        Read_Values_NR();
    }
    Read_Values_ODR();
}

void FrmTallyComp::Read_Values_OR()
{
    Fill_Result_Grid(GrdOR, Event_Result_Rows(conn(), Current_Competition_Id, Current_Group_Id,
                                              QStringLiteral("overall_results")));
}

void FrmTallyComp::Read_Values_HR()
{
    Fill_Result_Grid(GrdHR, Event_Result_Rows(conn(), Current_Competition_Id, Current_Group_Id,
                                              QStringLiteral("highland_results")));
}

void FrmTallyComp::Read_Values_NR()
{
    Fill_Result_Grid(GrdNR, Event_Result_Rows(conn(), Current_Competition_Id, Current_Group_Id,
                                              QStringLiteral("national_results")));
}

void FrmTallyComp::Read_Values_ODR()
{
    Fill_Result_Grid(GrdODR, Dance_Result_Rows(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id));
}

void FrmTallyComp::Tally_Dance()
{
    Recalc_Dance(conn(), No_Prizes, Prize_List_Auto(), Marked_Cells());
}

void FrmTallyComp::Tally_Overall()
{
    Recalc_Overall(conn(), Overall, [this](int value, int max) { Show_Progress(value, max); });
    // Another screen may have taken the focus during the tally's pause.
    Own_Choice();
    Load_Results();
    Hide_Progress();
}

bool FrmTallyComp::Prize_List_Auto() const
{
    const QListWidgetItem *item = Selected_Item(LstNoPrizes);
    return item && item->data(Qt::UserRole).toInt() == Auto_No_Prizes;
}

int FrmTallyComp::Marked_Cells() const
{
    int count = 0;
    for (int r = Fixed_Rows(); r < Row_Count(); ++r)
        if (!Cell(r, 1).isEmpty())
            ++count;
    return count;
}

// --- The lists of the dance ------------------------------------------------------

void FrmTallyComp::LstNoPrizes_Click()
{
    if (!Prizes_Live || !Selected_Item(LstNoPrizes))
        return;
    Own_Choice();
    Doing doing(QStringLiteral("Setting the number of prizes of ") + Frame5->title());
    try {
        No_Prizes = Set_Dance_No_Prizes(conn(), static_cast<short>(Item_Value(LstNoPrizes)), Marked_Cells());
        Set_Dirty(true);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void FrmTallyComp::lstnodancers_Click()
{
    if (!No_Dancers_Live || !lstnodancers->currentItem())
        return;
    Own_Choice();
    Doing doing(QStringLiteral("Setting whether ") + Frame5->title() + QStringLiteral(" counts for the trophies"));
    try {
        Set_No_Dancers(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id, Item_Value(lstnodancers));
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void FrmTallyComp::lst_filter_Click()
{
    const int row = lst_filter->currentRow();
    if (row < 0 || row == m_filterRow || m_selectedEvent < 0)
        return;
    Own_Choice();
    if (!Editor_Accepts() || !Save_Step(false, true)) {
        lst_filter->blockSignals(true);
        lst_filter->setCurrentRow(m_filterRow);
        lst_filter->blockSignals(false);
        return;
    }
    m_filterRow = row;
    Doing doing(QStringLiteral("Showing the marks of ") + Event_Name + QStringLiteral(", ") + Frame5->title());
    try {
        Load_Marks();
        Load_Results();
        Set_Dirty(false);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}

void FrmTallyComp::LstJudge_Click()
{
    const QListWidgetItem *item = Selected_Item(LstJudge);
    if (!item || m_selectedEvent < 0)
        return;
    Own_Choice();
    Doing doing(QStringLiteral("Setting the judge of ") + Frame5->title());
    try {
        const int judge = item->data(Qt::UserRole).toInt();
        txtJudge->setText(Judge_Name(conn(), judge));
        Set_Dance_Judge(conn(), Current_Competition_Id, Current_Group_Id, Current_Dance_Id, Current_Result_No, judge);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    }
}
