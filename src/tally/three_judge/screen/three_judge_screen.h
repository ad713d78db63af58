#pragma once
#include "three_judge_kind.h"
#include "three_judge_sheet.h"
#include "tally/three_judge/sheets/three_judge_sheets.h"
#include "tally/screen_choice.h"
#include "ui/grid/grid_screen.h"

#include <array>

class FlexGrid;
namespace ThreeJudge {
class Mark_Rules;
}
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

// The mark screen of Premiership and Championship events: the event list,
// four dance buttons, the three judges of the dance, the mark grid edited in
// place, and the dance and overall results. One class serves both kinds; what
// differs is the Three_Judge_Kind it is made with.
class ThreeJudgeScreen : public GridScreen
{
    Q_OBJECT
public:
    explicit ThreeJudgeScreen(const Three_Judge_Kind &kind, QWidget *parent = nullptr);
    ~ThreeJudgeScreen() override;

    const Three_Judge_Kind &Kind() const { return m_kind; }

    // --- Controls, by their names --------------------------------------------
    QListWidget *LstGroup = nullptr;
    std::array<QPushButton *, 4> Dance_Buttons{};
    std::array<QPushButton *, 4> cmd_edit{};
    std::array<QListWidget *, 3> LstJudge{};
    QGroupBox *Frame5 = nullptr;
    QGroupBox *Frame4 = nullptr;
    QLabel *lblEvent = nullptr;
    QGroupBox *frm_no = nullptr;
    QLineEdit *txt_enter_no = nullptr;
    QListWidget *lst_filter = nullptr;
    QListWidget *lstnodancers = nullptr;
    FlexGrid *GrdHR = nullptr;
    FlexGrid *GrdODR = nullptr;
    QPushButton *Cmd_Tally = nullptr;
    QPushButton *CmdRand = nullptr;
    QPushButton *CmdPrepare = nullptr;
    QPushButton *CmdCheck = nullptr;
    QPlainTextEdit *txt_checker1 = nullptr;
    QPlainTextEdit *txt_checker2 = nullptr;
    QPushButton *CmdHR = nullptr, *CmdPRHR = nullptr;
    QPushButton *CmdJR = nullptr, *CmdPRJR = nullptr;
    QPushButton *cmdCallback = nullptr, *cmdPRCallback = nullptr;
    QPushButton *Cmd_Top_10 = nullptr, *Cmd_Top_10_Print = nullptr;
    QPushButton *CmdSOBHD = nullptr, *cmdprSOBHD = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
    QLabel *Label_progress = nullptr;
    QGroupBox *frm_edit_dances = nullptr;
    std::array<QLineEdit *, 4> edit_dance{};
    QPushButton *cmd_edit_save = nullptr;
    QPushButton *edit_cmd_cancel = nullptr;
    QPushButton *cmd_edit_default = nullptr;
    QPushButton *cmd_edit_default2 = nullptr;

    // --- State ---------------------------------------------------------------------
    // A cell was opened for edit since the last save: the editor's dirty flag.
    bool Unsaved_Marks() const { return Dirty(); }
    short No_Overall_Prizes = 0;
    std::array<short, 13> Event_Dance_Ids{};   // 1 to 12 in use
    std::array<QString, 4> Dance_Names;
    // The competition, event and dance of this screen, whatever another screen chose.
    Screen_Choice Choice;

    // --- Actions -------------------------------------------------------------------
    void LstGroup_Click();
    void Dance_Button_Click(int n);            // n 1 to 4
    void Judge_List_Click(int n);              // n 1 to 3
    void lstnodancers_Click();
    void lst_filter_Click();
    void Cmd_Tally_Click();
    void CmdRand_Click();
    void Report_Button_Click(QPushButton *button);
    // Fills the button's sheet for the selected event and shows or prints it.
    void Show_Sheet(QPushButton *button);
    ThreeJudge::Sheet_Event Sheet_Event() const;
    void CmdPrepare_Click();
    void CmdCheck_Click();
    void Show_Dance_Name_Editor();
    void Save_Dance_Names();
    void Reset_Dance_Names();

    // Asks or saves as the operator's settings say; false when a save failed.
    // With check mode on a good save writes the compare file (withCompare).
    bool Check_Unsaved(bool withCompare = true);
    bool Save_And_Tally();
    void Toggle_Quick_Find();
    // The outcome of a failed check, this computer's and the remote one's.
    void Show_Checker(const QString &text1, const QString &text2);
    void Add_Row() override {}

protected:
    bool Query_Unload() override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    // Layout.
    QWidget *Build_Left();
    QWidget *Build_Middle();
    QWidget *Build_Right();
    void Build_Floating();
    void Connect_Controls();
    void Place_Floating();

    // The event and its dances.
    void Select_Event(int row);
    void Load_Events();
    void Load_Judge_Lists();
    void Load_Event_Dances();
    void Load_Dance_Names();
    std::array<short, 4> Event_Dances() const;
    short Dance_Id_Of(int n) const;
    void Show_Current_Dance();
    void Set_Dance_Caption(int n, const QString &name);

    // The marks.
    void Refresh_Dance();
    void Load_Marks();
    void Read_Marks();
    bool Read_Values_From_Grid();
    void Load_Dance_Judges();
    void Load_Result_Grids();
    void Load_No_Dancers();
    void Tally_Overall_Shown();
    void Enable_Buttons();
    void Disable_Buttons();
    QList<QWidget *> Event_Controls() const;
    void Clear_Mark_Grid();
    void Clear_Judge_Lists();
    void Set_Grid_Widths();

    // Keys of this screen beside the shared editor's.
    bool Grid_Key_Here(QKeyEvent *e);
    bool Editor_Key_Here(QKeyEvent *e);
    void Move_Down(bool wrap);
    void Move_Up();
    void Show_Quick_Find();
    void Hide_Quick_Find();
    void Quick_Find_Enter();

    bool Ask_And_Save();
    // The compare file of the event when check mode is on.
    void Write_Compare_After_Save();
    int Filter_Value() const;
    ThreeJudge::Mark_Rules &Marks();
    // Sets the globals the results logic reads from this screen's own choice.
    void Own_Choice() { Choice.Assert(); }

    const Three_Judge_Kind &m_kind;
    QList<ThreeJudge::Event_Entry> m_events;
    QString m_eventName;
    bool m_noDancersLive = true;
    bool m_loadingEvent = false;
    int m_eventRow = -1;   // the list row of the event shown
};
