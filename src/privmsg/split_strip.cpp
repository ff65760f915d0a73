#include "privmsg/split_strip.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int step = 10; // pixels

} // namespace

SplitStrip::SplitStrip(QWidget *parent) : QWidget(parent)
{
    setCursor(Qt::SplitVCursor);
    setFocusPolicy(Qt::TabFocus);
}

/// Three dots to take hold of; a bar while the keyboard or the mouse has it. They stand in the middle between
/// the boxes, while the strip reaches on to the lower one.
void SplitStrip::paintEvent(QPaintEvent * /*event*/)
{
    constexpr int bar = 4;
    constexpr int dot = 3;
    constexpr int distance = 8;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Active, QPalette::WindowText));
    painter.setOpacity(0.6);
    if (!isEnabled() || hasFocus()) {
        painter.drawRoundedRect(QRect(0, 0, width(), bar), 2, 2);
        return;
    }
    for (const int at : {-distance, 0, distance}) {
        painter.drawEllipse(QRectF((width() - dot) / 2.0 + at, (bar - dot) / 2.0, dot, dot));
    }
}

void SplitStrip::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        Q_EMIT pressed();
    }
}

void SplitStrip::mouseMoveEvent(QMouseEvent *event)
{
    Q_EMIT dragged(static_cast<int>(event->position().y()));
}

void SplitStrip::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    Q_EMIT released();
}

void SplitStrip::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        Q_EMIT stepped(event->key() == Qt::Key_Up ? -step : step);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void SplitStrip::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void SplitStrip::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}
