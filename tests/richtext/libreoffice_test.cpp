#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"
#include "support/files.h"
#include "support/pictures.h"
#include "support/text.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

/// Has LibreOffice read a file's bytes and write them in another format.
QByteArray convert(const QByteArray &bytes, const QString &from, const QString &to)
{
    const QTemporaryDir folder;
    const QString source = folder.filePath(u"text."_s + from);
    writeFile(source, bytes);
    // "timeout" ends all that was started, not only the script that starts it.
    EXPECT_EQ(0, QProcess::execute(u"timeout"_s,
                                   {u"--signal=KILL"_s, u"25"_s, u"soffice"_s,
                                    u"-env:UserInstallation=file://"_s + folder.filePath(u"profile"_s),
                                    u"--headless"_s, u"--convert-to"_s, to, u"--outdir"_s,
                                    folder.filePath(u"out"_s), source}));
    return contentOf(folder.filePath(u"out/text."_s + to));
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
    const QString rtf = uR"({\rtf1{\fonttbl{\f0 DejaVu Sans;}}
{\colortbl;\red255\green255\blue0;\red32\green64\blue128;\red160\green240\blue224;\red0\green0\blue255;}
\f0\fs20\sb80{\b bold}{\i  italic}{\ul  line}{\strike  struck}{\highlight1  on yellow}{\cf2\highlight3  both}
 \{a\\b\}; \\par\tab \u233?\line next\par
{\cf4 \u1605?\u1585?\u1581?\u1576?\u1575? \u20320?\u22909? \u-10179?\u-8704?
{\pict{\*\picprop{\sp{\sn wzDescription}{\sv :-\}}}}\pngblip %1}}end})"_s;
    RichDocument document;
    EXPECT_TRUE(
        readRtf(rtf.arg(QString::fromLatin1(encoded(plain({20, 20}, 0xFF00A040)).toHex())), document).isOk());
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
