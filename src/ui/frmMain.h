#pragma once
#include <QMainWindow>

class QMdiArea;
class QMenu;

// The program's one top-level window: a menu above full-size screens.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);

    // The load step: compacts with the message, then takes its place and size.
    void Load();
    // Unloads the screens, keeps the geometry unless minimised, compacts
    // with the message.
    void Unload_Steps();

    QMdiArea *mdiArea() const { return m_mdi; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void Build_File_Menu();
    void Compact_With_Message();
    void mnuFileExit_Click();

    QMdiArea *m_mdi = nullptr;
};
