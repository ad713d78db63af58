#include "application.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QMdiSubWindow>

StrathmarkApp::StrathmarkApp(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(App_Title);
    setOrganizationName(QStringLiteral("Strathmark"));
}

void Show_Unhandled_Fault(const QString &message)
{
    // The engine's words alone tell the tallier nothing: the action comes first.
    QWidget *w = QApplication::focusWidget();
    while (w && !w->isWindow() && !qobject_cast<QMdiSubWindow *>(w->parentWidget()))
        w = w->parentWidget();
    const QString fallback = w ? QStringLiteral("Working on ") + w->windowTitle() : QString();
    Msg_Box(Fault_Text(message, fallback), vbCritical, App_Title);
}

bool StrathmarkApp::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const AppError &e) {
        Show_Unhandled_Fault(e.message());
    } catch (const std::exception &e) {
        Show_Unhandled_Fault(QString::fromLocal8Bit(e.what()));
    } catch (...) {
        Show_Unhandled_Fault(QStringLiteral("Unexpected error"));
    }
    return false;
}
