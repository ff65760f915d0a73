#include "skin/aligned_painter.h"

#include "skin/cDIBSection.h"

#include <QPainter>

AlignedPainter::AlignedPainter(QPainter &painter) : m_painter(painter), m_toDevice(painter.deviceTransform())
{
    painter.save();
    painter.setWorldTransform(m_toDevice.inverted() * painter.worldTransform());
}

AlignedPainter::~AlignedPainter()
{
    m_painter.restore();
}

void AlignedPainter::draw(QPoint place, const cDIBSection &picture)
{
    draw(place, picture, QRect(QPoint(), picture.size()));
}

void AlignedPainter::draw(QPoint place, const cDIBSection &picture, const QRect &part)
{
    const QRect target = onDevice(QRect(place, part.size()));
    if (!target.isEmpty()) {
        picture.drawOnDevice(m_painter, target, part);
    }
}

void AlignedPainter::drawInBlocks(QPoint place, const cDIBSection &picture)
{
    m_painter.drawImage(onDevice(QRect(place, picture.size())), picture.image());
}

void AlignedPainter::fill(const QRect &area, const QColor &colour)
{
    m_painter.fillRect(onDevice(area), colour);
}

QRect AlignedPainter::onDevice(const QRect &area) const
{
    const QPoint topLeft = m_toDevice.map(QPointF(area.topLeft())).toPoint();
    const QPoint end =
        m_toDevice.map(QPointF(area.topLeft() + QPoint(area.width(), area.height()))).toPoint();
    return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}
