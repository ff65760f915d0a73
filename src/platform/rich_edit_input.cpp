#include "platform/find_bar.h"
#include "platform/rich_edit.h"
#include "platform/rich_mime.h"
#include "richtext/text_search.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QStyle>
#include <QStyleHints>
#include <QToolTip>

#include <cmath>
#include <optional>

namespace {

using Key = QKeySequence::StandardKey;

constexpr int wheelTickMilliseconds = 16;
constexpr int dragTickMilliseconds = 30;
constexpr qsizetype longestSeed = 60; // of what is looked for, from the selection

struct MoveKey
{
    Key move;
    Key select;
    CaretMove way;
};

constexpr MoveKey moveKeys[] = {
    {Key::MoveToPreviousChar, Key::SelectPreviousChar, CaretMove::Left},
    {Key::MoveToNextChar, Key::SelectNextChar, CaretMove::Right},
    {Key::MoveToPreviousWord, Key::SelectPreviousWord, CaretMove::WordLeft},
    {Key::MoveToNextWord, Key::SelectNextWord, CaretMove::WordRight},
    {Key::MoveToPreviousLine, Key::SelectPreviousLine, CaretMove::LineUp},
    {Key::MoveToNextLine, Key::SelectNextLine, CaretMove::LineDown},
    {Key::MoveToStartOfLine, Key::SelectStartOfLine, CaretMove::LineStart},
    {Key::MoveToEndOfLine, Key::SelectEndOfLine, CaretMove::LineEnd},
    {Key::MoveToPreviousPage, Key::SelectPreviousPage, CaretMove::PageUp},
    {Key::MoveToNextPage, Key::SelectNextPage, CaretMove::PageDown},
    {Key::MoveToStartOfDocument, Key::SelectStartOfDocument, CaretMove::TextStart},
    {Key::MoveToEndOfDocument, Key::SelectEndOfDocument, CaretMove::TextEnd},
};

struct DeleteKey
{
    Key key;
    CaretMove way;
};

constexpr DeleteKey deleteKeys[] = {
    {Key::Delete, CaretMove::Next},
    {Key::DeleteStartOfWord, CaretMove::WordPrevious},
    {Key::DeleteEndOfWord, CaretMove::WordNext},
};

struct CommandKey
{
    Key key;
    void (*run)(RichEdit &);
    bool writes;
};

constexpr CommandKey commandKeys[] = {
    {Key::Copy, [](RichEdit &box) { box.copy(); }, false},
    {Key::SelectAll, [](RichEdit &box) { box.selectAll(); }, false},
    {Key::Find, [](RichEdit &box) { box.openFindBar(); }, false},
    {Key::Cut, [](RichEdit &box) { box.cut(); }, true},
    {Key::Paste, [](RichEdit &box) { box.paste(); }, true},
    {Key::Undo, [](RichEdit &box) { box.undo(); }, true},
    {Key::Redo, [](RichEdit &box) { box.redo(); }, true},
};

/// Outside macOS the toolkit has no standard key for it.
bool isBackspace(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Backspace &&
           (event.modifiers() & ~(Qt::ShiftModifier | Qt::GroupSwitchModifier)) == Qt::NoModifier;
}

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// Typed characters, and not a command with a letter in it.
bool isTyping(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool command =
        modifiers == Qt::ControlModifier || modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    return !event.text().isEmpty() && !command &&
           (event.text().front().isPrint() || event.text().front().isSurrogate() ||
            event.text().front().category() == QChar::Other_Format);
}

} // namespace

