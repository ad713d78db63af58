#pragma once
#include "csv_import.h"
#include "ui/screen.h"

class Field_List;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QProgressBar;
class QPushButton;

// Loads competitors from a delimited text file into a chosen competition.
class FrmImport : public Screen
{
    Q_OBJECT
public:
    explicit FrmImport(QWidget *parent = nullptr);

    QListWidget *LstComp;
    QLineEdit *txtfile;
    QPushButton *CmdBrowse;
    QComboBox *LstDelim;
    QLineEdit *TxtDelim;
    QCheckBox *chk_header;
    QCheckBox *Check1;
    Field_List *List1;
    Field_List *List2;
    QListWidget *List3;
    QPushButton *CmdImport;
    QPushButton *Command1;
    QProgressBar *ProgressBar1;

    void LstComp_Click(QListWidgetItem *item);
    void CmdBrowse_Click();
    void LstDelim_Click();
    // Reads the named file and builds the two lists anew.
    void Build_Lists();
    void CmdImport_Click();

private:
    void Enable_Rest(bool on);
    QString m_delim = QStringLiteral(",");
    Csv_File m_file;
};
