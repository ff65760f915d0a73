#include "platform/code_page.h"
#include "platform/settings_file.h"
#include "platform/skinnable.h"
#include "platform/text_file.h"
#include "support/files.h"
#include "support/text.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QTemporaryDir>

#include <thread>

namespace {

struct SettingsTest : testing::Test
{
    SettingsTest() { settings.FileName = folder.filePath(u"Pylox.ini"_s); }

    QTemporaryDir folder;
    SettingsFile settings;
};

TEST(CodePage, EveryCharacterArrivesOrIsReplaced)
{
    const CodePage western;
    EXPECT_EQ(western.encode(u"na\u00EFve 5\u20AC"), QByteArray("na\xEFve 5\x80"));
    EXPECT_EQ(western.decode("na\xEFve 5\x80"), u"na\u00EFve 5\u20AC"_s);
    EXPECT_EQ(western.encode(u"\u4F60 \U0001F600!"), QByteArray("? ?!")) << "one mark for a surrogate pair";
    EXPECT_EQ(western.encode(u"\xD83D"), QByteArray("?"));

    const CodePage utf8(u"utf-8"_s);
    EXPECT_EQ(utf8.decode(utf8.encode(u"\u4F60\U0001F600")), u"\u4F60\U0001F600"_s);
    EXPECT_EQ(utf8.decode("a\xFFz"), u"a\uFFFDz"_s);
    EXPECT_TRUE(utf8.decode("cut \xE4\xBD").startsWith(u"cut \uFFFD"_s)) << "no silent loss";
    for (const QString &none : {u"utf-16"_s, u"no such page"_s}) { // messages end in NUL
        EXPECT_EQ(CodePage(none).encode(u"\u00E9"), QByteArray("\xE9"));
    }
}

TEST_F(SettingsTest, KeepsWhatItDoesNotKnow)
{
    writeFile(settings.FileName, "; mine\n[Other]\nb=2\na=1\n\n[CHAT]\nPort=1\n");

    EXPECT_EQ(settings.ReadValue(u"port"_s, u"0"_s, u"Chat"_s), u"1"_s);
    ASSERT_TRUE(settings.WriteValue(u"Port"_s, u"5190"_s, u"Chat"_s));
    ASSERT_TRUE(settings.WriteValue(u"Name"_s, u"\u4F60"_s, u"Chat"_s));
    EXPECT_EQ(settings.ReadValue(u"Port"_s, u"0"_s, u"Chat"_s), u"5190"_s);
    EXPECT_EQ(settings.ReadValue(u"Name"_s, u""_s, u"Chat"_s), u"\u4F60"_s);
    const QString text = readTextFile(settings.FileName).value_or(QString());
    EXPECT_TRUE(text.startsWith(u"; mine"_s));
    EXPECT_LT(text.indexOf(u"b=2"_s), text.indexOf(u"a=1"_s));
    EXPECT_EQ(text.count(u"[CHAT]"_s, Qt::CaseInsensitive), 1);
}

TEST_F(SettingsTest, AStrangersIdCannotForgeASectionOrALine)
{
    const QString section = u"ChatPrivMsg-x]\n[Chat]\nPort=9\n"_s;
    ASSERT_TRUE(settings.WriteValue(u"Left"_s, u"1\n[Chat]\nPort=9"_s, section));
    EXPECT_EQ(settings.ReadValue(u"Port"_s, u"0"_s, u"Chat"_s), u"0"_s);
    EXPECT_EQ(settings.ReadValue(u"Left"_s, u""_s, section), u"1 [Chat] Port=9"_s);
}

TEST_F(SettingsTest, WritersAtTheSameTimeLoseNothing)
{
    const auto write = [this](const QString &section) {
        for (int i = 0; i < 40; ++i) {
            settings.WriteValue(QString::number(i), u"x"_s, section);
        }
    };
    {
        const std::jthread other(write, u"B"_s);
        write(u"A"_s);
    }
    EXPECT_EQ(readTextFile(settings.FileName).value_or(QString()).count(u"=x"), 80);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"Pylox.ini"_s});
}

TEST_F(SettingsTest, ALockThatIsNotGivenBackHoldsNobodyUp)
{
    QElapsedTimer elapsed;
    elapsed.start();
    writeFile(settings.FileName + u".lock", "2000000000\nother\n"); // of a program that has died
    EXPECT_TRUE(settings.WriteValue(u"Port"_s, u"8"_s, u"Chat"_s));
    QLockFile held(settings.FileName + u".lock");
    ASSERT_TRUE(held.tryLock(0));
    EXPECT_TRUE(settings.WriteValue(u"Port"_s, u"9"_s, u"Chat"_s));
    EXPECT_EQ(settings.ReadValue(u"Port"_s, {}, u"Chat"_s), u"9"_s);
    EXPECT_LT(elapsed.elapsed(), 2000);
}

TEST(TextFile, ReadsWhatOtherProgramsWrite)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.txt"_s);
    EXPECT_FALSE(readTextFile(path));
    const QByteArray cases[] = {"\xEF\xBB\xBFna\xC3\xAF", "na\xC3\xAF", "na\xEF",
                                QByteArray("\xFF\xFEn\0a\0\xEF\0", 8)};
    for (const QByteArray &bytes : cases) {
        writeFile(path, bytes);
        EXPECT_EQ(readTextFile(path), u"na\u00EF"_s) << bytes.toHex().constData();
    }
    ASSERT_TRUE(writeTextFile(path, u"\u4F60"_s));
    EXPECT_EQ(readTextFile(path), u"\u4F60"_s);
}

TEST(LoadedWindows, ChangeInLoadOrderWithoutThoseThatLeft)
{
    struct Window : Skinnable
    {
        void DoSkinChange() override { onChange(); }
        std::function<void()> onChange;
    } first, second, third;
    LoadedWindows loaded;
    QString changed;
    first.onChange = [&] {
        changed += u"first "_s;
        loaded.leave(third);
    };
    second.onChange = [&] { changed += u"second "_s; };
    third.onChange = [&] { changed += u"third "_s; };
    for (Window *window : {&first, &second, &third, &first}) {
        loaded.enter(*window);
    }
    loaded.changeSkin();
    EXPECT_EQ(changed, u"first second "_s);
}

} // namespace
