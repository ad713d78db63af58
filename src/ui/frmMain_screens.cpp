// Which screen each menu item opens, and the screens open under the menu.
#include "frmMain.h"
#include "frmSelectCompetition.h"

#include <QDialog>
#include <QList>
#include <QMdiArea>
#include <QMdiSubWindow>

namespace {

QHash<QString, frmMain::Screen_Factory> &registry()
{
    static QHash<QString, frmMain::Screen_Factory> factories;
    return factories;
}

QList<frmMain *> &liveWindows()
{
    static QList<frmMain *> windows;
    return windows;
}

// The screens of this folder register themselves.
void Register_Own_Screens()
{
    if (!registry().contains(QStringLiteral("mnuSelectCompetition")))
        registry().insert(QStringLiteral("mnuSelectCompetition"), [] { return new frmSelectCompetition; });
}

} // namespace

void frmMain::Register_Screen(const QString &menuItem, Screen_Factory factory)
{
    registry().insert(menuItem, std::move(factory));
    for (frmMain *w : liveWindows())
        w->Refresh_Menu();
}

bool frmMain::Has_Screen(const QString &menuItem)
{
    Register_Own_Screens();
    return static_cast<bool>(registry().value(menuItem));
}

void frmMain::Keep_Track(frmMain *window, bool live)
{
    liveWindows().removeAll(window);
    if (live)
        liveWindows() << window;
}

frmMain::~frmMain()
{
    Keep_Track(this, false);
}

QWidget *frmMain::Open_Screen_Of(const QString &item) const
{
    const QPointer<QMdiSubWindow> frame = m_open.value(item);
    return frame ? frame->widget() : nullptr;
}

QWidget *frmMain::Open_Screen(const QString &item)
{
    if (QPointer<QMdiSubWindow> frame = m_open.value(item)) {
        m_mdi->setActiveSubWindow(frame);
        frame->showMaximized();
        return frame->widget();
    }
    if (!Has_Screen(item))
        return nullptr;
    QWidget *screen = registry().value(item)();
    if (!screen)
        return nullptr;
    // A dialogue keeps its own window; every other screen fills the space
    // under the menu.
    if (qobject_cast<QDialog *>(screen)) {
        screen->setAttribute(Qt::WA_DeleteOnClose);
        screen->show();
        return screen;
    }
    QMdiSubWindow *frame = m_mdi->addSubWindow(screen);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setWindowTitle(screen->windowTitle());
    m_open.insert(item, frame);
    frame->showMaximized();
    screen->setFocus();
    return screen;
}
