#pragma once
#include "ui/grid/grid_screen.h"

// The dance names, shared by all competitions.
class frmdances : public GridScreen
{
    Q_OBJECT
public:
    explicit frmdances(QWidget *parent = nullptr);

protected:
    // "Dance Name" is written back after every confirmed delete.
    void Delete_Captions(bool yes, bool cleared) override;
};
