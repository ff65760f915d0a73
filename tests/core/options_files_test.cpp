#include "core/lists_text.h"
#include "core/options_text.h"
#include "support/text.h"

namespace {

SavedOptions read(const QString &text)
{
    return readOptions(text, {});
}

SavedOptions unusual()
{
    SavedOptions saved;
    saved.options = defaultOptions({.message = {0x123456, 0x123456}, .server = 77});
    saved.options.HIGHLIGHT = 0x80000005;
    saved.options.SHOWEMOTIONS = saved.options.ShowFriendOnline = saved.options.ShowEnterLeave = false;
    saved.options.IGNORECOL = true;
    saved.options.EMOTICONS = false;
    saved.options.WORDFILER = 255;
    saved.options.AcceptMode = static_cast<AcceptMode>(9);
    saved.font = {u"Some Sans"_s, 8.25, true, true, true};
    saved.unknownLines = QStringList{u"SMELL        3"_s};
    return saved;
}

} // namespace

TEST(OptionsText, StartsAsOlderProgramsExpectAndComesBackWhole)
{
    SavedOptions saved = unusual();
    saved.options.UNTC = 12;
    const QString text = optionsText(saved);
    EXPECT_TRUE(text.startsWith(u"UNTC         12\r\nUNBC         "_s)) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"\r\nSHOWEMOTIONS False\r\n"_s)) << "the key with the least space behind it";
    EXPECT_TRUE(text.contains(u"\r\nFONTSIZE     8.25\r\n"_s));
    EXPECT_TRUE(text.contains(u"\r\nHIGHLIGHT    -2147483643\r\n"_s));
    EXPECT_EQ(optionsText(read(text)), text);
    EXPECT_EQ(saved.options.MMBC, InvertColour(0x123456)) << "words are to be seen on their ground";
}

TEST(OptionsText, WhatCannotBeUnderstoodLeavesItsOptionAlone)
{
    const SavedOptions before = unusual();
    const QString bad[] = {u"HIGHLIGHT"_s,
                           u"HIGHLIGHT    red"_s,
                           u"HIGHLIGHT    4294967296"_s,
                           u"WORDFILER    256"_s,
                           u"WORDFILER    -1"_s,
                           u"ACCEPTUSER   1 2"_s,
                           u"EMOTICONS    Maybe"_s,
                           u"FONTSIZE     0"_s,
                           u"FONTSIZE     1.2.3"_s,
                           u"FONTSIZE     99999"_s,
                           u"FONTNAME     "_s,
                           u"FONTNAME"_s,
                           u"IGNORECOL    "_s,
                           u"DDUSERS"_s,
                           u"\r"_s,
                           u"   "_s,
                           u"FONTSIZE     nan"_s};
    for (const QString &line : bad) {
        const SavedOptions after = readOptions(QString(line + u"\nFONTITAL     0"), before);
        EXPECT_FALSE(after.font.italic) << "the next line counts: " << qPrintable(line);
        SavedOptions expected = before;
        expected.font.italic = false;
        EXPECT_EQ(optionsText(after), optionsText(expected)) << qPrintable(line);
    }
}

TEST(OptionsText, ReadsWhatOthersWrite)
{
    const SavedOptions after =
        read(u"untc         5\nUNTC         6\nEMOTICONS    0\nDPINOUT      false\nDDUSERS      7\n"
             "FONTSIZE     8.25 points\nFONTNAME     Some Sans  "_s);
    EXPECT_EQ(after.unknownLines, QStringList{u"untc         5"_s}) << "keys are compared exactly";
    EXPECT_EQ(after.options.UNTC, 6U);
    EXPECT_FALSE(after.options.EMOTICONS);
    EXPECT_FALSE(after.options.ShowEnterLeave);
    EXPECT_TRUE(after.options.ShowFriendOnline);
    EXPECT_EQ(after.font, (ComposeFont{u"Some Sans  "_s, 8.25, false, false, false}));
    EXPECT_EQ(optionsFile(u"/home/"_s, u"Blue"_s), u"/home/Blue ChatOpt.dat"_s);
}

TEST(OptionsText, CutAnywhereItKeepsTheRest)
{
    const QString text = optionsText(unusual());
    for (qsizetype length = 0; length < text.size(); ++length) {
        const QString cut = text.first(length);
        const qsizetype whole = cut.lastIndexOf(u'\n') + 1;
        EXPECT_EQ(optionsText(read(cut)).first(whole), text.first(whole)) << length;
    }
}

TEST(ListsText, WritesWhoIsInAListAndReadsIt)
{
    UserLists lists;
    AddToList(lists, u'A', u"12345"_s, u"Alice"_s);
    AddToList(lists, u'A', u"gone"_s, u"Gone"_s);
    RemoveFromList(lists, u'A', u"gone"_s);
    AddToList(lists, u'I', u"123456789012"_s, u"Two\r\nlines"_s);
    AddToList(lists, u'P', u" "_s, u"Nobody"_s);
    AddToList(lists, u'P', u"p1"_s, u""_s);
    const QString text = listsText(lists, {u"Z-what"_s});
    EXPECT_EQ(text, u"A-12345      Alice\r\nI-12345678901Two  lines\r\nP-p1         \r\nZ-what\r\n"_s);

    UserLists after;
    EXPECT_EQ(readLists(QString(text + text), after), (QStringList{u"Z-what"_s, u"Z-what"_s}));
    EXPECT_EQ(after.AcceptList, (UserList{{}, {u"12345"_s, u"Alice"_s}}));
    EXPECT_EQ(after.IgnoreList, (UserList{{}, {u"1234567890"_s, u"Two  lines"_s}}));
    EXPECT_EQ(after.PyloxContacts, (UserList{{}, {u"p1"_s, u""_s}}));
    for (const QString &line : {u"A"_s, u"A-"_s, u"A-          x"_s, u"\n\r\n"_s}) {
        UserLists none;
        EXPECT_TRUE(readLists(line, none).isEmpty());
        EXPECT_EQ(none.AcceptList, emptyUserList()) << qPrintable(line);
    }
}
