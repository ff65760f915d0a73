#include "prefs/caption_label.h"

#include <QAbstractButton>
#include <QMouseEvent>

/// One without a control is part of the window's ground.
void CaptionLabel::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(buddy() != nullptr && event->button() == Qt::LeftButton);
}

void CaptionLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (buddy() == nullptr || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (!rect().contains(event->position().toPoint())) {
        return;
    }
    buddy()->setFocus(Qt::MouseFocusReason);
    if (auto *button = qobject_cast<QAbstractButton *>(buddy())) {
        button->click();
    }
}
