#pragma once
#include "ui/grid/grid_screen.h"

// The judges of the current competition.
class frmJudges : public GridScreen
{
    Q_OBJECT
public:
    explicit frmJudges(QWidget *parent = nullptr);

protected:
    // Every click on cmdDel, Yes or No, leaves the captions in lower case.
    void Delete_Captions(bool yes, bool cleared) override;
};
