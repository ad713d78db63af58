#include "status_icons.h"

#include <QPainter>

QPixmap Status_Icon(bool on)
{
    QPixmap pix(16, 16);
    pix.fill(Qt::transparent);
    QPainter p(&pix);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(60, 60, 60), 1));
    p.setBrush(on ? QColor(40, 170, 60) : QColor(200, 40, 40));
    p.drawEllipse(QRectF(1.5, 1.5, 13, 13));
    return pix;
}
