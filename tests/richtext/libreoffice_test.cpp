#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"
#include "support/text.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlStreamReader>

namespace {

/// Has LibreOffice read a file's bytes and write them in another format; empty when that fails.
QByteArray convert(const QByteArray &bytes, const QString &from, const QString &to)
{
    const QTemporaryDir folder;
    QFile source(folder.filePath(u"text."_s + from));
    if (!source.open(QIODevice::WriteOnly) || source.write(bytes) != bytes.size()) {
        return {};
    }
    source.close();
    // "timeout" ends all that was started, not only the script that starts it.
    const int failed = QProcess::execute(
        u"timeout"_s, {u"--signal=KILL"_s, u"25"_s, u"soffice"_s,
                       u"-env:UserInstallation=file://"_s + folder.filePath(u"profile"_s), u"--headless"_s,
                       u"--convert-to"_s, to, u"--outdir"_s, folder.filePath(u"out"_s), source.fileName()});
    QFile result(folder.filePath(u"out/text."_s + to));
    return failed == 0 && result.open(QIODevice::ReadOnly) ? result.readAll() : QByteArray();
}

/// As much of a flat OpenDocument text as the tests write.
class FlatText
{
public:
    explicit FlatText(const QByteArray &xml) : m_xml(xml) {}

    RichDocument read()
    {
        while (!m_xml.atEnd()) {
            switch (m_xml.readNext()) {
            case QXmlStreamReader::StartElement:
                start(m_xml.qualifiedName(), m_xml.attributes());
                break;
            case QXmlStreamReader::EndElement:
                end(m_xml.qualifiedName());
                break;
            case QXmlStreamReader::Characters:
                if (m_inParagraph) {
                    m_builder.append(m_xml.text(), m_document.formatNumber(m_format));
                }
                break;
            default:
                break;
            }
        }
        return std::move(m_document);
    }

private:
    void start(QStringView name, const QXmlStreamAttributes &attributes)
    {
        if (name == u"style:style") {
            m_style = attributes.value(u"style:name"_s).toString();
        } else if (name == u"style:text-properties") {
            m_formats.insert(m_style, textFormat(attributes));
        } else if (name == u"style:paragraph-properties") {
            const QString inches = attributes.value(u"fo:margin-top"_s).toString().remove(u"in"_s);
            m_stands[m_style].spaceBefore = qRound(inches.toDouble() * 1440);
        } else if (name == u"text:p") {
            m_inParagraph = true;
            m_stand = m_stands.value(attributes.value(u"text:style-name"_s).toString());
        } else if (name == u"text:span") {
            m_format = m_formats.value(attributes.value(u"text:style-name"_s).toString());
        } else if (name == u"text:tab" || name == u"text:line-break") {
            m_builder.append(name == u"text:tab" ? u"\t" : u"\u2028", m_document.formatNumber(m_format));
        } else if (name == u"draw:frame") {
            m_inParagraph = false; // what follows up to its end is no text
        } else if (name == u"office:binary-data") {
            const QByteArray png = QByteArray::fromBase64(m_xml.readElementText().toLatin1());
            const auto picture = std::make_shared<Picture>();
            picture->image = QImage::fromData(png);
            // A picture has no look of its own there: that of the text before it is as good as any.
            m_builder.appendPicture(m_document.pictureNumber(picture), m_document.formatNumber(m_format));
        }
    }

    void end(QStringView name)
    {
        if (name == u"draw:frame") {
            m_inParagraph = true;
        } else if (name == u"text:p") {
            m_inParagraph = false;
            Paragraph paragraph = m_builder.take(m_document.paragraphFormatNumber(m_stand));
            if (m_document.length() == 0) {
                m_document.replaceLast(std::move(paragraph));
            } else {
                m_document.appendParagraph(std::move(paragraph));
            }
        }
    }

    TextFormat textFormat(const QXmlStreamAttributes &attributes)
    {
        const auto colour = [&](const QString &name) {
            const QColor value(attributes.value(name).toString());
            return value.isValid() ? ColourValue(value.red() | value.green() << 8 | value.blue() << 16)
                                   : automaticColour;
        };
        TextFormat format;
        format.font = m_document.fontNumber(attributes.value(u"style:font-name"_s).toString());
        const QString points = attributes.value(u"fo:font-size"_s).toString().remove(u"pt"_s);
        format.halfPoints = static_cast<quint16>(qRound(points.toDouble() * 2));
        format.colour = colour(u"fo:color"_s);
        format.background = colour(u"fo:background-color"_s);
        format.bold = attributes.value(u"fo:font-weight"_s) == u"bold";
        format.italic = attributes.value(u"fo:font-style"_s) == u"italic";
        format.underline = attributes.value(u"style:text-underline-style"_s) == u"solid";
        format.strikeOut = attributes.value(u"style:text-line-through-style"_s) == u"solid";
        return format;
    }

