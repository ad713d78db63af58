#pragma once
#include "ui/screen.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QProgressBar;
class QPushButton;

// Writes the chosen competition to an export file.
class FrmBackup : public Screen
{
    Q_OBJECT
public:
    explicit FrmBackup(QWidget *parent = nullptr);

    QListWidget *LstComp;
    QLineEdit *txt_filename;
    QLineEdit *txtfile;
    QPushButton *CmdBrowse;
    QPushButton *CmdBackup;
    QProgressBar *ProgressBar1;
    QLabel *Label_progress;

    void Fill_Competition_List();
    void LstComp_Click(QListWidgetItem *item);
    void CmdBrowse_Click();
    void CmdBackup_Click();
};
