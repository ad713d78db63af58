#pragma once
#include "screen.h"

class QListWidget;
class QListWidgetItem;

// The list of competitions; a click makes one current and closes the screen.
class frmSelectCompetition : public Screen
{
    Q_OBJECT
public:
    explicit frmSelectCompetition(QWidget *parent = nullptr);

    QListWidget *LstComp = nullptr;

private:
    void LstComp_Click(QListWidgetItem *item);
};