bool RichEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const auto is = [key](const auto &each) { return key->matches(each.key); };
        if (std::ranges::any_of(commandKeys, is) ||
            (!m_readOnly && (isBackspace(*key) || std::ranges::any_of(deleteKeys, is)))) {
            event->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void RichEdit::keyPressEvent(QKeyEvent *event)
{
    if (runCommand(event) || moveCaret(event)) {
        return;
    }
    if (isEnter(*event)) {
        if (!m_readOnly && event->modifiers().testFlag(Qt::ShiftModifier)) {
            type(u"\n");
        } else if (!m_readOnly) {
            Q_EMIT returnPressed();
        }
        return;
    }
    if (m_readOnly) {
        event->ignore();
        return;
    }
    if (isBackspace(*event)) {
        deleteTowards(CaretMove::Previous);
        return;
    }
    for (const DeleteKey &each : deleteKeys) {
        if (event->matches(each.key)) {
            deleteTowards(each.way);
            return;
        }
    }
    if (isTyping(*event)) {
        type(event->text());
    } else {
        event->ignore();
    }
}

bool RichEdit::runCommand(QKeyEvent *event)
{
    for (const CommandKey &each : commandKeys) {
        if (event->matches(each.key) && !(each.writes && m_readOnly)) {
            each.run(*this);
            return true;
        }
    }
    const bool next = event->matches(QKeySequence::FindNext);
    if (m_findBar != nullptr && (next || event->matches(QKeySequence::FindPrevious))) {
        find(!next, true);
        return true;
    }
    return false;
}

bool RichEdit::moveCaret(QKeyEvent *event)
{
    for (const MoveKey &each : moveKeys) {
        const bool extend = event->matches(each.select);
        if (!extend && !event->matches(each.move)) {
            continue;
        }
        m_caretWanted = true;
        m_selection.move(each.way, extend, viewport()->height() - fontMetrics().height());
        m_view.show(m_selection.caret());
        selectionWasChanged();
        userScrolled();
        if (extend && QApplication::clipboard()->supportsSelection() && hasSelection()) {
            QApplication::clipboard()->setMimeData(
                new RichMime(m_document.copy(selectionStart(), selectionEnd())), QClipboard::Selection);
        }
        return true;
    }
    return false;
}

void RichEdit::type(QStringView text)
{
    const qsizetype from = selectionStart();
    const qsizetype behind = m_editing.replace(from, selectionEnd(), text);
    textWasChanged(m_document.placeOf(from).paragraph);
    select(behind, behind);
    m_view.show(m_selection.caret());
    showNow();
}

void RichEdit::deleteTowards(CaretMove move)
{
    if (m_selection.isEmpty()) {
        m_selection.move(move, true, 0);
    }
    type({});
}

void RichEdit::copy() const
{
    if (hasSelection()) {
        QApplication::clipboard()->setMimeData(
            new RichMime(m_document.copy(selectionStart(), selectionEnd())));
    }
}

void RichEdit::cut()
{
    if (!m_readOnly && hasSelection()) {
        copy();
        type({});
    }
}

/// Text only: what one writes has one look.
void RichEdit::paste()
{
    if (const QString text = QApplication::clipboard()->text(); !m_readOnly && !text.isEmpty()) {
        type(text);
    }
}

void RichEdit::takeStep(qsizetype behind)
{
    textWasChanged(0);
    select(behind, behind);
    m_view.show(m_selection.caret());
    showNow();
}

void RichEdit::undo()
{
    if (m_editing.canUndo()) {
        takeStep(m_editing.undo());
    }
}

void RichEdit::redo()
{
    if (m_editing.canRedo()) {
        takeStep(m_editing.redo());
    }
}

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

void RichEdit::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_dragging) {
        return;
    }
    endDrag();
    if (hasSelection()) {
        if (QApplication::clipboard()->supportsSelection()) {
            QApplication::clipboard()->setMimeData(
                new RichMime(m_document.copy(selectionStart(), selectionEnd())), QClipboard::Selection);
        }
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
            QToolTip::showText(help->globalPos(), link.toDisplayString().toHtmlEscaped(), viewport());
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

void RichEdit::inputMethodEvent(QInputMethodEvent *event)
{
    if (m_readOnly) {
        event->ignore();
        return;
    }
    m_layout.setPreedit({}, {});
    m_preeditCaret = 0;
    const bool removes = !event->preeditString().isEmpty() && hasSelection();
    if (!event->commitString().isEmpty() || event->replacementLength() > 0) {
        if (event->replacementLength() > 0) {
            const qsizetype from = caret() + event->replacementStart();
            select(from, from + event->replacementLength());
        }
        type(event->commitString());
    } else if (removes) {
        type({});
    }
    if (!event->preeditString().isEmpty()) {
        m_layout.setPreedit(m_selection.caret(), event->preeditString());
        m_preeditCaret = event->preeditString().size();
        for (const QInputMethodEvent::Attribute &attribute : event->attributes()) {
            if (attribute.type == QInputMethodEvent::Cursor) {
                m_preeditCaret = attribute.start;
            }
        }
    }
    showNow();
    event->accept();
}

QVariant RichEdit::inputMethodQuery(Qt::InputMethodQuery query) const
{
    const Place caret = m_selection.caret();
    switch (query) {
    case Qt::ImEnabled:
        return !m_readOnly;
    case Qt::ImFont:
        return font();
    case Qt::ImCursorRectangle: {
        auto &self = const_cast<RichEdit &>(*this); // shaping what is asked about shows nothing
        return self.caretRectAt(caret).translated(viewport()->pos());
    }
    case Qt::ImSurroundingText:
        return m_document.paragraph(caret.paragraph).text().toString();
    case Qt::ImCursorPosition:
        return static_cast<int>(caret.offset);
    case Qt::ImAnchorPosition:
        return static_cast<int>(
            m_selection.anchor().paragraph == caret.paragraph ? m_selection.anchor().offset : caret.offset);
    case Qt::ImCurrentSelection:
        return selectedText();
    default:
        return QAbstractScrollArea::inputMethodQuery(query);
    }
}

void RichEdit::openFindBar()
{
    if (m_findBar == nullptr) {
        m_findBar = new FindBar(this);
        connect(m_findBar, &FindBar::wordsChanged, this, [this] { find(true, false); });
        connect(m_findBar, &FindBar::nextAsked, this, [this] { find(false, true); });
        connect(m_findBar, &FindBar::previousAsked, this, [this] { find(true, true); });
        connect(m_findBar, &FindBar::closed, this, [this] {
            setFocus();
            placeFindBar();
            viewport()->update();
        });
    }
    const Place from = m_selection.from();
    QString seed;
    if (m_selection.to().paragraph == from.paragraph &&
        m_selection.to().offset - from.offset <= longestSeed) {
        seed = m_document.paragraph(from.paragraph)
                   .text()
                   .sliced(from.offset, m_selection.to().offset - from.offset)
                   .toString();
    }
    const bool typable = !seed.contains(QChar(pictureCharacter)) && !seed.contains(QChar(lineBreakCharacter));
    m_findBar->open(typable ? seed : QString());
    placeFindBar();
    viewport()->update();
}

/// Above the text, so that it hides nothing.
void RichEdit::placeFindBar()
{
    if (m_findBar != nullptr && m_findBar->isVisibleTo(this)) {
        setViewportMargins(0, m_findBar->sizeHint().height(), 0, 0);
        const QRect text = viewport()->geometry();
        m_findBar->setGeometry(text.left(), frameWidth(), text.width(), m_findBar->sizeHint().height());
    } else {
        setViewportMargins({});
    }
}

/// The found words become the selection. At one end of the text it goes on from the other.
void RichEdit::find(bool backwards, bool again)
{
    const QString words = m_findBar->words();
    Place from = backwards ? m_selection.from() : m_selection.to();
    if (!again) { // what is found already may still be right with one more letter
        from = {m_selection.from().paragraph, m_selection.from().offset + words.size()};
    }
    auto found = findText(m_document, words, from, backwards);
    if (!found) {
        found = findText(m_document, words, backwards ? m_document.end() : Place(), backwards);
    }
    m_findBar->showFound(found || words.isEmpty());
    if (found) {
        m_selection.select(found->from, {found->from.paragraph, found->from.offset + found->length});
        m_view.show(m_selection.caret());
        selectionWasChanged();
        userScrolled();
    }
    viewport()->update();
}
