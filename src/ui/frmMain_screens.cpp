// Which screen each menu item opens, and the screens open under the menu.
#include "frmMain.h"
#include "frmSelectCompetition.h"
#include "grid/column_fit.h"
#include "core/doing.h"
#include "core/globals.h"

#include <QAction>
#include <QDialog>
#include <QEvent>
#include <QIcon>
#include <QPixmap>
#include <QList>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

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

// A screen that closes itself takes its frame with it.
class Frame_Closer : public QObject
{
public:
    Frame_Closer(QMdiSubWindow *frame, QWidget *screen) : QObject(frame), m_frame(frame), m_screen(screen)
    {
        screen->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_screen && event->type() == QEvent::Close) {
            // Whether the screen agreed to close is known only after it has handled the event.
            QTimer::singleShot(0, this, [this] {
                if (m_frame && m_screen && m_screen->isHidden() && !m_frame->isHidden())
                    m_frame->close();
            });
        }
        return false;
    }

private:
    QPointer<QMdiSubWindow> m_frame;
    QPointer<QWidget> m_screen;
};

// The title without the name of a full-size screen that the window shows
// after it in brackets.
QString Own_Title(const QString &title)
{
    const int at = title.indexOf(QLatin1String(" - ["));
    return at >= 0 && title.endsWith(QLatin1Char(']')) ? title.left(at) : title;
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
    // The screens go after the window's own members: they must not call back.
    for (QMdiSubWindow *frame : m_mdi->findChildren<QMdiSubWindow *>())
        frame->disconnect(this);
}

void frmMain::Refresh_Title()
{
    QMdiSubWindow *front = m_mdi->currentSubWindow();
    const QString own = front ? m_screenTitles.value(front, App_Title) : App_Title;
    if (Own_Title(windowTitle()) != own)
        setWindowTitle(own);
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
    const QAction *action = m_actions.value(item);
    Doing doing(QStringLiteral("Opening ") + (action ? action->text().remove(QLatin1Char('&')) : item));
    const QString titleBefore = Own_Title(windowTitle());
    QWidget *screen = registry().value(item)();
    if (!screen)
        return nullptr;
    // A screen may name itself in the window's title while it is in front.
    const QString screenTitle = Own_Title(windowTitle());
    // A dialogue keeps its own window; every other screen fills the space
    // under the menu.
    if (qobject_cast<QDialog *>(screen)) {
        screen->setAttribute(Qt::WA_DeleteOnClose);
        screen->show();
        return screen;
    }
    Keep_Screen_Fitted(screen);
    QMdiSubWindow *frame = m_mdi->addSubWindow(screen);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setWindowTitle(screen->windowTitle());
    QPixmap blank(16, 16);
    blank.fill(Qt::transparent);
    frame->setWindowIcon(QIcon(blank));
    new Frame_Closer(frame, screen);
    m_open.insert(item, frame);
    if (screenTitle != titleBefore)
        m_screenTitles.insert(frame, screenTitle);
    connect(frame, &QObject::destroyed, this, [this, frame] {
        m_screenTitles.remove(frame);
        QTimer::singleShot(0, this, &frmMain::Refresh_Title);
    });
    frame->showMaximized();
    screen->setFocus();
    return screen;
}
