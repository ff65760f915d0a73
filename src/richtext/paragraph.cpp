#include "richtext/paragraph.h"

#include <algorithm>
#include <new>

Paragraph::Paragraph(QStringView text, std::span<const Run> runs, quint16 format)
{
    if (text.isEmpty() && format == 0) {
        return;
    }
    const auto length = static_cast<std::size_t>(text.size());
    m_block = std::make_unique_for_overwrite<std::byte[]>(sizeof(Header) + runs.size_bytes() +
                                                          length * sizeof(char16_t));
    new (m_block.get()) Header{static_cast<quint32>(length), static_cast<quint32>(runs.size()), format};
    auto *runsStart = reinterpret_cast<Run *>(m_block.get() + sizeof(Header));
    std::uninitialized_copy(runs.begin(), runs.end(), runsStart);
    std::uninitialized_copy_n(text.utf16(), length, reinterpret_cast<char16_t *>(runsStart + runs.size()));
}

QStringView Paragraph::text() const
{
    if (!m_block) {
        return {};
    }
    const std::span<const Run> before = runs();
    return {reinterpret_cast<const char16_t *>(before.data() + before.size()), qsizetype(header().length)};
}

std::span<const Run> Paragraph::runs() const
{
    if (!m_block) {
        return {};
    }
    return {reinterpret_cast<const Run *>(m_block.get() + sizeof(Header)), header().runCount};
}

void ParagraphBuilder::append(QStringView text, quint16 format)
{
    if (text.isEmpty()) {
        return;
    }
    m_text.insert(m_text.end(), text.utf16(), text.utf16() + text.size());
    const auto end = static_cast<quint32>(m_text.size());
    if (!m_runs.empty() && m_runs.back().format == format && m_runs.back().picture == 0) {
        m_runs.back().end = end;
    } else {
        m_runs.push_back({end, format, 0});
    }
}

void ParagraphBuilder::appendPicture(quint16 picture, quint16 format)
{
    m_text.push_back(pictureCharacter);
    m_runs.push_back({static_cast<quint32>(m_text.size()), format, picture});
}

Paragraph ParagraphBuilder::take(quint16 paragraphFormat)
{
    Paragraph paragraph(QStringView(m_text.data(), static_cast<qsizetype>(m_text.size())), m_runs,
                        paragraphFormat);
    m_text.clear();
    m_runs.clear();
    return paragraph;
}
