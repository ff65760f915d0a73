#include "emotions/emoticon_file.h"
#include "platform/text_file.h"
#include "support/files.h"
#include "support/text.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(Emoticons, TheBuiltInCodes)
{
    const clsEmoticons table;
    EXPECT_EQ(table.RowCount(), 31);
    for (const EmoticonEntry &row : table.Rows()) {
        EXPECT_EQ(row.CaseSensitive, row.Key == u":D" || row.Key == u":d");
        EXPECT_EQ(table.CheckEmotion(row.Key), row.Name);
        EXPECT_EQ(table.GetKeyFromEmotion(row.Name), row.Key);
        if (!row.CaseSensitive) {
            EXPECT_EQ(table.CheckEmotion(row.Key.toUpper()), row.Name);
        }
    }
    EXPECT_EQ(table.CheckEmotion(u":D"), u"Excited"_s);
    EXPECT_EQ(table.CheckEmotion(u":d"), u"Yum"_s);
    for (const QStringView text : {u"", u":):)", u"hi:)", u":)\n", u"a very long word that is no code"}) {
        EXPECT_TRUE(table.CheckEmotion(text).isEmpty());
    }
    EXPECT_TRUE(table.GetKeyFromEmotion(u"happy").isEmpty()) << "names are compared exactly";
}

TEST(Emoticons, TheHelpHasEveryBuiltInCode)
{
    const auto page = readTextFile(QStringLiteral(PYLOX_SOURCE_DIR "/share/help/emoticons.html"));
    ASSERT_TRUE(page);
    const clsEmoticons table;
    for (const EmoticonEntry &row : table.Rows()) {
        const QString cells =
            u"<td><code>" % row.Key.toHtmlEscaped() % u"</code></td><td>" % row.Name % u"</td>";
        EXPECT_TRUE(page->contains(cells)) << cells.toStdString();
    }
}

TEST(Emoticons, WhatAFileAddsAndRenames)
{
    const std::tuple<QString, QStringView, QString, QStringView, QString> cases[] = {
        {u"# mine\r\n:-)\r\n  # between\r\nHappy\r\n"_s, u":-)", u"Happy"_s, u"Happy", u":)"_s},
        {u":)\nWink"_s, u":)", u"Wink"_s, u"Happy", u""_s},
        {u":P\r\nNew\r\n"_s, u":P", u"New"_s, u"New", u":P"_s},
        {u":P\r\nNew\r\n"_s, u":p", u"Nyah"_s, u"Nyah", u":p"_s},
        {u"\t# no comment\rTab\rlost"_s, u"\t# no comment", u"Tab"_s, u"Tab", u"\t# no comment"_s},
        {u"\r\nEmpty\r\n# end"_s, u"", u"Empty"_s, u"Empty", u""_s},
        {u" :- \n Name "_s, u" :- ", u" Name "_s, u"Name", u""_s},
    };
    for (const auto &[file, code, name, emotion, key] : cases) {
        const clsEmoticons table(file);
        EXPECT_EQ(table.CheckEmotion(code), name) << file.toStdString();
        EXPECT_EQ(table.GetKeyFromEmotion(emotion), key) << file.toStdString();
    }
    EXPECT_EQ(clsEmoticons(u":a\nX\n:A\nY\n:a\nZ"_s).Rows().sliced(31),
              (QList<EmoticonEntry>{{u":a"_s, u"Z"_s, true}, {u":A"_s, u"Y"_s, true}}));
}

TEST(Emoticons, AChangedFileCountsAtOnce)
{
    const QTemporaryDir folder;
    EmoticonFile emoticons(folder.path() + u'/');
    EXPECT_EQ(emoticons.table().RowCount(), 31);
    const auto write = [&](const QByteArray &text) {
        QFile::remove(folder.filePath(u"Emoticon.dat"_s));
        writeFile(folder.filePath(u"Emoticon.dat"_s), text);
    };
    write(":-)\nHappy\n");
    EXPECT_EQ(emoticons.table().CheckEmotion(u":-)"), u"Happy"_s);
    EXPECT_EQ(&emoticons.table(), &emoticons.table());
    write(":-)\nAngry\n");
    EXPECT_EQ(emoticons.table().CheckEmotion(u":-)"), u"Angry"_s);
    QFile::remove(folder.filePath(u"Emoticon.dat"_s));
    EXPECT_TRUE(emoticons.table().CheckEmotion(u":-)").isEmpty());
}

} // namespace
