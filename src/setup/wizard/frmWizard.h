#pragma once
#include "ui/screen.h"

#include <QStringList>

class QFrame;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
struct Wizard_Event;

// Walks a new organiser through a competition and its events in one pass,
// writing at each step, and leaves the competition current.
class frmWizard : public Screen
{
    Q_OBJECT
public:
    explicit frmWizard(QWidget *parent = nullptr);
    ~frmWizard() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Build_Competition_Panel();
    void Build_Events_Panel();
    void Build_Dances_Panel();
    void Show_Panel(QFrame *panel, const QString &main, const QString &info, QWidget *focus);
    bool Box_Valid(QLineEdit *box);
    bool Required(QLineEdit *box, const QString &message);
    void Fill_LstDances();
    void LstDances_Click();
    void CmdCompetitionNext_Click();
    void CmdGroupNext_Click();
    void Make_Event_From_List();
    void Make_Event_With_New_Category();
    bool More_Groups();
    void Next_Group();
    void List1_DblClick();
    void List2_DblClick();
    void Cancel_Click();
    QString Take_Group_Code();
    void Note_Made(const Wizard_Event &e, const QString &dances);

    QStringList m_codes;     // category codes by position in lstDances
    int m_eventNo = 0;       // the code of the next event left blank
    int m_orderNo = 0;       // orderby of the next event
    QString m_newCode;       // the category made for an "Other" event
    QStringList m_made;      // the events made, as lblMade shows them
    bool m_checking = false; // a leaving check is due
    int m_moves = 0;         // Next and Cancel presses so far

    QLabel *LblMain = nullptr;
    QLabel *LblInfo = nullptr;
    QFrame *FrmCompetition = nullptr;
    QLineEdit *txtCompetitionName = nullptr;
    QLineEdit *txtCompetitionDate = nullptr;
    QLineEdit *txtcompetitionorganiser = nullptr;
    QLineEdit *txtorganiserrole = nullptr;
    QLineEdit *txtvenue = nullptr;
    QLineEdit *txttown = nullptr;
    QLineEdit *txtaddress = nullptr;
    QPushButton *CmdCompetitionNext = nullptr;
    QPushButton *CmdCompetitionCancel = nullptr;
    QFrame *FrmEvents = nullptr;
    QLabel *lblMade = nullptr;
    QLineEdit *txtGroupName = nullptr;
    QLineEdit *txtGroupCode = nullptr;
    QListWidget *lstDances = nullptr;
    QListWidget *lstSplitAge = nullptr;
    QLineEdit *txtchampionshiptitle = nullptr;
    QListWidget *lstopen = nullptr;
    QPushButton *CmdGroupNext = nullptr;
    QPushButton *CmdGroupCancel = nullptr;
    QFrame *FrmDances = nullptr;
    QLabel *lblDanceNote = nullptr;
    QListWidget *List1 = nullptr;
    QListWidget *List2 = nullptr;
    QPushButton *cmdDancesNext = nullptr;
    QPushButton *cmdDancesCancel = nullptr;
};
