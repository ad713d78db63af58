#pragma once
#include "ui/screen.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QProgressBar;
class QPushButton;

// Reads an export file into the database, as a new competition or in place
// of the one with the same name and date.
class FrmRestore : public Screen
{
    Q_OBJECT
public:
    explicit FrmRestore(QWidget *parent = nullptr);

    QLineEdit *txtfile;
    QPushButton *CmdBrowse;
    QListWidget *lstFiles;
    QPushButton *CmdRestore;
    QProgressBar *ProgressBar1;
    QLabel *Label_progress;

    void List_Export_Files();
    void lstFiles_Click(QListWidgetItem *item);
    void CmdBrowse_Click();
    void CmdRestore_Click();

private:
    QString m_chosen;
};
