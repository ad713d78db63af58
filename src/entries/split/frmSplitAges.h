#pragma once
#include "age_split.h"
#include "ui/screen.h"

class QListWidget;
class QPushButton;

// Cuts an event marked for splitting into age bands: the ages of its dancers
// with their counts, the bands the operator builds from them, and the new
// events made from the bands.
class frmSplitAges : public Screen
{
    Q_OBJECT
public:
    explicit frmSplitAges(QWidget *parent = nullptr);

    QListWidget *lstGroups = nullptr;
    QListWidget *lstcounts = nullptr;
    QListWidget *lstcreategroups = nullptr;
    QPushButton *CmdAdd = nullptr;
    QPushButton *CmdReset = nullptr;
    QPushButton *CmdCreate = nullptr;

    void lstGroups_Click();
    void CmdAdd_Click();
    void CmdReset_Click();
    void CmdCreate_Click();

private:
    void Build_Controls();
    void Clear_Lists();
    void Read_Ages();
    void Split_Failure();

    QStringList m_codes;        // event codes by place in lstGroups
    QList<Age_Count> m_ages;    // by place in lstcounts
    QList<Age_Band> m_bands;    // by place in lstcreategroups
};
