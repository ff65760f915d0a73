#pragma once

#include <QList>
#include <QRect>

class QWidget;

/// The rectangle, at least of the minimum size, moved and cut so that it lies within the screen that it
/// covers most of; the first one when it covers none. Unchanged where there is no screen.
[[nodiscard]] QRect broughtOnScreen(const QRect &wanted, QSize minimum, const QList<QRect> &screens);

/// What every screen has room for windows in.
[[nodiscard]] QList<QRect> availableScreens();

/// Moves a window, frame and all, so that it is seen whole; of one that is too large the top left.
void moveOnScreen(QWidget &window);
