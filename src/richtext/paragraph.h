#pragma once

#include <QStringView>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

/// Stands in a paragraph's text for a picture.
inline constexpr char16_t pictureCharacter = u'\uFFFC';
/// A line break inside a paragraph.
inline constexpr char16_t lineBreakCharacter = u'\u2028';

/// A stretch of one paragraph's characters that look alike.
struct Run
{
    quint32 end = 0;    ///< behind its last character, counted from the start of the paragraph
    quint16 format = 0; ///< index in the document's table of formats
    quint16 picture =
        0; ///< 0 for text; else the run is one picture character, and this its number in the document

    friend bool operator==(const Run &, const Run &) = default;
};

/// One paragraph: its text, the runs that cover it, and how it stands. It never changes, so one block of
/// memory holds all of it; to change a paragraph is to make another one.
class Paragraph
{
public:
    /// Without text.
    Paragraph() = default;
    /// The runs cover the text without gaps; the format is an index in the document's table.
    Paragraph(QStringView text, std::span<const Run> runs, quint16 format);

    [[nodiscard]] QStringView text() const;
    [[nodiscard]] std::span<const Run> runs() const;
    [[nodiscard]] quint16 format() const { return m_block ? header().format : quint16(0); }
    [[nodiscard]] qsizetype length() const { return m_block ? qsizetype(header().length) : 0; }

private:
    struct Header
    {
        quint32 length;
        quint32 runCount;
        quint16 format;
    };

    [[nodiscard]] const Header &header() const { return *reinterpret_cast<const Header *>(m_block.get()); }

    std::unique_ptr<std::byte[]>
        m_block; ///< the header, the runs, the text; none for an empty plain paragraph
};

/// Puts a paragraph together. Neighbours with the same look become one run.
class ParagraphBuilder
{
public:
    void append(QStringView text, quint16 format);
    void appendPicture(quint16 picture, quint16 format);
    /// A part of another paragraph, with other numbers for its formats and pictures.
    template <typename Renumber>
    void append(const Paragraph &source, qsizetype from, qsizetype to, Renumber renumber);

    [[nodiscard]] bool isEmpty() const { return m_text.empty(); }

    /// The paragraph, and an empty builder.
    [[nodiscard]] Paragraph take(quint16 paragraphFormat);

private:
    std::vector<char16_t> m_text;
    std::vector<Run> m_runs;
};

template <typename Renumber>
void ParagraphBuilder::append(const Paragraph &source, qsizetype from, qsizetype to, Renumber renumber)
{
    qsizetype start = 0;
    for (const Run &run : source.runs()) {
        const qsizetype first = qMax(start, from);
        const qsizetype last = qMin(qsizetype(run.end), to);
        start = run.end;
        if (first >= last) {
            continue;
        }
        const Run renumbered = renumber(run);
        if (renumbered.picture != 0) {
            appendPicture(renumbered.picture, renumbered.format);
        } else {
            append(source.text().sliced(first, last - first), renumbered.format);
        }
    }
}
