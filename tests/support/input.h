#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

/// Keys and the mouse, as the window system tells a widget of them.

inline void pressKey(QWidget &widget, int key, const QString &text = {}, Qt::KeyboardModifiers modifiers = {})
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

inline void sendMouse(QWidget &widget, QEvent::Type type, QPointF place,
                      Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons held = Qt::LeftButton)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void clickAt(QWidget &widget, QPointF place, Qt::MouseButton button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonPress, place, button, button);
    sendMouse(widget, QEvent::MouseButtonRelease, place, button, Qt::NoButton);
}
