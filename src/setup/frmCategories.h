#pragma once
#include "category_logic.h"
#include "ui/screen.h"

class QGroupBox;
class QLineEdit;
class QListWidget;
class QPushButton;

// The dance categories of the current competition and the ordered dances of
// each. "C" and "H" are shown but cannot be changed here.
class frmCategories : public Screen
{
    Q_OBJECT
public:
    explicit frmCategories(QWidget *parent = nullptr);
    ~frmCategories() override;

    // The support address named in the error box of the moves.
    static const QString Support_Address;

private:
    void Build_Controls();
    void Read_Categories();
    void LstSections_Click();
    void Read_Dance_Lists();
    void Enable_Lists(bool on);
    void List1_DblClick();
    void List2_DblClick();
    void cmd_up_Click();
    void cmd_down_Click();
    void CmdNew_Click();
    void CmdEdit_Click();
    void CmdCancel_Click();
    void CmdSave_Click();
    void cmdDel_Click();
    void Select_Found(const QString &name);

    QStringList m_codes;      // category codes by list position
    QString m_code;           // the chosen category
    QString m_oldCode;        // the code before an edit
    int m_mode = 0;           // 1 new, 2 edit

    QListWidget *LstSections = nullptr;
    QListWidget *List1 = nullptr;
    QListWidget *List2 = nullptr;
    QPushButton *cmd_up = nullptr;
    QPushButton *cmd_down = nullptr;
    QPushButton *CmdNew = nullptr;
    QPushButton *CmdEdit = nullptr;
    QPushButton *cmdDel = nullptr;
    QGroupBox *FrmEdit = nullptr;
    QLineEdit *TxtID = nullptr;
    QLineEdit *TxtSection = nullptr;
    QPushButton *CmdSave = nullptr;
    QPushButton *CmdCancel = nullptr;
};
