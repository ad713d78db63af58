#pragma once
#include <QWidget>

// The window shown while the program starts.
class frmSplash : public QWidget
{
    Q_OBJECT
public:
    explicit frmSplash(QWidget *parent = nullptr);
};
