#pragma once

#include <QPoint>
#include <QPointer>
#include <QRect>

#include <functional>

class QMouseEvent;
class QWidget;

/// What a press on a window's own surface begins when the pointer moves on.
enum class DragZone
{
    None,
    Move,
    Right,
    Bottom,
    BottomRight
};

/// Moves and resizes a window without a frame by its own surface. The window system does it, from the first
/// movement on, so that a press alone leaves the window and the keyboard alone; where the window system
/// cannot, it is done here.
class WindowMover
{
public:
    /// Says which zone a place of the window, in its own pixels, belongs to.
    using Zones = std::function<DragZone(QPoint place)>;

    WindowMover(QWidget &window, Zones zones) : m_window(window), m_zones(std::move(zones)) {}

    void press(const QMouseEvent &event);
    /// Also shows the pointer's shape for the zone below it.
    void move(const QMouseEvent &event);
    void release();

private:
    void begin();
    [[nodiscard]] bool beginBySystem();
    void follow(QPoint globalPlace);

    QWidget &m_window;
    Zones m_zones;
    DragZone m_zone = DragZone::None;
    bool m_byHand = false;
    QPoint m_pressedAt; ///< on the screen
    QRect m_geometryThen;
};
