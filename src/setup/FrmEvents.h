#pragma once
#include "ui/grid/grid_screen.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;

// The competitions screen: all competitions in a grid, and a panel that makes
// a new competition from the one under the cursor.
class FrmEvents : public GridScreen
{
    Q_OBJECT
public:
    explicit FrmEvents(QWidget *parent = nullptr);

    QPushButton *CmdCopy = nullptr;
    QGroupBox *FrmCopy1 = nullptr;
    QGroupBox *FrmCopy2 = nullptr;
    QLabel *lblCopyTxt1 = nullptr;
    QLabel *lblCopyTxt2 = nullptr;
    QLabel *lblCopyTxt3 = nullptr;
    QLabel *lblCompName = nullptr;
    QLineEdit *TxtCompname = nullptr;
    QLabel *lblCompDate = nullptr;
    QLineEdit *TxtCompDate = nullptr;
    QLabel *LblCopyComp = nullptr;
    QListWidget *LstCopyComp = nullptr;
    QPushButton *cmdcreate = nullptr;
    QPushButton *CmdCancel = nullptr;

    void CmdCopy_Click();
    void cmdcreate_Click();
    void CmdCancel_Click();

protected:
    // The editor's text becomes a single space before the cascade.
    void Before_Cascade() override;
    // Only "Name" and "Date" come back, and only after the grid was cleared.
    void Delete_Captions(bool yes, bool cleared) override;

private:
    void Build_Copy_Panel();
    void Show_Copy_Panel(bool on);

    QString m_copySource;   // the id in column 0 of the competition chosen to copy
};
