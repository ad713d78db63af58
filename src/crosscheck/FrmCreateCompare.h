#pragma once
#include "core/db.h"

#include <QDialog>

class QLineEdit;
class QPushButton;

// "Create Results File": writes the Competition event's compare file into a
// folder of the operator's choice. It saves as soon as it opens, so the
// operator sees it only when the folder does not exist.
class FrmCreateCompare : public QDialog
{
    Q_OBJECT
public:
    // folderBox is the opener's folder box: read at opening, written back by
    // CmdBrowse. eventName is the opener's event as its list shows it.
    FrmCreateCompare(QString &folderBox, const QString &eventName, QWidget *parent = nullptr);
    ~FrmCreateCompare() override;

    // Opens the screen and, when it is still open after its first save,
    // waits for it modally.
    static void Open_Modal(QString &folderBox, const QString &eventName, QWidget *parent);

    QLineEdit *Text1 = nullptr;
    QPushButton *CmdSave = nullptr;
    QPushButton *CmdBrowse = nullptr;

    bool Unloaded() const { return m_unloaded; }
    void CmdSave_Click();
    void CmdBrowse_Click();

protected:
    void done(int result) override;

private:
    QString &m_folderBox;
    QString m_eventName;
    Connection m_conn;
    bool m_unloaded = false;
};
