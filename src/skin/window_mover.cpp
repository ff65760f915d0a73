#include "skin/window_mover.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace {

Qt::Edges edgesOf(DragZone zone)
{
    switch (zone) {
    case DragZone::Right:
        return Qt::RightEdge;
    case DragZone::Bottom:
        return Qt::BottomEdge;
    case DragZone::BottomRight:
        return Qt::RightEdge | Qt::BottomEdge;
    case DragZone::None:
    case DragZone::Move:
        break;
    }
    return {};
}

Qt::CursorShape shapeOf(DragZone zone)
{
    switch (zone) {
    case DragZone::Right:
        return Qt::SizeHorCursor;
    case DragZone::Bottom:
        return Qt::SizeVerCursor;
    case DragZone::BottomRight:
        return Qt::SizeFDiagCursor;
    case DragZone::None:
    case DragZone::Move:
        break;
    }
    return Qt::ArrowCursor;
}

} // namespace

void WindowMover::press(const QMouseEvent &event)
{
    m_zone = event.button() == Qt::LeftButton ? m_zones(event.position().toPoint()) : DragZone::None;
    m_byHand = false;
    m_pressedAt = event.globalPosition().toPoint();
    m_geometryThen = m_window.geometry();
}

void WindowMover::move(const QMouseEvent &event)
{
    if (m_byHand) {
        follow(event.globalPosition().toPoint());
    } else if (m_zone != DragZone::None && (event.buttons() & Qt::LeftButton) != 0) {
        begin();
    } else if (event.buttons() == Qt::NoButton) {
        m_zone = DragZone::None;
        m_window.setCursor(shapeOf(m_zones(event.position().toPoint())));
    }
}

void WindowMover::release()
{
    m_zone = DragZone::None;
    m_byHand = false;
}

void WindowMover::begin()
{
    if (beginBySystem()) {
        m_zone = DragZone::None; // the window system keeps the pointer until the button is released
    } else {
        m_byHand = true;
    }
}

bool WindowMover::beginBySystem()
{
    QWindow *native = m_window.window()->windowHandle();
    if (native == nullptr) {
        return false;
    }
    return m_zone == DragZone::Move ? native->startSystemMove() : native->startSystemResize(edgesOf(m_zone));
}

void WindowMover::follow(QPoint globalPlace)
{
    const QPoint way = globalPlace - m_pressedAt;
    if (m_zone == DragZone::Move) {
        m_window.move(m_geometryThen.topLeft() + way);
        return;
    }
    const Qt::Edges edges = edgesOf(m_zone);
    m_window.resize(m_geometryThen.width() + (edges.testFlag(Qt::RightEdge) ? way.x() : 0),
                    m_geometryThen.height() + (edges.testFlag(Qt::BottomEdge) ? way.y() : 0));
}
