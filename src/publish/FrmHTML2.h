#pragma once
#include "site_screen.h"

// The plain results website, written where the operator chooses.
class FrmHTML2 : public Site_Screen
{
    Q_OBJECT
public:
    explicit FrmHTML2(QWidget *parent = nullptr);
};
