#include "platform/addresses.h"
#include "platform/settings_file.h"
#include "platform/text_file.h"
#include "support/fake_addresses.h"
#include "support/text.h"

#include <QFile>
#include <QTemporaryDir>

TEST(Addresses, OnlyHarmlessOnesAreOpened)
{
    const QTemporaryDir folder;
    const QTemporaryDir elsewhere;
    ASSERT_TRUE(writeTextFile(folder.filePath(u"help.html"_s), {}));
    ASSERT_TRUE(writeTextFile(elsewhere.filePath(u"run.sh"_s), {}));
    ASSERT_TRUE(QFile::link(elsewhere.filePath(u"run.sh"_s), folder.filePath(u"link.html"_s)));
    const DesktopAddresses addresses(folder.path());
    const std::pair<QString, bool> cases[] = {
        {u"https://example.org/a?b#c"_s, true},
        {u"HTTP://example.org"_s, true},
        {u"mailto:ann@example.org"_s, true},
        {u"ftp://example.org"_s, true},
        {u"javascript:alert(1)"_s, false},
        {u"smb://example.org/share"_s, false},
        {u"help.html"_s, false},
        {u""_s, false},
        {u"file://"_s + folder.filePath(u"help.html"_s) + u"#using_chat"_s, true},
        {u"file://"_s + folder.filePath(u"none.html"_s), false},
        {u"file://"_s + folder.filePath(u"link.html"_s), false},
        {u"file://"_s + folder.path() + u"/../x"_s, false},
        {u"file://"_s + elsewhere.filePath(u"run.sh"_s), false},
    };
    for (const auto &[address, allowed] : cases) {
        EXPECT_EQ(addresses.isAllowed(QUrl(address)), allowed) << address.toStdString();
    }
}

TEST(Addresses, HelpOpensAtItsAnchor)
{
    FakeAddresses opened;
    const QTemporaryDir folder;
    SettingsFile settings;
    settings.FileName = folder.filePath(u"Pylox.ini"_s);
    const auto shown = [&](const QString &anchor) { // none: that of the emoticons
        anchor.isEmpty() ? ShowEmoticonHelp(settings, u"/share"_s, opened)
                         : ShowHelp(anchor, settings, u"/share"_s, opened);
        return opened.last.toString();
    };
    EXPECT_EQ(shown(u"using_chat"_s), u"file:///share/help/index.html#using_chat"_s);
    EXPECT_EQ(shown({}), u"file:///share/help/emoticons.html"_s);
    settings.WriteValue(u"HelpPage"_s, u"https://example.org/help"_s, u"Chat"_s);
    settings.WriteValue(u"EmoticonHelpPage"_s, u"https://example.org/faces"_s, u"Chat"_s);
    EXPECT_EQ(shown(u"options"_s), u"https://example.org/help#options"_s);
    EXPECT_EQ(shown({}), u"https://example.org/faces"_s);
}
