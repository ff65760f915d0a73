#pragma once

#include "controls/SkinButton.h"

#include <QString>

/// Makes a child widget under its name, which tests and assistive programs find it by. The parent owns it.
template <typename Widget>
[[nodiscard]] Widget *makeControl(QWidget &parent, const char16_t *name, const QString &accessibleName = {})
{
    auto *widget = new Widget(&parent);
    widget->setObjectName(QStringView(name).toString());
    widget->setAccessibleName(accessibleName);
    return widget;
}

/// The caption is what stands on it until a skin brings its own.
[[nodiscard]] inline SkinButton *makeButton(QWidget &parent, const char16_t *name,
                                            const QString &accessibleName, const QString &caption = {})
{
    auto *button = makeControl<SkinButton>(parent, name, accessibleName);
    button->setCaption(caption);
    return button;
}

/// The title strip's buttons are for the mouse: the keyboard has the window manager's own ways.
[[nodiscard]] inline SkinButton *makeSystemButton(QWidget &parent, const char16_t *name,
                                                  const QString &accessibleName)
{
    SkinButton *button = makeButton(parent, name, accessibleName);
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(accessibleName);
    return button;
}
