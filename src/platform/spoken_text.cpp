#include "platform/spoken_text.h"

#include <algorithm>

namespace {

constexpr qsizetype blockSize = 256;

} // namespace

void SpokenText::takeChanged(qsizetype firstParagraph)
{
    const auto valid = static_cast<std::size_t>(firstParagraph / blockSize + 1);
    m_blockStarts.resize(std::min(m_blockStarts.size(), valid));
}

qsizetype SpokenText::lengthOf(qsizetype paragraph) const
{
    const Paragraph &one = m_document.paragraph(paragraph);
    qsizetype length = one.length();
    for (const Run &run : one.runs()) {
        if (run.picture != 0) {
            length += m_document.picture(run.picture).spoken().size() - 1;
        }
    }
    return length;
}

qsizetype SpokenText::startOf(qsizetype paragraph) const
{
    const auto block = static_cast<std::size_t>(paragraph / blockSize);
    if (m_blockStarts.empty()) {
        m_blockStarts.push_back(0);
    }
    while (m_blockStarts.size() <= block) {
        const auto first = static_cast<qsizetype>(m_blockStarts.size() - 1) * blockSize;
        qsizetype start = m_blockStarts.back();
        for (qsizetype each = first; each < first + blockSize; ++each) {
            start += lengthOf(each) + 1;
        }
        m_blockStarts.push_back(start);
    }
    qsizetype start = m_blockStarts[block];
    for (qsizetype each = static_cast<qsizetype>(block) * blockSize; each < paragraph; ++each) {
        start += lengthOf(each) + 1;
    }
    return start;
}

qsizetype SpokenText::length() const
{
    const qsizetype last = m_document.paragraphCount() - 1;
    return startOf(last) + lengthOf(last);
}

QString SpokenText::paragraphText(qsizetype paragraph) const
{
    QString text;
    qsizetype start = 0;
    for (const Run &run : m_document.paragraph(paragraph).runs()) {
        text += run.picture != 0 ? QStringView(m_document.picture(run.picture).spoken())
                                 : m_document.paragraph(paragraph).text().sliced(start, run.end - start);
        start = run.end;
    }
    return text.replace(QChar(lineBreakCharacter), u' ');
}

qsizetype SpokenText::offsetOf(Place place) const
{
    qsizetype offset = startOf(place.paragraph) + place.offset;
    for (const Run &run : m_document.paragraph(place.paragraph).runs()) {
        if (run.picture != 0 && qsizetype(run.end) <= place.offset) {
            offset += m_document.picture(run.picture).spoken().size() - 1;
        }
    }
    return offset;
}

SpokenText::Place SpokenText::placeAt(qsizetype offset) const
{
    const qsizetype last = m_document.paragraphCount() - 1;
    (void)startOf(last); // so that all blocks are counted
    const auto after = std::ranges::upper_bound(m_blockStarts, std::max(offset, qsizetype(0)));
    const auto block = static_cast<qsizetype>(after - m_blockStarts.begin()) - 1; // the first starts at 0
    qsizetype paragraph = std::min(block * blockSize, last);
    qsizetype left = std::max(offset - m_blockStarts[std::size_t(block)], qsizetype(0));
    for (qsizetype length = 0; paragraph < last && left > (length = lengthOf(paragraph)); ++paragraph) {
        left -= length + 1;
    }
    qsizetype start = 0;
    for (const Run &run : m_document.paragraph(paragraph).runs()) {
        const qsizetype plain = run.end - start;
        const qsizetype spoken = run.picture != 0 ? m_document.picture(run.picture).spoken().size() : plain;
        if (left < spoken) {
            return {paragraph, run.picture != 0 ? start : start + left};
        }
        left -= spoken;
        start = run.end;
    }
    return {paragraph, start};
}

QString SpokenText::text(qsizetype from, qsizetype to) const
{
    const qsizetype begin = std::max(from, qsizetype(0));
    qsizetype paragraph = placeAt(begin).paragraph;
    const qsizetype first = startOf(paragraph);
    QString text;
    for (; paragraph < m_document.paragraphCount() && first + text.size() < to; ++paragraph) {
        text += paragraphText(paragraph);
        if (paragraph + 1 < m_document.paragraphCount()) {
            text += u'\n';
        }
    }
    return text.mid(begin - first, std::max(to - begin, qsizetype(0)));
}
