#pragma once
#include "ui/grid/grid_screen.h"
#include "tally/competition/overall_settings.h"
#include "tally/screen_choice.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

class FlexGrid;
class QGroupBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class Mark_Rules;
class ScreenScaler;

// The mark screen of Competition events: the operator picks an event and a
// dance, types the judge's marks into the grid, and each save re-tallies the
// dance and the event's overall results shown beside it.
class FrmTallyComp : public GridScreen
{
    Q_OBJECT
public:
    explicit FrmTallyComp(QWidget *parent = nullptr);
    ~FrmTallyComp() override;

    // --- Controls ---------------------------------------------------------------
    QListWidget *LstGroup = nullptr;
    std::array<QPushButton *, 11> Cmd{};        // Cmd[1] .. Cmd[10]
    QGroupBox *Frame1 = nullptr;                // the dance buttons
    QGroupBox *Frame5 = nullptr;                // the mark grid, captioned with the dance
    QGroupBox *Frame4 = nullptr;                // the dance's result
    QListWidget *LstJudge = nullptr;
    QLabel *txtJudge = nullptr;
    QListWidget *LstNoPrizes = nullptr;
    QListWidget *LstNoPrizes_auto = nullptr;
    QListWidget *lstnodancers = nullptr;
    QListWidget *lst_filter = nullptr;
    QPushButton *CmdTally = nullptr;
    FlexGrid *GrdODR = nullptr;
    FlexGrid *GrdOR = nullptr;
    FlexGrid *GrdHR = nullptr;
    FlexGrid *GrdNR = nullptr;
    QGroupBox *Framerpt = nullptr;
    QGroupBox *Framechk = nullptr;
    QPushButton *CmdRpt = nullptr;
    QPushButton *CmdPRRpt = nullptr;
    QPushButton *cmdCallback = nullptr;
    QPushButton *cmdPRCallback = nullptr;
    QPushButton *CmdPrepare = nullptr;
    QPushButton *CmdCheck = nullptr;
    QLabel *img_save_on = nullptr;
    QLabel *img_save_off = nullptr;
    QLabel *lbl_save = nullptr;
    QLabel *img_write_on = nullptr;
    QLabel *img_write_off = nullptr;
    QLabel *lbl_write = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
    QLabel *Label_progress = nullptr;

    // --- State --------------------------------------------------------------------
    bool Changed() const { return Dirty(); }
    bool Prizes_Live = false;
    bool No_Dancers_Live = false;
    short No_Prizes = 0;
    short Event_No_Prizes = 0;
    Overall_Settings Overall;                   // No_Overall_Prizes, Split_Overalls, Inc_T_Fling, Dance_Filter
    QString Dancer_Order_Sql = QStringLiteral("ASC");
    QString Event_Category;
    QString Event_Name;
    QStringList Event_Codes;
    QStringList Event_Categories;
    std::array<short, 13> Dance_Ids{};          // by button; 1 to 12
    int No_Of_Dances = 0;
    QString txtfile;                            // the folder the Create Results File screen writes to
    // The competition, event and dance of this screen, whatever another screen chose.
    Screen_Choice Choice;

    // --- Routines -------------------------------------------------------------------
    void Enable_Buttons();
    void Disable_Buttons();
    void Load_Marks();
    void Load_Results();
    void Read_Values_ODR();
    void Read_Values_OR();
    void Read_Values_HR();
    void Read_Values_NR();
    void Clear_Dance_Buttons();
    void Fill_Dance_Buttons();
    bool Save_And_Tally();

    // --- Handlers -----------------------------------------------------------------
    void LstGroup_Click();
    void Cmd_Click(int n);
    void CmdTally_Click();
    void LstNoPrizes_Click();
    void lstnodancers_Click();
    void lst_filter_Click();
    void LstJudge_Click();
    void CmdRpt_Click();
    void CmdPRRpt_Click();
    void cmdCallback_Click();
    void cmdPRCallback_Click();
    void CmdPrepare_Click();
    void CmdCheck_Click();

protected:
    bool Query_Unload() override;
    void Add_Row() override {}
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void Build_Controls();
    void Build_Lists();
    void Build_Results();
    void Build_Buttons();
    void Connect_Handlers();
    void Load_Form();
    void Lay_Out_Frames();

    Mark_Rules &Marks();
    // Sets the globals the results logic reads from this screen's own choice.
    void Own_Choice() { Choice.Assert(); }
    void Load_Event(int row);
    bool Editor_Accepts();
    // The save that precedes a change of event, dance, filter, report or
    // check: at once with auto-save on (unless askAlways), else after the
    // question; with check mode on a good save writes the compare file
    // (withCompare). False when a save was made and failed.
    bool Save_Step(bool askAlways, bool withCompare);
    void Write_Compare_File_If_Checking();
    void Run_Report_Button(void (FrmTallyComp::*report)());
    // The result sheets of the event (FrmTallyComp_reports.cpp).
    void Show_Event_Report();
    void Print_Event_Report();
    void Show_Callback_Report();
    void Print_Callback_Report();
    void Take_No_Prizes();
    void Select_Prize_Entry(short noPrizes);
    void Select_Entry(QListWidget *list, int row);
    void Mark_Dance_Button(int n);
    void Show_Setting_Icons();
    void Show_Progress(int value, int max);
    void Hide_Progress();
    void Tally_Dance();
    void Tally_Overall();
    bool Prize_List_Auto() const;
    int Marked_Cells() const;
    void Fill_Result_Grid(FlexGrid *grid, const QList<QStringList> &rows);
    void Set_Width(FlexGrid *grid, int col, int twips);
    void Set_Result_Widths(FlexGrid *grid);
    void Set_Mark_Widths();
    bool Grid_Move_Key(QKeyEvent *e, bool fromEditor);
    void Move_Row(int delta);
    void Style_Number_Column();

    ScreenScaler *m_scaler = nullptr;
    int m_selectedEvent = -1;
    int m_danceButton = 0;
    int m_filterRow = 0;
    bool m_eventLive = true;
};
