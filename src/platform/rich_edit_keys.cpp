#include "platform/find_bar.h"
#include "platform/rich_edit.h"
#include "platform/rich_mime.h"
#include "richtext/text_search.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

namespace {

using Key = QKeySequence::StandardKey;

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
        if (extend) {
            offerSelection();
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