    QXmlStreamReader m_xml;
    RichDocument m_document;
    ParagraphBuilder m_builder;
    QHash<QString, TextFormat> m_formats;
    QHash<QString, ParagraphFormat> m_stands;
    QString m_style;
    TextFormat m_format;
    ParagraphFormat m_stand;
    bool m_inParagraph = false;
};

/// The last picture of a text; null for none.
QImage pictureOf(const RichDocument &document)
{
    QImage image;
    for (qsizetype index = 0; index < document.paragraphCount(); ++index) {
        for (const Run &run : document.paragraph(index).runs()) {
            image = run.picture != 0 ? document.picture(run.picture).image : image;
        }
    }
    return image;
}

void expectGreenSquare(const QImage &image)
{
    EXPECT_EQ(image.size(), QSize(20, 20));
    EXPECT_EQ(image.pixelColor(10, 10), QColor(0, 160, 64));
}

/// A bit of everything that can be seen of a text.
RichDocument sample()
{
    RichDocument document;
    TextFormat plain;
    plain.font = document.fontNumber(u"DejaVu Sans"_s);
    plain.halfPoints = 20;
    const auto number = [&](auto change) {
        TextFormat format = plain;
        change(format);
        return document.formatNumber(format);
    };
    ParagraphFormat stand;
    stand.spaceBefore = 80;
    const quint16 standNumber = document.paragraphFormatNumber(stand);
    ParagraphBuilder builder;
    builder.append(u"bold", number([](TextFormat &format) { format.bold = true; }));
    builder.append(u" italic", number([](TextFormat &format) { format.italic = true; }));
    builder.append(u" line", number([](TextFormat &format) { format.underline = true; }));
    builder.append(u" struck", number([](TextFormat &format) { format.strikeOut = true; }));
    builder.append(u" on yellow", number([](TextFormat &format) { format.background = 0x00FFFF; }));
    builder.append(u" both", number([](TextFormat &format) {
                       format.colour = 0x804020;
                       format.background = 0xE0F0A0;
                   }));
    builder.append(u" {a\\b}; \\par\t\u00E9\u2028next", document.formatNumber(plain));
    document.replaceLast(builder.take(standNumber));

    const auto square = std::make_shared<Picture>();
    square->image = QImage(20, 20, QImage::Format_ARGB32_Premultiplied);
    square->image.fill(QColor(0, 160, 64));
    square->code = u":-}"_s;
    const quint16 blue = number([](TextFormat &format) { format.colour = 0xFF0000; });
    builder.append(u"\u0645\u0631\u062D\u0628\u0627 \u4F60\u597D \U0001F600", blue);
    builder.appendPicture(document.pictureNumber(square), blue);
    builder.append(u"end", document.formatNumber(plain));
    document.appendParagraph(builder.take(standNumber));
    return document;
}

/// LibreOffice drops the code of a picture.
QString dumpWithoutCode(const RichDocument &document)
{
    return dump(document).remove(u":-}"_s);
}

class LibreOffice : public testing::Test
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(u"soffice"_s).isEmpty()) {
            GTEST_SKIP() << "LibreOffice is not installed: there is no soffice in the path";
        }
    }

    const RichDocument document = sample();
};

TEST_F(LibreOffice, ReadsWhatIsWritten)
{
    const RichDocument read = FlatText(convert(writeRtf(document), u"rtf"_s, u"fodt"_s)).read();
    EXPECT_EQ(dump(read), dumpWithoutCode(document));
    expectGreenSquare(pictureOf(read));
}

TEST_F(LibreOffice, WritesWhatIsRead)
{
    const QByteArray flat = convert(writeRtf(document), u"rtf"_s, u"fodt"_s);
    RichDocument read;
    EXPECT_TRUE(readRtf(QByteArrayView(convert(flat, u"fodt"_s, u"rtf"_s)), read).isOk());
    EXPECT_EQ(read.plainText().trimmed(), document.plainText().remove(u":-}"_s));
    // Of text in other scripts LibreOffice writes the look in words of its own.
    EXPECT_EQ(dump(read).section(u'\n', 0, 0), dumpWithoutCode(document).section(u'\n', 0, 0));
    expectGreenSquare(pictureOf(read));
}

} // namespace
