#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"
#include "support/text.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

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

/// It reads what is written, as its own kind of text, and writes RTF of that, which is read.
TEST_F(LibreOffice, GivesBackWhatItWasGiven)
{
    const QByteArray flat = convert(writeRtf(document), u"rtf"_s, u"fodt"_s);
    RichDocument read;
    EXPECT_TRUE(readRtf(QByteArrayView(convert(flat, u"fodt"_s, u"rtf"_s)), read).isOk());
    EXPECT_EQ(read.plainText().trimmed(), document.plainText().remove(u":-}"_s));
    // Of text in other scripts LibreOffice writes the look in words of its own.
    EXPECT_EQ(dump(read).section(u'\n', 0, 0), dump(document).section(u'\n', 0, 0));
    const QImage square = pictureOf(read);
    EXPECT_EQ(square.size(), QSize(20, 20));
    EXPECT_EQ(square.pixelColor(10, 10), QColor(0, 160, 64));
}

} // namespace
