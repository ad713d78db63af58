#include "frmMain.h"
#include "geometry_store.h"
#include "core/database_file.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>

frmMain::frmMain(QWidget *parent) : QMainWindow(parent)
{
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(App_Title);
    m_mdi = new QMdiArea(this);
    m_mdi->setObjectName(QStringLiteral("mdiArea"));
    setCentralWidget(m_mdi);
    Build_File_Menu();
}

void frmMain::Build_File_Menu()
{
    QMenu *file = menuBar()->addMenu(QStringLiteral("&File"));
    file->setObjectName(QStringLiteral("mnuFile"));
    auto add = [this, file](const char *name, const char *caption) {
        QAction *a = file->addAction(QString::fromLatin1(caption));
        a->setObjectName(QString::fromLatin1(name));
        return a;
    };
    add("mnuFilePageSetup", "Page Set&up...");
    add("mnuFilePrint", "&Print...");
    QAction *exit = add("mnuFileExit", "E&xit");
    connect(exit, &QAction::triggered, this, &frmMain::mnuFileExit_Click);
}

void frmMain::Compact_With_Message()
{
    Compact_Database();
    Msg_Box(QStringLiteral("Database compacted and backed up!"));
}

void frmMain::Load()
{
    Compact_With_Message();
    setGeometry(Load_Main_Geometry());
}

void frmMain::Unload_Steps()
{
    // Screens close from the last opened down, each closing its connection.
    const QList<QMdiSubWindow *> screens = m_mdi->subWindowList(QMdiArea::CreationOrder);
    for (int i = screens.size() - 1; i >= 0; --i)
        screens.at(i)->close();
    if (!isMinimized())
        Save_Main_Geometry(geometry());
    try {
        Compact_With_Message();
    } catch (const AppError &e) {
        Msg_Box(e.message(), vbCritical, App_Title);
    }
}

void frmMain::mnuFileExit_Click()
{
    // The steps run here and again as the window unloads: the message shows twice.
    Unload_Steps();
    close();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    Unload_Steps();
    event->accept();
}
