#include "platform/rich_caret.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

bool isVertical(CaretMove move)
{
    return move == CaretMove::LineUp || move == CaretMove::LineDown || move == CaretMove::PageUp ||
           move == CaretMove::PageDown;
}

/// Words are left and right of each other as their paragraph runs.
CaretMove asTheTextRuns(CaretMove move, Qt::LayoutDirection direction)
{
    const bool leftIsBack = direction == Qt::LeftToRight;
    if (move == CaretMove::WordLeft) {
        return leftIsBack ? CaretMove::WordPrevious : CaretMove::WordNext;
    }
    if (move == CaretMove::WordRight) {
        return leftIsBack ? CaretMove::WordNext : CaretMove::WordPrevious;
    }
    return move;
}

int destination(const QTextLayout &layout, int from, CaretMove move)
{
    switch (move) {
    case CaretMove::Left:
        return layout.leftCursorPosition(from);
    case CaretMove::Right:
        return layout.rightCursorPosition(from);
    case CaretMove::Previous:
        return layout.previousCursorPosition(from);
    case CaretMove::Next:
        return layout.nextCursorPosition(from);
    case CaretMove::WordPrevious:
        return layout.previousCursorPosition(from, QTextLayout::SkipWords);
    case CaretMove::WordNext:
        return layout.nextCursorPosition(from, QTextLayout::SkipWords);
    default:
        return from;
    }
}

} // namespace

RichCaret::Place RichCaret::moved(Place from, CaretMove move, int pageHeight)
{
    if (!isVertical(move)) {
        m_column = -1;
    } else if (m_column < 0) {
        m_column = m_layout.shaped(from.paragraph).caretRect(from.offset).left();
    }
    switch (move) {
    case CaretMove::Left:
    case CaretMove::Right:
    case CaretMove::WordLeft:
    case CaretMove::WordRight:
    case CaretMove::Previous:
    case CaretMove::Next:
    case CaretMove::WordPrevious:
    case CaretMove::WordNext:
        return sideways(from, move);
    case CaretMove::LineUp:
        return lineAbove(from);
    case CaretMove::LineDown:
        return lineBelow(from);
    case CaretMove::PageUp:
        return vertically(from, -pageHeight);
    case CaretMove::PageDown:
        return vertically(from, pageHeight);
    case CaretMove::LineStart: {
        const ShapedParagraph &shape = m_layout.shaped(from.paragraph);
        return {from.paragraph, shape.lineStart(shape.lineAt(from.offset))};
    }
    case CaretMove::LineEnd: {
        const ShapedParagraph &shape = m_layout.shaped(from.paragraph);
        return {from.paragraph, shape.lineEnd(shape.lineAt(from.offset))};
    }
    case CaretMove::TextStart:
        return {};
    case CaretMove::TextEnd:
        return m_layout.document().end();
    case CaretMove::Stay:
        break;
    }
    return from;
}

RichCaret::Place RichCaret::behind(Place from) const
{
    return from.paragraph + 1 < m_layout.document().paragraphCount() ? Place{from.paragraph + 1, 0} : from;
}

RichCaret::Place RichCaret::before(Place from) const
{
    return from.paragraph > 0
               ? Place{from.paragraph - 1, m_layout.document().paragraph(from.paragraph - 1).length()}
               : from;
}

/// Within the paragraph as the layout says; at its end on to its neighbour.
RichCaret::Place RichCaret::sideways(Place from, CaretMove move)
{
    const QTextLayout &layout = m_layout.shaped(from.paragraph).layout();
    const CaretMove way = asTheTextRuns(move, layout.textOption().textDirection());
    const int to = destination(layout, static_cast<int>(from.offset), way);
    if (to != from.offset) {
        return {from.paragraph, to};
    }
    const bool leftIsBack = layout.textOption().textDirection() == Qt::LeftToRight;
    const bool forward = way == CaretMove::Next || way == CaretMove::WordNext ||
                         way == (leftIsBack ? CaretMove::Right : CaretMove::Left);
    return forward ? behind(from) : before(from);
}

/// In the line at that height, also where the column is behind its end.
qsizetype RichCaret::atColumn(const ShapedParagraph &shape, int y) const
{
    return std::min(shape.offsetAt({m_column, y}), shape.lineEnd(shape.lineBelow(y)));
}

RichCaret::Place RichCaret::lineAbove(Place from)
{
    const ShapedParagraph &shape = m_layout.shaped(from.paragraph);
    const int line = shape.lineAt(from.offset);
    if (line > 0) {
        return {from.paragraph, std::min<qsizetype>(shape.layout().lineAt(line - 1).xToCursor(m_column),
                                                    shape.lineEnd(line - 1))};
    }
    if (from.paragraph == 0) {
        return {};
    }
    const ShapedParagraph &above = m_layout.shaped(from.paragraph - 1);
    return {from.paragraph - 1, above.offsetAt({m_column, above.height()})};
}

RichCaret::Place RichCaret::lineBelow(Place from)
{
    const ShapedParagraph &shape = m_layout.shaped(from.paragraph);
    const int line = shape.lineAt(from.offset);
    if (line + 1 < shape.lineCount()) {
        return {from.paragraph, std::min<qsizetype>(shape.layout().lineAt(line + 1).xToCursor(m_column),
                                                    shape.lineEnd(line + 1))};
    }
    const Place next = behind(from);
    if (next == from) {
        return m_layout.document().end();
    }
    return {next.paragraph, atColumn(m_layout.shaped(next.paragraph), 0)};
}

/// Over whole paragraphs, to the line that is there.
RichCaret::Place RichCaret::vertically(Place from, int pixels)
{
    const QRect caret = m_layout.shaped(from.paragraph).caretRect(from.offset);
    int y = caret.center().y() + pixels;
    qsizetype paragraph = from.paragraph;
    while (y < 0 && paragraph > 0) {
        y += m_layout.heightOf(--paragraph);
    }
    const qsizetype last = m_layout.document().paragraphCount() - 1;
    while (paragraph < last && y >= m_layout.heightOf(paragraph)) {
        y -= m_layout.heightOf(paragraph++);
    }
    if (y < 0) {
        return {};
    }
    if (y >= m_layout.heightOf(paragraph)) {
        return m_layout.document().end();
    }
    return {paragraph, atColumn(m_layout.shaped(paragraph), y)};
}

RichCaret::Stretch RichCaret::wordAt(Place place) const
{
    const QStringView text = m_layout.document().paragraph(place.paragraph).text();
    const auto inWord = [text](qsizetype at) {
        return at >= 0 && at < text.size() && (text[at].isLetterOrNumber() || text[at].isSurrogate());
    };
    // Behind the last letter is still that word.
    const bool behind = place.offset > 0 &&
                        (place.offset == text.size() || (inWord(place.offset - 1) && !inWord(place.offset)));
    const qsizetype at = behind ? place.offset - 1 : place.offset;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text);
    finder.setPosition(at);
    const qsizetype from = finder.isAtBoundary() ? at : std::max(finder.toPreviousBoundary(), qsizetype(0));
    finder.setPosition(at);
    const qsizetype to = finder.toNextBoundary();
    return {{place.paragraph, from}, {place.paragraph, to < 0 ? text.size() : to}};
}

RichCaret::Stretch RichCaret::paragraphAt(Place place) const
{
    return {{place.paragraph, 0}, {place.paragraph, m_layout.document().paragraph(place.paragraph).length()}};
}
