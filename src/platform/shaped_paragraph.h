#pragma once

#include "platform/text_looks.h"
#include "richtext/text_links.h"

#include <QTextLayout>

#include <span>
#include <vector>

class QPainter;

/// One paragraph, shaped once and broken into lines for a width. Everything is in pixels from its top left.
/// Links are found here, when a paragraph is about to be seen, and underlined.
class ShapedParagraph
{
public:
    /// The document must stay; the paragraph and the looks are only read here.
    ShapedParagraph(const RichDocument &document, const Paragraph &paragraph, TextLooks &looks);

    /// Text that is being composed and does not belong to the document yet. Places behind it are further on
    /// by its length.
    void setPreedit(qsizetype offset, const QString &text);

    /// Breaks the lines for another width. Does not shape again.
    void breakLines(int width);
    [[nodiscard]] int width() const { return m_width; }
    [[nodiscard]] int height() const { return m_height; }

    /// Marks are stretches that look otherwise, such as the selection. Text without a colour of its own gets
    /// the painter's pen.
    void draw(QPainter &painter, QPoint at, const QList<QTextLayout::FormatRange> &marks,
              const QRect &clip) const;

    /// The place between characters that is nearest to the point.
    [[nodiscard]] qsizetype offsetAt(QPoint point) const;
    [[nodiscard]] QRect caretRect(qsizetype offset) const;
    /// Null where there is none.
    [[nodiscard]] const TextLink *linkAt(QPoint point) const;
    [[nodiscard]] const TextLink *linkAround(qsizetype offset) const;

    /// For moving through the characters.
    [[nodiscard]] const QTextLayout &layout() const { return m_layout; }
    [[nodiscard]] qsizetype length() const { return m_layout.text().size(); }
    [[nodiscard]] int lineAt(qsizetype offset) const;
    /// The line at a height; the nearest one outside.
    [[nodiscard]] int lineBelow(int y) const;
    [[nodiscard]] int lineCount() const { return static_cast<int>(m_lines.size()); }
    [[nodiscard]] qsizetype lineStart(int line) const;
    [[nodiscard]] qsizetype lineEnd(int line) const;

private:
    struct Line
    {
        int top;
        int height;
    };
    struct PlacedPicture
    {
        int offset;
        quint16 number;
    };

    void addPicture(const Run &run, int at, TextLooks &looks, QList<QTextLayout::FormatRange> &formats);
    void addText(int from, int to, const QTextCharFormat &format,
                 QList<QTextLayout::FormatRange> &formats) const;
    [[nodiscard]] std::span<const PlacedPicture> picturesIn(const QTextLine &line) const;
    [[nodiscard]] int tallestPicture(const QTextLine &line) const;
    [[nodiscard]] QRect pictureRect(const PlacedPicture &picture, const QTextLine &line) const;
    void drawPicture(QPainter &painter, const PlacedPicture &picture, const QRect &rect,
                     const QList<QTextLayout::FormatRange> &marks) const;

    const RichDocument &m_document;
    ParagraphFormat m_format;
    QTextLayout m_layout;
    std::vector<Line> m_lines;
    std::vector<PlacedPicture> m_pictures;
    QList<TextLink> m_links;
    int m_width = -1;
    int m_height = 0;
};

/// Twips in pixels of the screen.
[[nodiscard]] int twipsToPixels(qint32 twips);
