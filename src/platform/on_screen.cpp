#include "platform/on_screen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {

constexpr QSize usualFrame(10, 40); // the desktop's, round a window that has not been shown yet

qint64 area(const QRect &rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

} // namespace

QRect broughtOnScreen(const QRect &wanted, QSize minimum, const QList<QRect> &screens)
{
    if (screens.isEmpty()) {
        return wanted;
    }
    const QRect whole(wanted.topLeft(), wanted.size().expandedTo(minimum));
    const auto covered = [&](const QRect &screen) { return area(screen & whole); };
    const QRect screen = *std::ranges::max_element(screens, {}, covered);
    QRect place(whole.topLeft(), whole.size().boundedTo(screen.size()));
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() + 1 - place.height()));
    return place;
}

QList<QRect> availableScreens()
{
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens()) {
        screens += screen->availableGeometry();
    }
    return screens;
}

void moveOnScreen(QWidget &window)
{
    QRect wanted = window.frameGeometry();
    if (!window.isVisible() && !window.windowFlags().testFlag(Qt::FramelessWindowHint)) {
        wanted.setSize(wanted.size() + usualFrame);
    }
    const QPoint place = broughtOnScreen(wanted, {}, availableScreens()).topLeft();
    if (place != wanted.topLeft()) {
        window.move(place);
    }
}
