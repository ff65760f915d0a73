#include "prefs/swatch.h"

#include "platform/text_looks.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int ringWidth = 2; // pixels
constexpr int ringGap = 1;
constexpr qreal roundness = 3;
constexpr int edgeStrength = 115; // of 255, of the ink, so that a colour like the ground's has an edge

} // namespace

Swatch::Swatch(QWidget *parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setColour(0);
}

void Swatch::setColour(ColourValue colour)
{
    m_colour = colour;
    setToolTip(toColor(shownColour()).name()); // also what is heard of it
    update();
}

ColourValue Swatch::shownColour() const
{
    return SystemColours(QGuiApplication::palette()).resolve(m_colour);
}

QSize Swatch::sizeHint() const
{
    const int height = fontMetrics().height() + 2 * (ringWidth + ringGap);
    return {2 * height, height};
}

void Swatch::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF outer = rect();
    QColor ink = palette().color(QPalette::WindowText);
    if (hasFocus()) {
        constexpr qreal half = ringWidth / 2.0;
        painter.setPen(QPen(ink, ringWidth));
        painter.drawRoundedRect(outer.adjusted(half, half, -half, -half), roundness + ringGap,
                                roundness + ringGap);
    }
    ink.setAlpha(underMouse() || isDown() ? 255 : edgeStrength);
    constexpr qreal inset = ringWidth + ringGap + 0.5;
    painter.setPen(QPen(ink, 1));
    painter.setBrush(toColor(shownColour()));
    painter.drawRoundedRect(outer.adjusted(inset, inset, -inset, -inset), roundness, roundness);
}

/// Enter presses it as the space bar does.
void Swatch::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            animateClick();
        }
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}
