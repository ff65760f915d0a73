#pragma once

#include "richtext/paragraph.h"
#include "richtext/text_format.h"

#include <QHash>
#include <QImage>
#include <QStringList>

#include <functional>
#include <memory>
#include <tuple>
#include <vector>

class DocumentImport;

/// A picture in a text. It carries the code that it stands for, so that copying as text gives the code back,
/// and a name for those who hear the text instead of seeing it.
struct Picture
{
    QImage image;
    QString code;
    QString name = {}; ///< empty: the code will do

    [[nodiscard]] const QString &spoken() const { return name.isEmpty() ? code : name; }
};

/// Rich text: paragraphs of runs, and the tables that runs refer to. There is always at least one paragraph.
/// Positions count characters, a picture as one, and one line feed between paragraphs.
/// Appending costs the length of what is appended. Tables only grow: a document that lives long sees few
/// formats.
class RichDocument
{
public:
    RichDocument();

    [[nodiscard]] qsizetype paragraphCount() const { return static_cast<qsizetype>(m_paragraphs.size()); }
    [[nodiscard]] const Paragraph &paragraph(qsizetype index) const
    {
        return m_paragraphs[std::size_t(index)];
    }

    /// Where the last paragraph ends: the number of characters.
    [[nodiscard]] qsizetype length() const { return m_length; }

    [[nodiscard]] const TextFormat &format(quint16 number) const { return m_formats[number]; }
    [[nodiscard]] const ParagraphFormat &paragraphFormat(quint16 number) const
    {
        return m_paragraphFormats[number];
    }
    [[nodiscard]] const Picture &picture(quint16 number) const { return *m_pictures[number]; }
    [[nodiscard]] const QStringList &fonts() const { return m_fonts; }
    [[nodiscard]] std::size_t formatCount() const { return m_formats.size(); }

    /// The number of the entry in its table; a new entry when there is none like it. A full table gives the
    /// number of its first entry (for pictures 0, which is none).
    [[nodiscard]] quint16 fontNumber(const QString &family);
    [[nodiscard]] quint16 formatNumber(const TextFormat &format);
    [[nodiscard]] quint16 paragraphFormatNumber(const ParagraphFormat &format);
    [[nodiscard]] quint16 pictureNumber(const std::shared_ptr<const Picture> &picture);

    /// The text between two positions: codes for pictures, line feeds for paragraph ends and line breaks.
    [[nodiscard]] QString plainText(qsizetype from, qsizetype to) const;
    [[nodiscard]] QString plainText() const { return plainText(0, m_length); }

    void clear();

    /// A paragraph behind the last one, made with this document's numbers.
    void appendParagraph(Paragraph paragraph);
    /// Puts another paragraph in the place of the last one.
    void replaceLast(Paragraph paragraph);

    /// Puts the whole of another document in at the position. Its first paragraph joins the one that is
    /// there, and what stood behind the position follows its last one.
    void insert(qsizetype position, const RichDocument &other);

    /// Puts the whole of another document behind the last paragraph, as paragraphs of their own; in the place
    /// of an only paragraph that is empty. One of very many characters becomes several, without space between
    /// them: a paragraph is the least that can be laid out.
    void append(const RichDocument &other);

    void remove(qsizetype from, qsizetype to);

    /// A stretch of one paragraph that a picture takes the place of.
    struct PicturePlace
    {
        qsizetype position;
        qsizetype length;
        quint16 picture; ///< its number here
    };
    /// All at once; the places are in order and apart from each other. Pictures look like the first of the
    /// characters that they replace.
    void putPictures(const std::vector<PicturePlace> &places);

    /// The part between two positions, as a document.
    [[nodiscard]] RichDocument copy(qsizetype from, qsizetype to) const;

    /// Changes the look of the characters between two positions, or of the paragraphs that they touch.
    void changeFormats(qsizetype from, qsizetype to, const std::function<void(TextFormat &)> &change);
    void changeParagraphFormats(qsizetype from, qsizetype to,
                                const std::function<void(ParagraphFormat &)> &change);

    /// Where a position lies.
    struct Place
    {
        qsizetype paragraph = 0;
        qsizetype offset = 0; ///< in the paragraph

        friend bool operator==(const Place &, const Place &) = default;
        friend bool operator<(const Place &one, const Place &other)
        {
            return std::tie(one.paragraph, one.offset) < std::tie(other.paragraph, other.offset);
        }
    };
    /// Positions outside the text are taken as its nearest end.
    [[nodiscard]] Place placeOf(qsizetype position) const;
    /// Where a paragraph starts.
    [[nodiscard]] qsizetype positionOf(qsizetype paragraph) const;
    [[nodiscard]] qsizetype positionOf(Place place) const
    {
        return positionOf(place.paragraph) + place.offset;
    }
    [[nodiscard]] Place end() const { return {paragraphCount() - 1, m_paragraphs.back().length()}; }

private:
    friend class DocumentImport;

    [[nodiscard]] std::vector<Paragraph> piecesOf(const Paragraph &whole, DocumentImport &import);
    /// Puts new paragraphs in the place of old ones.
    void replace(qsizetype first, qsizetype count, std::vector<Paragraph> paragraphs);

    std::vector<Paragraph> m_paragraphs;
    qsizetype m_length = 0;
    QStringList m_fonts;
    std::vector<TextFormat> m_formats;
    QHash<TextFormat, quint16> m_formatNumbers;
    std::vector<ParagraphFormat> m_paragraphFormats;
    std::vector<std::shared_ptr<const Picture>> m_pictures; ///< the first is none
    QHash<const Picture *, quint16> m_pictureNumbers;
};
