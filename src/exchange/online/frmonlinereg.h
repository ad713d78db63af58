#pragma once
#include "ui/screen.h"

#include <QList>
#include <QStringList>
#include <memory>

class cFTP;
class FlexGrid;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

// Fetches the entries made on the online service for the current competition,
// previews the new ones and loads them under numbers running downwards.
class frmonlinereg : public Screen
{
    Q_OBJECT
public:
    explicit frmonlinereg(QWidget *parent = nullptr);
    ~frmonlinereg() override;

    QLabel *Label1 = nullptr;
    QPushButton *cmd_check = nullptr;
    QLabel *lbl_check = nullptr;
    QGroupBox *frm_preview = nullptr;
    FlexGrid *MSFlexGrid1 = nullptr;
    QLabel *Label3 = nullptr;
    QLineEdit *comp_no = nullptr;
    QPushButton *cmd_load = nullptr;
    QProgressBar *ProgressBar1 = nullptr;

    cFTP &ftp() { return *m_ftp; }

private slots:
    void cmd_check_Click();
    void cmd_load_Click();

private:
    void Show_Step2(bool on);
    void Bar(int value);
    QList<QStringList> Grid_Rows() const;

    std::unique_ptr<cFTP> m_ftp;
};
