#include "platform/rich_edit_accessible.h"

#include "platform/rich_edit.h"

#include <QAccessibleWidget>
#include <QTextBoundaryFinder>

namespace {

class RichEditAccessible final : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit RichEditAccessible(RichEdit *box) : QAccessibleWidget(box, QAccessible::EditableText) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = box().isReadOnly();
        state.editable = !box().isReadOnly();
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? spoken().text(0, spoken().length())
                                          : QAccessibleWidget::text(kind);
    }

    // The viewport is the text itself; a part is what is seen beside it.
    int childCount() const override { return static_cast<int>(parts().size()); }
    QAccessibleInterface *child(int index) const override
    {
        return QAccessible::queryAccessibleInterface(parts().value(index));
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return static_cast<int>(parts().indexOf(qobject_cast<QWidget *>(child->object())));
    }
    QAccessibleInterface *childAt(int x, int y) const override;

    // The text.
    int characterCount() const override { return static_cast<int>(spoken().length()); }
    QString text(int from, int to) const override { return spoken().text(from, to); }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType unit, int *from, int *to) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType unit, int *from,
                             int *to) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType unit, int *from,
                            int *to) const override;
    QString attributes(int offset, int *from, int *to) const override;

    // The caret and the selection; there is one at most.
    int cursorPosition() const override { return static_cast<int>(spoken().offsetOf(box().caretPlace())); }
    void setCursorPosition(int offset) override { setSelection(0, offset, offset); }
    int selectionCount() const override { return box().hasSelection() ? 1 : 0; }
    void selection(int index, int *from, int *to) const override;
    void addSelection(int from, int to) override { setSelection(0, from, to); }
    void setSelection(int index, int from, int to) override;
    void removeSelection(int index) override;

    // On the screen.
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int from, int to) override;

private:
    using Place = RichDocument::Place;

    [[nodiscard]] RichEdit &box() const { return *static_cast<RichEdit *>(widget()); }
    [[nodiscard]] const SpokenText &spoken() const { return box().spokenText(); }

    [[nodiscard]] QList<QWidget *> parts() const;

    struct Unit
    {
        qsizetype from;
        qsizetype to;
    };
    [[nodiscard]] Unit unitAt(qsizetype offset, QAccessible::TextBoundaryType type) const;
    QString give(Unit unit, int *from, int *to) const;
};

QList<QWidget *> RichEditAccessible::parts() const
{
    QList<QWidget *> parts;
    for (QObject *child : box().children()) {
        auto *part = qobject_cast<QWidget *>(child);
        if (part != nullptr && part != box().viewport() && !part->isWindow() && part->isVisibleTo(&box())) {
            parts += part;
        }
    }
    return parts;
}

QAccessibleInterface *RichEditAccessible::childAt(int x, int y) const
{
    const QPoint point = box().mapFromGlobal(QPoint(x, y));
    for (QWidget *part : parts()) {
        if (part->geometry().contains(point)) {
            return QAccessible::queryAccessibleInterface(part);
        }
    }
    return nullptr;
}

/// Messages are the units of lines and paragraphs; smaller ones are looked for inside a message. The line
/// feed behind a message belongs to it.
RichEditAccessible::Unit RichEditAccessible::unitAt(qsizetype offset,
                                                    QAccessible::TextBoundaryType type) const
{
    if (type == QAccessible::NoBoundary) {
        return {0, spoken().length()};
    }
    const qsizetype paragraph = spoken().placeAt(offset).paragraph;
    const qsizetype start = spoken().startOf(paragraph);
    const QString message = spoken().paragraphText(paragraph);
    const bool last = paragraph + 1 == box().document().paragraphCount();
    const Unit whole{start, start + message.size() + (last ? 0 : 1)};
    if (type == QAccessible::ParagraphBoundary || type == QAccessible::LineBoundary) {
        return whole;
    }
    const Place place = spoken().placeAt(offset);
    const Unit character{spoken().offsetOf(place), spoken().offsetOf({paragraph, place.offset + 1})};
    if (type == QAccessible::CharBoundary && character.to - character.from > 1) {
        return character; // a picture is its whole name
    }
    const auto kind = type == QAccessible::CharBoundary   ? QTextBoundaryFinder::Grapheme
                      : type == QAccessible::WordBoundary ? QTextBoundaryFinder::Word
                                                          : QTextBoundaryFinder::Sentence;
    const qsizetype inside = qBound(qsizetype(0), offset - start, message.size());
    if (inside == message.size()) {
        return {start + inside, whole.to};
    }
    QTextBoundaryFinder finder(kind, message);
    finder.setPosition(inside);
    const qsizetype from = finder.isAtBoundary() ? inside : finder.toPreviousBoundary();
    finder.setPosition(inside);
    const qsizetype to = finder.toNextBoundary();
    return {start + qMax(from, qsizetype(0)), start + (to < 0 ? message.size() : to)};
}

QString RichEditAccessible::give(Unit unit, int *from, int *to) const
{
    *from = static_cast<int>(unit.from);
    *to = static_cast<int>(unit.to);
    return spoken().text(unit.from, unit.to);
}

QString RichEditAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType unit, int *from,
                                         int *to) const
{
    return give(unitAt(offset, unit), from, to);
}

