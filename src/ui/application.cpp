#include "application.h"
#include "core/dialogs.h"
#include "core/errors.h"
#include "core/globals.h"

StrathmarkApp::StrathmarkApp(int &argc, char **argv) : QApplication(argc, argv)
{
    setApplicationName(App_Title);
    setOrganizationName(QStringLiteral("Strathmark"));
}

void Show_Unhandled_Fault(const QString &message)
{
    Msg_Box(message, vbCritical, App_Title);
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
