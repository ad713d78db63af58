#include "status_pictures.h"

#include <QPainter>
#include <QPainterPath>

namespace {

QPixmap Blank(int size)
{
    QPixmap pix(size, size);
    pix.fill(Qt::transparent);
    return pix;
}

void Stroke(QPainter &p, const QColor &colour, int size)
{
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(colour, size / 7.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
}

} // namespace

QPixmap Tick_Picture(int size)
{
    QPixmap pix = Blank(size);
    QPainter p(&pix);
    Stroke(p, QColor(30, 150, 50), size);
    QPainterPath tick;
    tick.moveTo(size * 0.15, size * 0.55);
    tick.lineTo(size * 0.40, size * 0.80);
    tick.lineTo(size * 0.85, size * 0.20);
    p.drawPath(tick);
    return pix;
}

QPixmap Cross_Picture(int size)
{
    QPixmap pix = Blank(size);
    QPainter p(&pix);
    Stroke(p, QColor(200, 30, 30), size);
    p.drawLine(QPointF(size * 0.2, size * 0.2), QPointF(size * 0.8, size * 0.8));
    p.drawLine(QPointF(size * 0.8, size * 0.2), QPointF(size * 0.2, size * 0.8));
    return pix;
}

QPixmap Amber_Picture(int size)
{
    QPixmap pix = Blank(size);
    QPainter p(&pix);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(170, 110, 0), 1.5));
    p.setBrush(QColor(255, 176, 0));
    p.drawEllipse(QRectF(size * 0.15, size * 0.15, size * 0.7, size * 0.7));
    return pix;
}
