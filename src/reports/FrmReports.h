#pragma once
#include "ui/screen.h"

#include <QStringList>

class QListWidget;

// Line-up sheets: one click on an event shows the list of its dancers for
// the stewards, by competitor number.
class FrmReports : public Screen
{
    Q_OBJECT
public:
    explicit FrmReports(QWidget *parent = nullptr);

    QListWidget *LstGroup = nullptr;
    QStringList Group_Codes;   // parallel to LstGroup

    void LstGroup_Click();
};
