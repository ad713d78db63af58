#include "frmMain.h"
#include "geometry_store.h"
#include "core/database_file.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(App_Title);
    m_mdi = new QMdiArea(this);
    m_mdi->setObjectName(QStringLiteral("mdiArea"));
    m_mdi->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_mdi->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_mdi);
    connect(m_mdi, &QMdiArea::subWindowActivated, this, &frmMain::Refresh_Title);
    Build_Menus();
    Keep_Track(this, true);
}

void frmMain::Compact_With_Message()
{
    Doing doing(QStringLiteral("Compacting and backing up the database"));
    Compact_Database();
    Msg_Box(QStringLiteral("Database compacted and backed up!"));
}

void frmMain::Load()
{
    Compact_With_Message();
    // A first start has no stored place: a window of 6500 twips hides half
    // the menu, so it opens filling the screen.
    if (Has_Main_Geometry())
        setGeometry(Load_Main_Geometry());
    else
        setWindowState(windowState() | Qt::WindowMaximized);
}

bool frmMain::Unload_Steps()
{
    // Screens close from the last opened down, each closing its connection.
    // A screen that stays (its save failed) stops the end of the run.
    const QList<QMdiSubWindow *> screens = m_mdi->subWindowList(QMdiArea::CreationOrder);
    for (int i = screens.size() - 1; i >= 0; --i)
        if (!screens.at(i)->close())
            return false;
    if (!isMinimized())
        Save_Main_Geometry(geometry());
    try {
        Compact_With_Message();
    } catch (const AppError &e) {
        Msg_Box(Fault_Text(e.message()), vbCritical, App_Title);
    }
    return true;
}

void frmMain::mnuFileExit_Click()
{
    // The steps run here and again as the window unloads: the message shows twice.
    if (Unload_Steps())
        close();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (Unload_Steps())
        event->accept();
    else
        event->ignore();
}

void frmMain::keyPressEvent(QKeyEvent *event)
{
    // Esc that no screen took closes the screen in front.
    if (event->key() == Qt::Key_Escape && m_mdi->activeSubWindow()) {
        m_mdi->activeSubWindow()->close();
        return;
    }
    QMainWindow::keyPressEvent(event);
}
