#pragma once
#include "site_screen.h"

// The hosted edition, written in the data folder.
class frmbrogard : public Site_Screen
{
    Q_OBJECT
public:
    explicit frmbrogard(QWidget *parent = nullptr);
};
