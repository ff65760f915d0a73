#include "emotions/colEmotions.h"
#include "platform/text_file.h"
#include "support/text.h"

#include <QTemporaryDir>

namespace {

/// "Hug:room:user" for each record, after the file was read.
QString emotionsOf(const QString &file, colEmotions emotions = {})
{
    QTemporaryDir folder;
    EXPECT_TRUE(writeTextFile(folder.filePath(u"emotions.dat"_s), file));
    LoadEmotions(emotions, folder.path() + u"/"_s);
    QString all;
    for (qsizetype i = 1; i <= emotions.Count(); ++i) {
        const auto emotion = emotions.Item(i);
        all += emotion->Emotion + u":" + emotion->ToRoom + u":" + emotion->ToUser + u";";
    }
    return all;
}

} // namespace

TEST(Emotions, RecordsOfThreeLines)
{
    const QString longName(30, u'n');
    const QString longText(255, u't');
    const QString hug = u"Hug\r\n%U% hugs all\r\n%U% hugs %O%\r\n"_s;
    const QString shown = u"Hug:%U% hugs all:%U% hugs %O%;"_s;
    const std::pair<QString, QString> cases[] = {
        {u""_s, u""_s},
        {QString(hug + u"Wave\na\nb"), QString(shown + u"Wave:a:b;")},
        {QString(hug + u"Wave\r\na\r\n"), shown},
        {QString(hug + u"hUG\r\na\r\nb\r\n" + u"Wave\r\na\r\nb\r\n"), shown},
        {QString(longName + u"\n" + longText + u"\n" + longText + u"\n"),
         QString(longName + u":" + longText + u":" + longText + u";")},
        {QString(longName + u"n\na\nb\n" + hug), shown},
        {QString(u"Wave\n" + longText + u"t\nb\n" + hug), shown},
        {QString(u"Wave\na\nt" + longText + u"\n" + hug), shown},
        {QString(u"\r\n" + hug), u":Hug:%U% hugs all;"_s},
        {u" Hug \n a\nb \n"_s, u" Hug : a:b ;"_s},
    };
    for (const auto &[file, expected] : cases) {
        EXPECT_EQ(emotionsOf(file), expected) << qPrintable(file);
    }
}

TEST(Emotions, StayWithoutAFileAndGoWithAnEmptyOne)
{
    colEmotions emotions;
    emotions.Add(u"Hug"_s, u"to user"_s, u"to room"_s);
    LoadEmotions(emotions, u"/nowhere/"_s);
    ASSERT_NE(emotions.Item(u"hug"_s), nullptr) << "names are found without regard to case";
    EXPECT_EQ(emotions.Item(u"hug"_s)->ToRoom, u"to room"_s);
    EXPECT_EQ(emotions.Item(u"kiss"_s), nullptr);
    EXPECT_TRUE(emotionsOf(u""_s, emotions).isEmpty());
}
