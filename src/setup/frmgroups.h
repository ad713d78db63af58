#pragma once
#include "ui/grid/grid_screen.h"

class EventRules;
class QGroupBox;
class QListWidget;

// The events of the current competition, with the category lookup on F2.
class frmgroups : public GridScreen
{
    Q_OBJECT
public:
    explicit frmgroups(QWidget *parent = nullptr);

    QGroupBox *frmCat = nullptr;
    QListWidget *LstCatLookup = nullptr;

    // The very first row gets its own defaults before the base appends a row.
    void Add_Row() override;
    void LstCatLookup_Click();

protected:
    bool F2_Lookup(bool fromEditor) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    EventRules &Rules();
    void Read_Lookup();
    void Hide_Lookup();

    int m_lookRow = -1;
    int m_lookCol = -1;
};
