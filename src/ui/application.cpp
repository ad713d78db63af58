#include "application.h"
#include "core/dialogs.h"
#include "core/doing.h"
#include "core/errors.h"
#include "core/globals.h"

#include <QAbstractButton>
#include <QMdiSubWindow>

StrathmarkApp::StrathmarkApp(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(App_Title);
    setOrganizationName(QStringLiteral("Strathmark"));
}

void Show_Unhandled_Fault(const QString &message)
{
    // The engine's words alone tell the tallier nothing: the action comes first.
    // With no action named, the screen and the button the operator pressed say it.
    QWidget *focus = QApplication::focusWidget();
    QWidget *w = focus;
    while (w && !w->isWindow() && !qobject_cast<QMdiSubWindow *>(w->parentWidget()))
        w = w->parentWidget();
    QString fallback = w ? QStringLiteral("Working on ") + w->windowTitle() : QString();
    if (auto *button = qobject_cast<QAbstractButton *>(focus); button && w && !button->text().isEmpty())
        fallback += QStringLiteral(" (") + button->text().remove(QLatin1Char('&')) + QLatin1Char(')');
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
