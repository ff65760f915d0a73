#include "richtext/rtf_writer.h"

#include <QBuffer>

#include <algorithm>
#include <cmath>

namespace {

void appendNumber(QByteArray &out, const char *word, qint64 number)
{
    out += word;
    out += QByteArray::number(number);
}

void appendUnicode(QByteArray &out, char16_t unit)
{
    appendNumber(out, "\\u", static_cast<qint16>(unit));
    out += '?';
}

void appendCharacter(QByteArray &out, char16_t c)
{
    switch (c) {
    case u'\\':
    case u'{':
    case u'}':
        out += '\\';
        out += static_cast<char>(c);
        break;
    case u'\t':
        out += "\\tab ";
        break;
    case lineBreakCharacter:
        out += "\\line ";
        break;
    default:
        if (c >= 0x80) {
            appendUnicode(out, c);
        } else if (c >= 0x20) {
            out += static_cast<char>(c);
        }
    }
}

void appendText(QByteArray &out, QStringView text)
{
    for (const QChar c : text) {
        appendCharacter(out, c.unicode());
    }
}

constexpr const char *alignments[] = {"\\ql", "\\qc", "\\qr", "\\qj"};

} // namespace

RtfWriter::RtfWriter(const RichDocument &document) : m_document(document), m_colours{automaticColour}
{
    collect();
}

/// The colours of the formats that are in use.
void RtfWriter::collect()
{
    std::vector<bool> used(m_document.formatCount());
    for (qsizetype index = 0; index < m_document.paragraphCount(); ++index) {
        for (const Run &run : m_document.paragraph(index).runs()) {
            used[run.format] = true;
        }
    }
    for (std::size_t number = 0; number < used.size(); ++number) {
        if (!used[number]) {
            continue;
        }
        const TextFormat &format = m_document.format(static_cast<quint16>(number));
        for (const ColourValue colour : {format.colour, format.background}) {
            if (std::ranges::find(m_colours, colour) == m_colours.end()) {
                m_colours.push_back(colour);
            }
        }
    }
}

qsizetype RtfWriter::colourIndex(ColourValue colour) const
{
    return std::ranges::find(m_colours, colour) - m_colours.begin();
}

QByteArray RtfWriter::header() const
{
    // Font 0 is none, and is left out: others would make a font of that name.
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\uc1{\\fonttbl";
    for (qsizetype number = 1; number < m_document.fonts().size(); ++number) {
        appendNumber(out, "{\\f", number);
        out += "\\fnil ";
        appendText(out, m_document.fonts()[number]);
        out += ";}";
    }
    out += "}{\\colortbl;";
    for (std::size_t index = 1; index < m_colours.size(); ++index) {
        appendNumber(out, "\\red", m_colours[index] & 0xFF);
        appendNumber(out, "\\green", (m_colours[index] >> 8) & 0xFF);
        appendNumber(out, "\\blue", (m_colours[index] >> 16) & 0xFF);
        out += ';';
    }
    return out += "}\r\n";
}

QByteArray RtfWriter::paragraphs(qsizetype first, qsizetype last)
{
    QByteArray out;
    for (qsizetype index = first; index < last; ++index) {
        writeParagraph(out, m_document.paragraph(index));
        if (index + 1 < m_document.paragraphCount()) {
            out += "\\par\r\n";
        }
    }
    return out;
}

void RtfWriter::writeParagraph(QByteArray &out, const Paragraph &paragraph)
{
    const ParagraphFormat &format = m_document.paragraphFormat(paragraph.format());
    out += "\\pard";
    out += alignments[static_cast<int>(format.alignment)];
    const std::pair<const char *, qint32> lengths[] = {{"\\sb", format.spaceBefore},
                                                       {"\\sa", format.spaceAfter},
                                                       {"\\li", format.leftIndent},
                                                       {"\\fi", format.firstLineIndent}};
    for (const auto &[word, twips] : lengths) {
        if (twips != 0) {
            appendNumber(out, word, twips);
        }
    }
    qsizetype start = 0;
    for (const Run &run : paragraph.runs()) {
        writeFormat(out, m_document.format(run.format));
        if (run.picture != 0) {
            writePicture(out, run.picture);
        } else {
            appendText(out, paragraph.text().sliced(start, run.end - start));
        }
        start = run.end;
    }
}

void RtfWriter::writeFormat(QByteArray &out, const TextFormat &format)
{
    out += "\\plain";
    if (format.font != 0) {
        appendNumber(out, "\\f", format.font);
    }
    appendNumber(out, "\\fs", format.halfPoints);
    if (format.colour != automaticColour) {
        appendNumber(out, "\\cf", colourIndex(format.colour));
    }
    if (format.background != automaticColour) {
        appendNumber(out, "\\highlight", colourIndex(format.background));
    }
    out += format.bold ? "\\b" : "";
    out += format.italic ? "\\i" : "";
    out += format.underline ? "\\ul" : "";
    out += format.strikeOut ? "\\strike" : "";
    out += ' ';
}

void RtfWriter::writePicture(QByteArray &out, quint16 number)
{
    m_pictures.resize(std::max(m_pictures.size(), std::size_t(number) + 1));
    QByteArray &written = m_pictures[number];
    if (written.isEmpty()) {
        constexpr qint64 twipsPerPixel = 15;
        const Picture &picture = m_document.picture(number);
        const QSizeF size = picture.image.deviceIndependentSize() * twipsPerPixel;
        QBuffer png;
        png.open(QIODevice::WriteOnly);
        picture.image.save(&png, "PNG");
        written = "{\\pict{\\*\\picprop{\\sp{\\sn wzDescription}{\\sv ";
        appendText(written, picture.code);
        written += "}}}\\pngblip";
        appendNumber(written, "\\picw", picture.image.width());
        appendNumber(written, "\\pich", picture.image.height());
        appendNumber(written, "\\picwgoal", std::lround(size.width()));
        appendNumber(written, "\\pichgoal", std::lround(size.height()));
        written += ' ' + png.data().toHex() + '}';
    }
    out += written;
}

QByteArray writeRtf(const RichDocument &document)
{
    RtfWriter writer(document);
    return writer.header() + writer.paragraphs(0, document.paragraphCount()) + RtfWriter::footer();
}
