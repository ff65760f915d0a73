#include "platform/rich_edit.h"
#include "platform/rich_mime.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QStyle>
#include <QStyleHints>
#include <QToolTip>

#include <cmath>

namespace {

using Key = QKeySequence::StandardKey;

constexpr int wheelTickMilliseconds = 16;
constexpr int dragTickMilliseconds = 30;

} // namespace

void RichEdit::wheelEvent(QWheelEvent *event)
{
    if (!event->pixelDelta().isNull()) {
        m_wheelTimer.stop();
        m_view.moveBy(-event->pixelDelta().y());
        userScrolled();
    } else {
        constexpr double notch = 120;
        const bool turned =
            m_wheelTimer.isActive() && std::signbit(m_wheelLeft) != (event->angleDelta().y() > 0);
        m_wheelLeft =
            (turned || !m_wheelTimer.isActive() ? 0 : m_wheelLeft) -
            event->angleDelta().y() / notch * QApplication::wheelScrollLines() * fontMetrics().height();
        m_wheelTimer.start(wheelTickMilliseconds, Qt::PreciseTimer, this);
        scrollSmoothly();
    }
    event->accept();
}

/// A third of the way with each tick; all of it at once where nothing is to be animated.
void RichEdit::scrollSmoothly()
{
    const bool animated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    const double wanted = animated && std::abs(m_wheelLeft) > 3 ? m_wheelLeft / 3 : m_wheelLeft;
    const auto step = static_cast<qint64>(wanted);
    const qint64 before = m_view.value();
    m_view.moveBy(step);
    userScrolled();
    m_wheelLeft -= static_cast<double>(step);
    if (std::abs(m_wheelLeft) < 1 || m_view.value() == before) {
        m_wheelTimer.stop();
    }
}

void RichEdit::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_frameTimer.timerId()) {
        showNow();
    } else if (event->timerId() == m_wheelTimer.timerId()) {
        scrollSmoothly();
    } else if (event->timerId() == m_dragTimer.timerId()) {
        scrollWhileDragging();
    } else if (event->timerId() == m_blinkTimer.timerId()) {
        m_caretShown = !m_caretShown;
        viewport()->update(caretRectAt(caretPlace()));
    } else {
        QAbstractScrollArea::timerEvent(event);
    }
}

void RichEdit::mousePressEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::MiddleButton && !m_readOnly &&
        QApplication::clipboard()->supportsSelection()) {
        const Place at = placeAt(point);
        select(at, at);
        type(QApplication::clipboard()->text(QClipboard::Selection));
        return;
    }
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_caretWanted = false;
    const bool again = m_sinceDoubleClick.isValid() &&
                       m_sinceDoubleClick.elapsed() < QApplication::doubleClickInterval() &&
                       (point - m_doubleClickPoint).manhattanLength() < QApplication::startDragDistance();
    m_pressedLink = linkAt(point);
    pressAt(point, again ? RichSelection::Unit::Paragraph : RichSelection::Unit::Character,
            event->modifiers().testFlag(Qt::ShiftModifier));
}

void RichEdit::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_doubleClickPoint = event->position().toPoint();
        m_sinceDoubleClick.start();
        m_pressedLink.clear();
        pressAt(m_doubleClickPoint, RichSelection::Unit::Word, false);
    }
}

void RichEdit::pressAt(QPoint point, RichSelection::Unit unit, bool extend)
{
    m_view.settle();
    const Place place = m_view.placeAt(point);
    if (extend) {
        m_selection.extendTo(place);
    } else {
        m_selection.begin(place, unit);
    }
    m_dragging = true;
    m_dragPoint = point;
    selectionWasChanged();
}

void RichEdit::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    if (!m_dragging) {
        showPointerFor(point);
        return;
    }
    dragTo(point);
    const bool outside = point.y() < 0 || point.y() >= viewport()->height();
    if (outside && !m_dragTimer.isActive()) {
        m_dragTimer.start(dragTickMilliseconds, this);
    } else if (!outside) {
        m_dragTimer.stop();
    }
}

void RichEdit::dragTo(QPoint point)
{
    m_dragPoint = point;
    m_view.settle();
    const QPoint inside(point.x(), std::clamp(point.y(), 0, std::max(viewport()->height() - 1, 0)));
    m_selection.extendTo(m_view.placeAt(inside));
    selectionWasChanged();
}

/// The further outside the mouse is, the faster.
void RichEdit::scrollWhileDragging()
{
    const int beyond = m_dragPoint.y() < 0 ? m_dragPoint.y() : m_dragPoint.y() - viewport()->height() + 1;
    m_view.moveBy(beyond);
    dragTo(m_dragPoint);
    userScrolled();
}

