#pragma once
#include "core/db.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLineEdit;

// "System Settings": every control writes through as it changes.
class frmconfig : public QDialog
{
    Q_OBJECT
public:
    explicit frmconfig(QWidget *parent = nullptr);

protected:
    void closeEvent(QCloseEvent *event) override;
    void reject() override;

private:
    void CmdBrowse_Click();
    // The folder is written once more and the connection closed.
    void Finish();
    QCheckBox *Switch(const QString &name, const QString &caption, const QString &help, const QString &tip,
                      bool value, int option);

    Connection m_conn;
    QLineEdit *txt_filename = nullptr;
};
