#include "platform/shaped_paragraph.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

/// What is not said to stand elsewhere stands where its text begins.
Qt::Alignment toAlignment(ParagraphFormat::Alignment alignment, bool rightToLeft)
{
    switch (alignment) {
    case ParagraphFormat::Alignment::Left:
        return rightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    case ParagraphFormat::Alignment::Centre:
        return Qt::AlignHCenter;
    case ParagraphFormat::Alignment::Right:
        return Qt::AlignRight;
    case ParagraphFormat::Alignment::Justified:
        return Qt::AlignJustify;
    }
    return Qt::AlignLeft;
}

QSize sizeOf(const Picture &picture)
{
    return picture.image.deviceIndependentSize().toSize();
}

} // namespace

int twipsToPixels(qint32 twips)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const double dotsPerInch = screen != nullptr ? screen->logicalDotsPerInchY() : 96;
    return static_cast<int>(std::lround(twips * dotsPerInch / 1440));
}

ShapedParagraph::ShapedParagraph(const RichDocument &document, const Paragraph &paragraph, TextLooks &looks)
    : m_document(document), m_format(document.paragraphFormat(paragraph.format()))
{
    QString text = paragraph.text().toString();
    m_links = findLinks(text);
    QList<QTextLayout::FormatRange> formats;
    int start = 0;
    for (const Run &run : paragraph.runs()) {
        if (run.picture != 0) {
            text[start] = TextLooks::placeholder;
            addPicture(run, start, looks, formats);
        } else {
            addText(start, static_cast<int>(run.end), looks.of(run.format), formats);
        }
        start = static_cast<int>(run.end);
    }

    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const bool rightToLeft = text.isRightToLeft();
    option.setTextDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(toAlignment(m_format.alignment, rightToLeft));
    m_layout.setFont(looks.baseFont());
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);
    m_layout.setText(text);
    m_layout.setFormats(formats);
}

void ShapedParagraph::addPicture(const Run &run, int at, TextLooks &looks,
                                 QList<QTextLayout::FormatRange> &formats)
{
    formats += {at, 1, looks.ofPicture(run.format, run.picture)};
    m_pictures.push_back({at, run.picture});
}

/// Cut at the ends of the links in it, which are underlined.
void ShapedParagraph::addText(int from, int to, const QTextCharFormat &format,
                              QList<QTextLayout::FormatRange> &formats) const
{
    auto link = std::ranges::upper_bound(m_links, from, {}, &TextLink::end);
    while (from < to) {
        const bool inside = link != m_links.end() && link->from <= from;
        const qsizetype border = link == m_links.end() ? to : inside ? link->end() : link->from;
        const int stop = static_cast<int>(std::min(border, qsizetype(to)));
        formats += {from, stop - from, format};
        if (inside) {
            formats.back().format.setFontUnderline(true);
            ++link;
        }
        from = stop;
    }
}

void ShapedParagraph::setPreedit(qsizetype offset, const QString &text)
{
    const int at = static_cast<int>(offset);
    const int length = static_cast<int>(text.size());
    QList<QTextLayout::FormatRange> formats = m_layout.formats();
    QTextCharFormat composed = formats.isEmpty() ? QTextCharFormat() : formats.back().format;
    for (QTextLayout::FormatRange &range : formats) {
        if (range.start >= at) {
            range.start += length;
        } else if (range.start + range.length > at) {
            range.length += length;
        }
    }
    composed.setFontLetterSpacing(0); // a picture's placeholder is spread
    composed.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    composed.setFontUnderline(true);
    formats += {at, length, composed};
    m_layout.setPreeditArea(at, text);
    m_layout.setFormats(formats);
}

void ShapedParagraph::breakLines(int width)
{
    m_width = width;
    m_lines.clear();
    const int left = twipsToPixels(m_format.leftIndent);
    int indent = left + twipsToPixels(m_format.firstLineIndent);
    int top = twipsToPixels(m_format.spaceBefore);
    m_layout.beginLayout();
    for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
        line.setLineWidth(std::max(width - indent, 1));
        const int textHeight = static_cast<int>(std::ceil(line.height()));
        const int height = std::max(textHeight, tallestPicture(line));
        const int textTop = top + (height - textHeight) / 2;
        line.setPosition(QPointF(indent, textTop));
        m_lines.push_back({top, height});
        top += height;
        indent = left;
    }
    m_layout.endLayout();
    m_height = top + twipsToPixels(m_format.spaceAfter);
}

std::span<const ShapedParagraph::PlacedPicture> ShapedParagraph::picturesIn(const QTextLine &line) const
{
    const int end = line.textStart() + line.textLength();
    const auto first = std::ranges::lower_bound(m_pictures, line.textStart(), {}, &PlacedPicture::offset);
    return {first, std::lower_bound(first, m_pictures.end(), end,
                                    [](const PlacedPicture &each, int at) { return each.offset < at; })};
}