QString RichEditAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType unit, int *from,
                                             int *to) const
{
    const qsizetype start = unitAt(offset, unit).from;
    return give(start > 0 ? unitAt(start - 1, unit) : Unit{0, 0}, from, to);
}

QString RichEditAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType unit, int *from,
                                            int *to) const
{
    const qsizetype end = unitAt(offset, unit).to;
    return give(end < spoken().length() ? unitAt(end, unit) : Unit{end, end}, from, to);
}

QString RichEditAccessible::attributes(int offset, int *from, int *to) const
{
    const Place place = spoken().placeAt(offset);
    const RichDocument &document = box().document();
    const Paragraph &paragraph = document.paragraph(place.paragraph);
    qsizetype start = 0;
    for (const Run &run : paragraph.runs()) {
        if (place.offset < qsizetype(run.end)) {
            *from = static_cast<int>(spoken().offsetOf({place.paragraph, start}));
            *to = static_cast<int>(spoken().offsetOf({place.paragraph, run.end}));
            const TextFormat &format = document.format(run.format);
            return QString(u"font-size:" + QString::number(format.halfPoints / 2.0) + u"pt;font-weight:" +
                           (format.bold ? u"bold" : u"normal") + u";font-style:" +
                           (format.italic ? u"italic" : u"normal") + u";text-underline-style:" +
                           (format.underline ? u"solid" : u"none") + u';');
        }
        start = run.end;
    }
    *from = offset;
    *to = static_cast<int>(qMin(qsizetype(offset) + 1, qMax(spoken().length(), qsizetype(offset))));
    return {};
}

void RichEditAccessible::selection(int index, int *from, int *to) const
{
    *from = *to = 0;
    if (index == 0 && box().hasSelection()) {
        *from = static_cast<int>(spoken().offsetOf(qMin(box().anchorPlace(), box().caretPlace())));
        *to = static_cast<int>(spoken().offsetOf(qMax(box().anchorPlace(), box().caretPlace())));
    }
}

void RichEditAccessible::setSelection(int index, int from, int to)
{
    if (index == 0) {
        Place end = spoken().placeAt(to);
        if (from < to && spoken().offsetOf(end) < to) {
            ++end.offset; // the end is inside a picture's name: the picture is selected
        }
        box().select(spoken().placeAt(from), end);
        box().showPlace(box().caretPlace());
    }
}

void RichEditAccessible::removeSelection(int index)
{
    if (index == 0) {
        box().select(box().caretPlace(), box().caretPlace());
    }
}

QRect RichEditAccessible::characterRect(int offset) const
{
    const Place place = spoken().placeAt(offset);
    const QRect rect = box().caretRectAt(place);
    if (rect.isEmpty()) {
        return {};
    }
    const QRect behind = box().caretRectAt({place.paragraph, place.offset + 1});
    const int width = behind.top() == rect.top() ? qAbs(behind.left() - rect.left()) : 1;
    const int left = behind.top() == rect.top() ? qMin(behind.left(), rect.left()) : rect.left();
    return {box().viewport()->mapToGlobal(QPoint(left, rect.top())), QSize(width, rect.height())};
}

int RichEditAccessible::offsetAtPoint(const QPoint &point) const
{
    const QPoint inside = box().viewport()->mapFromGlobal(point);
    return box().viewport()->rect().contains(inside)
               ? static_cast<int>(spoken().offsetOf(box().placeAt(inside)))
               : -1;
}

void RichEditAccessible::scrollToSubstring(int from, int to)
{
    box().showPlace(spoken().placeAt(to));
    box().showPlace(spoken().placeAt(from));
}

QAccessibleInterface *accessibleFor([[maybe_unused]] const QString &className, QObject *object)
{
    auto *box = qobject_cast<RichEdit *>(object);
    return box == nullptr ? nullptr : new RichEditAccessible(box);
}

} // namespace

void installRichEditAccessibility()
{
    QAccessible::installFactory(accessibleFor); // a factory that is there already is not added again
}

void announceAppended(RichEdit &box, qsizetype firstParagraph)
{
    if (QAccessible::isActive()) {
        const SpokenText &spoken = box.spokenText();
        const qsizetype start = qMax(spoken.startOf(firstParagraph) - 1, qsizetype(0)); // with its line feed
        QAccessibleTextInsertEvent event(&box, static_cast<int>(start), spoken.text(start, spoken.length()));
        QAccessible::updateAccessibility(&event);
    }
}

void announceCaret(RichEdit &box, bool selectionToo)
{
    if (!QAccessible::isActive()) {
        return;
    }
    const auto offset = [&box](RichDocument::Place place) {
        return static_cast<int>(box.spokenText().offsetOf(place));
    };
    const int caret = offset(box.caretPlace());
    if (selectionToo) {
        const int anchor = offset(box.anchorPlace());
        QAccessibleTextSelectionEvent event(&box, qMin(anchor, caret), qMax(anchor, caret));
        event.setCursorPosition(caret);
        QAccessible::updateAccessibility(&event);
    }
    QAccessibleTextCursorEvent event(&box, caret);
    QAccessible::updateAccessibility(&event);
}

void announceCleared(RichEdit &box, const QString &text)
{
    if (QAccessible::isActive() && !text.isEmpty()) {
        QAccessibleTextRemoveEvent event(&box, 0, text);
        QAccessible::updateAccessibility(&event);
    }
}
