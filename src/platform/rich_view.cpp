#include "platform/rich_view.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int farAway = 20; // views; beyond, nothing between is measured

} // namespace

void RichView::setSize(QSize size)
{
    m_size = size;
    const int width = std::max(size.width() - 2 * margin, 1);
    if (width == m_layout.width() || m_top.y <= 0) {
        m_layout.setWidth(width);
        return;
    }
    // The line at the top stays there, wherever it gets to in its paragraph.
    const ShapedParagraph *top = &m_layout.shaped(m_top.paragraph);
    const qsizetype start = top->lineStart(top->lineBelow(m_top.y));
    const int inside = m_top.y - top->caretRect(start).top();
    m_layout.setWidth(width);
    top = &m_layout.shaped(m_top.paragraph);
    const QRect line = top->caretRect(start);
    m_top.y = line.top() + std::min(inside, line.height() - 1);
}

void RichView::takeChanged()
{
    if (m_top.paragraph >= m_layout.document().paragraphCount()) {
        m_top = {0, -margin};
    }
}

qint64 RichView::value() const
{
    return m_layout.topOf(m_top.paragraph) + m_top.y + margin;
}

qint64 RichView::maximum() const
{
    return std::max(m_layout.totalHeight() + qint64(2) * margin - m_size.height(), qint64(0));
}

void RichView::moveBy(qint64 pixels)
{
    if (m_atEnd) {
        fillFromEnd(); // the end may be another than the one that was shown
    }
    if (std::abs(pixels) > qint64(farAway) * std::max(m_size.height(), 1)) {
        toValue(value() + pixels);
        return;
    }
    m_atEnd = false;
    m_top.y += static_cast<int>(pixels);
    normalise();
}

void RichView::toValue(qint64 value)
{
    m_atEnd = value >= maximum();
    m_top = m_layout.spotAt(value - margin);
    if (value < margin) {
        m_top.y = static_cast<int>(value) - margin;
    }
}

/// Has the top inside its paragraph again.
void RichView::normalise()
{
    while (m_top.y < 0 && m_top.paragraph > 0) {
        m_top.y += m_layout.heightOf(--m_top.paragraph);
    }
    const qsizetype last = m_layout.document().paragraphCount() - 1;
    while (m_top.paragraph < last) {
        const int height = m_layout.heightOf(m_top.paragraph);
        if (m_top.y < height) {
            break;
        }
        m_top.y -= height;
        ++m_top.paragraph;
    }
    if (m_top.paragraph == 0) {
        m_top.y = std::max(m_top.y, -margin);
    }
}

void RichView::show(Place place)
{
    settle();
    const QRect caret = m_layout.shaped(place.paragraph).caretRect(place.offset);
    const auto row = std::ranges::find(m_rows, place.paragraph, &Row::paragraph);
    if (row != m_rows.end()) {
        const int top = row->top + caret.top();
        const int tooLow = row->top + caret.bottom() + 1 + margin - m_size.height();
        if (tooLow > 0) {
            moveBy(std::min(tooLow, top));
        } else if (top < 0) {
            moveBy(top);
        }
        return;
    }
    const bool above = place.paragraph < m_top.paragraph;
    m_atEnd = false;
    m_top = {place.paragraph, above ? caret.top() : caret.bottom() + 1 + margin - m_size.height()};
    normalise();
}

void RichView::settle()
{
    if (!m_atEnd) {
        fillFromTop();
    }
    if (m_atEnd) {
        fillFromEnd();
    }
    m_layout.keepOnly(m_rows.front().paragraph, m_rows.back().paragraph);
}

void RichView::fillFromTop()
{
    normalise();
    m_rows.clear();
    int y = -m_top.y;
    const qsizetype count = m_layout.document().paragraphCount();
    for (qsizetype paragraph = m_top.paragraph; paragraph < count; ++paragraph) {
        if (y >= m_size.height() && !m_rows.empty()) {
            return;
        }
        m_rows.push_back({paragraph, y});
        y += m_layout.heightOf(paragraph);
    }
    m_atEnd = y + margin <= m_size.height();
}

/// From the last paragraph upwards; a text that does not fill the view starts at its top.
void RichView::fillFromEnd()
{
    m_rows.clear();
    qsizetype paragraph = m_layout.document().paragraphCount();
    int y = m_size.height() - margin;
    while (paragraph > 0 && (y > 0 || m_rows.empty())) {
        y -= m_layout.heightOf(--paragraph);
        m_rows.push_back({paragraph, y});
    }
    std::ranges::reverse(m_rows);
    m_top = {paragraph, -y};
    if (paragraph == 0 && y > margin) {
        m_top.y = -margin;
        for (Row &row : m_rows) {
            row.top -= y - margin;
        }
    }
}

const RichView::Row *RichView::rowAt(int y) const
{
    if (m_rows.empty()) {
        return nullptr;
    }
    const auto after = std::ranges::upper_bound(m_rows, y, {}, &Row::top);
    return after == m_rows.begin() ? &m_rows.front() : &*std::prev(after);
}

RichView::Place RichView::placeAt(QPoint point)
{
    const Row *row = rowAt(point.y());
    if (row == nullptr) {
        return {};
    }
    const ShapedParagraph &shape = m_layout.shaped(row->paragraph);
    return {row->paragraph, shape.offsetAt(point - QPoint(margin, row->top))};
}

QRect RichView::caretRect(Place place)
{
    const auto row = std::ranges::find(m_rows, place.paragraph, &Row::paragraph);
    if (row == m_rows.end()) {
        return {};
    }
    return m_layout.shaped(place.paragraph).caretRect(place.offset).translated(margin, row->top);
}

const TextLink *RichView::linkAt(QPoint point)
{
    const Row *row = rowAt(point.y());
    return row == nullptr ? nullptr
                          : m_layout.shaped(row->paragraph).linkAt(point - QPoint(margin, row->top));
}