int ShapedParagraph::tallestPicture(const QTextLine &line) const
{
    int tallest = 0;
    for (const PlacedPicture &picture : picturesIn(line)) {
        tallest = std::max(tallest, sizeOf(m_document.picture(picture.number)).height());
    }
    return tallest;
}

void ShapedParagraph::draw(QPainter &painter, QPoint at, const QList<QTextLayout::FormatRange> &marks,
                           const QRect &clip) const
{
    m_layout.draw(&painter, at, marks, clip);
    if (m_pictures.empty()) {
        return;
    }
    const int last = lineBelow(clip.bottom() - at.y());
    for (int number = lineBelow(clip.top() - at.y()); number <= last; ++number) {
        const QTextLine line = m_layout.lineAt(number);
        for (const PlacedPicture &picture : picturesIn(line)) {
            drawPicture(painter, picture, pictureRect(picture, line).translated(at), marks);
        }
    }
}

void ShapedParagraph::drawPicture(QPainter &painter, const PlacedPicture &picture, const QRect &rect,
                                  const QList<QTextLayout::FormatRange> &marks) const
{
    painter.drawImage(rect.topLeft(), m_document.picture(picture.number).image);
    for (const QTextLayout::FormatRange &mark : marks) {
        if (picture.offset >= mark.start && picture.offset < mark.start + mark.length) {
            QColor veil = mark.format.background().color();
            veil.setAlphaF(0.4F);
            painter.fillRect(rect, veil);
        }
    }
}

QRect ShapedParagraph::pictureRect(const PlacedPicture &picture, const QTextLine &line) const
{
    const double x = std::min(line.cursorToX(picture.offset), line.cursorToX(picture.offset + 1));
    const QSize size = sizeOf(m_document.picture(picture.number));
    const Line &place = m_lines[std::size_t(line.lineNumber())];
    return {QPoint(static_cast<int>(std::lround(x)), place.top + (place.height - size.height()) / 2), size};
}

int ShapedParagraph::lineBelow(int y) const
{
    const auto after = std::ranges::upper_bound(m_lines, y, {}, &Line::top);
    return std::max(static_cast<int>(after - m_lines.begin()) - 1, 0);
}

qsizetype ShapedParagraph::offsetAt(QPoint point) const
{
    const QTextLine line = m_layout.lineAt(lineBelow(point.y()));
    return line.isValid() ? line.xToCursor(point.x()) : 0;
}

QRect ShapedParagraph::caretRect(qsizetype offset) const
{
    const int number = lineAt(offset);
    const QTextLine line = m_layout.lineAt(number);
    if (!line.isValid()) {
        return {0, 0, 1, m_height};
    }
    const double x = line.cursorToX(static_cast<int>(offset));
    const Line &place = m_lines[std::size_t(number)];
    return {static_cast<int>(std::floor(x)), place.top, 1, place.height};
}

const TextLink *ShapedParagraph::linkAt(QPoint point) const
{
    if (m_links.isEmpty() || point.y() < 0 || point.y() >= m_height) {
        return nullptr;
    }
    const QTextLine line = m_layout.lineAt(lineBelow(point.y()));
    if (!line.isValid() || !line.naturalTextRect().contains(point)) {
        return nullptr;
    }
    const int character = line.xToCursor(point.x(), QTextLine::CursorOnCharacter);
    for (const TextLink &link : m_links) {
        if (character >= link.from && character < link.from + link.length) {
            return &link;
        }
    }
    return nullptr;
}

const TextLink *ShapedParagraph::linkAround(qsizetype offset) const
{
    for (const TextLink &link : m_links) {
        if (offset >= link.from && offset <= link.from + link.length) {
            return &link;
        }
    }
    return nullptr;
}

int ShapedParagraph::lineAt(qsizetype offset) const
{
    const QTextLine line = m_layout.lineForTextPosition(static_cast<int>(offset));
    return line.isValid() ? line.lineNumber() : 0;
}

qsizetype ShapedParagraph::lineStart(int line) const
{
    return lineCount() == 0 ? 0 : m_layout.lineAt(line).textStart();
}

/// The last place that the caret can take in the line: behind a line's last character is the next line's
/// start.
qsizetype ShapedParagraph::lineEnd(int line) const
{
    if (lineCount() == 0) {
        return 0;
    }
    const QTextLine shown = m_layout.lineAt(line);
    const int end = shown.textStart() + shown.textLength();
    return line + 1 < lineCount() ? m_layout.previousCursorPosition(end) : end;
}
