#include "pause.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace {
double g_scale = 1.0;
}

void Set_Pause_Scale(double scale) { g_scale = scale; }
double Pause_Scale() { return g_scale; }

void Pause_Ms(int ms)
{
    const int scaled = static_cast<int>(ms * g_scale);
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
    if (scaled <= 0)
        return;
    QDeadlineTimer deadline(scaled);
    while (!deadline.hasExpired()) {
        if (QCoreApplication::instance())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(static_cast<unsigned long>(qMin<qint64>(10, deadline.remainingTime())));
    }
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}
