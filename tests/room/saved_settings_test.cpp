#include "core/clsMyApp.h"
#include "core/shared_state.h"
#include "platform/text_file.h"
#include "room/saved_settings.h"
#include "support/text.h"

#include <QDir>
#include <QTemporaryDir>

TEST(SavedSettings, BelongToTheSkinUnderWhichTheyWereRead)
{
    QTemporaryDir folder;
    clsMyApp myApp(folder.path());
    myApp.Skin = u"/skins/Blue.skn"_s;
    const QString blue = folder.filePath(u"Blue ChatOpt.dat"_s);
    ASSERT_TRUE(writeTextFile(blue, u"HIGHLIGHT    9\r\nSMELL        3\r\nFONTSIZE     12\r\n"_s));
    ASSERT_TRUE(writeTextFile(folder.filePath(u"ChatList.dat"_s), u"I-7          Ann\r\nX-odd\r\n"_s));

    Options options;
    UserLists lists;
    SavedSettings saved(myApp, options, lists);
    saved.load({.server = 77}, {u"Some Sans"_s});
    EXPECT_EQ(options.HIGHLIGHT, 9U);
    EXPECT_EQ(options.SNORMAL, 77U) << "the file does not say, the skin does";
    EXPECT_EQ(saved.font(), (ComposeFont{u"Some Sans"_s, 12}));
    EXPECT_TRUE(IsInList(lists.IgnoreList, u"7"_s));

    myApp.Skin = u"/skins/Red.skn"_s;
    options.HIGHLIGHT = 10;
    AddToList(lists, u'A', u"8"_s, u"Bob"_s);
    EXPECT_TRUE(saved.SaveOptions({u"Other"_s, 8.25, true}));
    EXPECT_TRUE(saved.SaveLists());
    const QString text = readTextFile(blue).value();
    for (const QString &line :
         {u"HIGHLIGHT    10\r\n"_s, u"SMELL        3\r\n"_s, u"FONTNAME     Other\r\n"_s}) {
        EXPECT_TRUE(text.contains(line)) << qPrintable(line);
    }
    EXPECT_EQ(readTextFile(folder.filePath(u"ChatList.dat"_s)).value(),
              u"A-8          Bob\r\nI-7          Ann\r\nX-odd\r\n"_s);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"Red ChatOpt.dat"_s)));

    ASSERT_TRUE(QFile::remove(blue) && QDir(folder.path()).mkdir(u"Blue ChatOpt.dat"_s));
    EXPECT_FALSE(saved.SaveOptions({})) << "a folder is in the way";
}
