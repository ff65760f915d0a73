#pragma once

#include <QWidget>

#include <gtest/gtest.h>

/// What the keyboard reaches has a name that can be heard.
inline void expectNames(const QWidget &window)
{
    for (const auto *widget : window.findChildren<QWidget *>()) {
        const bool isReached = widget->isVisibleTo(&window) && (widget->focusPolicy() & Qt::TabFocus) != 0;
        EXPECT_TRUE(!isReached || !widget->accessibleName().isEmpty()) << qPrintable(widget->objectName());
    }
}

/// Everything that the user sees has the room it wants, within its parent and beside its neighbours: all but
/// frames, which are around others.
inline void expectComposed(const QWidget &window)
{
    const auto isSeen = [](const QWidget &widget) {
        return widget.isVisible() && !widget.isWindow() && !widget.objectName().isEmpty() &&
               !widget.objectName().startsWith(u"qt_") && !widget.objectName().startsWith(u"skf");
    };
    for (const auto *widget : window.findChildren<QWidget *>()) {
        if (!isSeen(*widget)) {
            continue;
        }
        SCOPED_TRACE(qPrintable(widget->objectName()));
        const QWidget &parent = *widget->parentWidget();
        EXPECT_TRUE(parent.rect().contains(widget->geometry()));
        EXPECT_EQ(widget->size().expandedTo(widget->minimumSizeHint()), widget->size());
        for (const auto *other : parent.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            EXPECT_FALSE(other != widget && isSeen(*other) &&
                         other->geometry().intersects(widget->geometry()))
                << qPrintable(other->objectName());
        }
    }
    expectNames(window);
}
