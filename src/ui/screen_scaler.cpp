#include "screen_scaler.h"

#include <QEvent>
#include <QWidget>

ScreenScaler::ScreenScaler(QWidget *screen) : QObject(screen), m_screen(screen)
{
    screen->installEventFilter(this);
}

void ScreenScaler::Record()
{
    m_recordedSize = m_screen->contentsRect().size();
    m_figures.clear();
    const QList<QWidget *> children = m_screen->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *w : children)
        m_figures.insert(w, Figures{w->geometry(), w->font().pointSizeF()});
}

void ScreenScaler::Apply()
{
    if (m_recordedSize.isEmpty() || m_screen->isMinimized())
        return;
    const QSize now = m_screen->contentsRect().size();
    const qreal rx = qreal(now.width()) / m_recordedSize.width();
    const qreal ry = qreal(now.height()) / m_recordedSize.height();
    for (auto it = m_figures.constBegin(); it != m_figures.constEnd(); ++it) {
        QWidget *w = it.key();
        const QRect r = it.value().rect;
        w->setGeometry(qRound(r.x() * rx), qRound(r.y() * ry), qRound(r.width() * rx), qRound(r.height() * ry));
        if (it.value().fontSize > 0) {
            QFont f = w->font();
            f.setPointSizeF(qMax<qreal>(1.0, it.value().fontSize * ry));
            w->setFont(f);
        }
    }
}

bool ScreenScaler::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_screen && event->type() == QEvent::Resize)
        Apply();
    return QObject::eventFilter(watched, event);
}
