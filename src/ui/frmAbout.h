#pragma once
#include <QDialog>

// The program's name and version.
class frmAbout : public QDialog
{
    Q_OBJECT
public:
    explicit frmAbout(QWidget *parent = nullptr);
};
