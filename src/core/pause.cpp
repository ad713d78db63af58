#include "pause.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace {
double g_scale = 1.0;
}

void Set_Pause_Scale(double scale) { g_scale = scale; }
double Pause_Scale() { return g_scale; }

void Pause_Ms(int ms, Pause_Input input)
{
    const int scaled = static_cast<int>(ms * g_scale);
    const QEventLoop::ProcessEventsFlags flags =
        input == Pause_Input::Held ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents;
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(flags);
    if (scaled <= 0)
        return;
    QDeadlineTimer deadline(scaled);
    while (!deadline.hasExpired()) {
        if (QCoreApplication::instance())
            QCoreApplication::processEvents(flags, 10);
        QThread::msleep(static_cast<unsigned long>(qMin<qint64>(10, deadline.remainingTime())));
    }
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(flags);
}
