#include "platform/rich_layout.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr qsizetype blockSize = 256;
constexpr std::size_t manyShapes = 256;

} // namespace

RichLayout::RichLayout(const RichDocument &document) : m_document(document), m_looks(document)
{
    setBaseFont(QFont());
}

void RichLayout::setBaseFont(const QFont &font)
{
    m_looks.setBaseFont(font);
    const QFontMetricsF metrics(font);
    m_characterWidth = metrics.averageCharWidth();
    m_lineHeight = static_cast<quint32>(std::ceil(metrics.height()));
    takeChanged(0);
}

void RichLayout::setWidth(int width)
{
    if (width != m_width) {
        m_width = std::max(width, 1);
        estimateAll();
    }
}

void RichLayout::takeCleared()
{
    m_looks.forget();
    takeChanged(0);
}

void RichLayout::takeChanged(qsizetype first)
{
    if (first < m_count) {
        std::erase_if(m_shaped, [first](const auto &shape) { return shape.first >= first; });
    }
    m_count = m_document.paragraphCount();
    const auto count = static_cast<std::size_t>(m_count);
    m_measures.resize(std::min(std::size_t(first), count));
    // Blocks behind the change are summed up anew, and so is the one that it falls into.
    const auto block = static_cast<std::size_t>(first / blockSize);
    if (first < static_cast<qsizetype>(m_blocks.size()) * blockSize) {
        for (std::size_t old = block; old < m_blocks.size(); ++old) {
            m_total -= m_blocks[old];
        }
        m_blocks.resize(block);
        for (std::size_t index = block * blockSize; index < m_measures.size(); ++index) {
            m_blocks.resize(block + 1);
            m_blocks.back() += m_measures[index].height;
            m_total += m_measures[index].height;
        }
    }
    for (std::size_t index = m_measures.size(); index < count; ++index) {
        const Paragraph &paragraph = m_document.paragraph(static_cast<qsizetype>(index));
        const ParagraphFormat &format = m_document.paragraphFormat(paragraph.format());
        m_space = static_cast<quint32>(std::max(twipsToPixels(format.spaceBefore + format.spaceAfter), 0));
        const double width = std::min(static_cast<double>(paragraph.length()) * m_characterWidth, 1e9);
        const auto textWidth = static_cast<quint32>(width);
        m_measures.push_back({textWidth, estimatedHeight(textWidth)});
        m_blocks.resize(index / blockSize + 1);
        m_blocks.back() += m_measures.back().height;
        m_total += m_measures.back().height;
    }
}

quint32 RichLayout::estimatedHeight(quint32 textWidth) const
{
    return (textWidth / static_cast<quint32>(m_width) + 1) * m_lineHeight + m_space;
}

void RichLayout::estimateAll()
{
    m_total = 0;
    std::ranges::fill(m_blocks, 0);
    for (std::size_t index = 0; index < m_measures.size(); ++index) {
        m_measures[index].height = estimatedHeight(m_measures[index].textWidth);
        m_blocks[index / blockSize] += m_measures[index].height;
        m_total += m_measures[index].height;
    }
}

void RichLayout::setHeight(qsizetype paragraph, quint32 height)
{
    quint32 &known = m_measures[std::size_t(paragraph)].height;
    const qint64 change = qint64(height) - known;
    known = height;
    m_blocks[std::size_t(paragraph / blockSize)] += change;
    m_total += change;
}

qint64 RichLayout::topOf(qsizetype paragraph) const
{
    qint64 top = 0;
    const qsizetype block = paragraph / blockSize;
    for (qsizetype before = 0; before < block; ++before) {
        top += m_blocks[std::size_t(before)];
    }
    for (qsizetype before = block * blockSize; before < paragraph; ++before) {
        top += m_measures[std::size_t(before)].height;
    }
    return top;
}

RichLayout::Spot RichLayout::spotAt(qint64 y) const
{
    qint64 left = std::max(y, qint64(0));
    std::size_t block = 0;
    while (block + 1 < m_blocks.size() && left >= m_blocks[block]) {
        left -= m_blocks[block++];
    }
    auto paragraph = static_cast<qsizetype>(block) * blockSize;
    while (paragraph + 1 < m_count && left >= m_measures[std::size_t(paragraph)].height) {
        left -= m_measures[std::size_t(paragraph++)].height;
    }
    return {paragraph, static_cast<int>(std::min(left, qint64(std::numeric_limits<int>::max())))};
}

const ShapedParagraph &RichLayout::shaped(qsizetype paragraph)
{
    auto &shape = m_shaped[paragraph];
    if (!shape) {
        shape = std::make_unique<ShapedParagraph>(m_document, m_document.paragraph(paragraph), m_looks);
        if (!m_preedit.isEmpty() && m_preeditPlace.paragraph == paragraph) {
            shape->setPreedit(std::min(m_preeditPlace.offset, shape->length()), m_preedit);
        }
    }
    if (shape->width() != m_width) {
        shape->breakLines(m_width);
    }
    setHeight(paragraph, static_cast<quint32>(shape->height()));
    return *shape;
}

void RichLayout::setPreedit(RichDocument::Place place, const QString &text)
{
    m_shaped.erase(m_preeditPlace.paragraph);
    m_shaped.erase(place.paragraph);
    m_preeditPlace = place;
    m_preedit = text;
}

void RichLayout::keepOnly(qsizetype first, qsizetype last)
{
    if (m_shaped.size() > manyShapes) {
        std::erase_if(m_shaped, [&](const auto &shape) { return shape.first < first || shape.first > last; });
    }
}