void RichEdit::endDrag()
{
    m_dragging = false;
    m_dragTimer.stop();
}

/// Other programs take it with the middle button.
void RichEdit::offerSelection() const
{
    if (hasSelection() && QApplication::clipboard()->supportsSelection()) {
        QApplication::clipboard()->setMimeData(
            new RichMime(m_document.copy(selectionStart(), selectionEnd())), QClipboard::Selection);
    }
}

void RichEdit::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_dragging) {
        return;
    }
    endDrag();
    if (hasSelection()) {
        offerSelection();
        return;
    }
    const QUrl link = linkAt(event->position().toPoint());
    if (!link.isEmpty() && link == m_pressedLink) {
        Q_EMIT linkActivated(link);
    }
}

QUrl RichEdit::linkAt(QPoint point)
{
    m_view.settle();
    const TextLink *link = m_view.linkAt(point);
    return link == nullptr ? QUrl() : link->address;
}

void RichEdit::showPointerFor(QPoint point)
{
    viewport()->setCursor(linkAt(point).isEmpty() ? Qt::IBeamCursor : Qt::PointingHandCursor);
}

bool RichEdit::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QUrl link = linkAt(help->pos());
        if (link.isEmpty()) {
            QToolTip::hideText();
            event->ignore();
        } else {
            // As it is sent, so that nothing invisible and no look-alike letters of another script are in it.
            // Without the tag an address would be shown as plain text, its escapes included.
            const QString sent = QString::fromLatin1(link.toEncoded());
            const QString shown = u"<qt>" + sent.toHtmlEscaped() + u"</qt>";
            QToolTip::showText(help->globalPos(), shown, viewport());
        }
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void RichEdit::contextMenuEvent(QContextMenuEvent *event)
{
    m_view.settle();
    QPoint point = event->pos();
    QUrl link = linkAt(point);
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const Place caret = m_selection.caret();
        const TextLink *around = m_layout.shaped(caret.paragraph).linkAround(caret.offset);
        link = around == nullptr ? QUrl() : around->address;
        point = viewport()->rect().intersected(m_view.caretRect(caret)).bottomLeft();
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu, link);
    menu->popup(viewport()->mapToGlobal(point));
}

void RichEdit::fillMenu(QMenu &menu, const QUrl &link)
{
    const auto add = [&](const QString &text, Key key, bool enabled, auto run) {
        QAction *action = menu.addAction(text, this, run);
        if (key != Key::UnknownKey) {
            action->setShortcut(QKeySequence(key));
        }
        action->setEnabled(enabled);
    };
    if (!link.isEmpty()) {
        add(tr("&Open Link"), Key::UnknownKey, true, [this, link] { Q_EMIT linkActivated(link); });
        add(tr("Copy &Link Address"), Key::UnknownKey, true,
            [link] { QApplication::clipboard()->setText(link.toString(QUrl::FullyEncoded)); });
        menu.addSeparator();
    }
    if (!m_readOnly) {
        add(tr("&Undo"), Key::Undo, m_editing.canUndo(), &RichEdit::undo);
        add(tr("&Redo"), Key::Redo, m_editing.canRedo(), &RichEdit::redo);
        menu.addSeparator();
        add(tr("Cu&t"), Key::Cut, hasSelection(), &RichEdit::cut);
    }
    add(tr("&Copy"), Key::Copy, hasSelection(), &RichEdit::copy);
    if (!m_readOnly) {
        add(tr("&Paste"), Key::Paste, !QApplication::clipboard()->text().isEmpty(), &RichEdit::paste);
    }
    add(tr("Select &All"), Key::SelectAll, m_document.length() > 0, &RichEdit::selectAll);
    menu.addSeparator();
    add(tr("&Find..."), Key::Find, true, &RichEdit::openFindBar);
}

void RichEdit::focusInEvent(QFocusEvent *event)
{
    m_caretWanted = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    startBlinking();
    QAbstractScrollArea::focusInEvent(event);
}

void RichEdit::focusOutEvent(QFocusEvent *event)
{
    startBlinking();
    QAbstractScrollArea::focusOutEvent(event);
}

/// The caret is seen right after everything that it does, and blinks where one may write.
void RichEdit::startBlinking()
{
    m_caretShown = true;
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && !m_readOnly && period > 1) {
        m_blinkTimer.start(period / 2, this);
    } else {
        m_blinkTimer.stop();
    }
    viewport()->update();
}
