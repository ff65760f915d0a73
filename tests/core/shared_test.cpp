#include "core/attribute_text.h"
#include "core/colours.h"
#include "core/command_line.h"
#include "core/keyed_collection.h"
#include "core/numbers.h"
#include "core/shown_name.h"
#include "core/user_lists.h"
#include "support/text.h"

TEST(UserLists, AddingRemovingAndLookingUp)
{
    UserLists lists;
    AddToList(lists, u'A', u"7"_s, u"Ann"_s);
    AddToList(lists, u'A', u"7"_s, u"Another"_s);
    AddToList(lists, u'A', u""_s, u"Nobody"_s);
    AddToList(lists, u'X', u"8"_s, u"Lost"_s);
    AddToList(lists, u'P', u"7"_s, u"Annie"_s);
    EXPECT_EQ(lists.AcceptList, (UserList{{}, {u"7"_s, u"Ann"_s}}));
    EXPECT_EQ(lists.IgnoreList, emptyUserList());
    EXPECT_EQ(GetContactName(lists, u"7"_s, u"default"_s), u"Annie"_s);
    EXPECT_EQ(GetContactName(lists, u""_s, u"default"_s), u"default"_s);

    RemoveFromList(lists, u'A', u"7"_s);
    EXPECT_FALSE(IsInList(lists.AcceptList, u"7"_s));
    EXPECT_FALSE(IsInList(lists.AcceptList, u""_s)) << "the empty id of a removed entry is nobody's";
    EXPECT_EQ(lists.AcceptList[1].name, u"Ann"_s);
    EXPECT_TRUE(IsPyloxContact(lists, u"7"_s));
}

TEST(KeyedCollection, KeepsOrderAndRefusesASecondRecordUnderAKey)
{
    KeyedCollection<int> numbers;
    for (int number = 1; number <= 2; ++number) {
        EXPECT_NE(numbers.insert(QString::number(number), std::make_shared<int>(number)), nullptr);
        EXPECT_EQ(numbers.insert(u"1"_s, std::make_shared<int>(3)), nullptr);
    }
    EXPECT_EQ(numbers.Count(), 2);
    EXPECT_TRUE(numbers.Item(0) == nullptr && numbers.Item(3) == nullptr);
    const auto held = numbers.Item(u"1"_s);
    EXPECT_EQ(held, numbers.Item(1));
    EXPECT_TRUE(numbers.Remove(1));
    EXPECT_EQ(numbers.Item(u"1"_s), nullptr);
    EXPECT_EQ(*held, 1) << "a record outlives its removal for whoever holds it";
    EXPECT_EQ(*numbers.Item(1), 2);
    EXPECT_FALSE(numbers.Remove(u"1"_s));
    numbers.RemoveAll();
    EXPECT_TRUE(numbers.Count() == 0 && numbers.Item(u"2"_s) == nullptr);
}

TEST(Colours, RtfEntriesInversesAndSystemColours)
{
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(1, 2, 3));
    const SystemColours colours(palette);
    EXPECT_EQ(RTFColour(0, colours), u"\\red0\\green0\\blue0;"_s);
    EXPECT_EQ(RTFColour(0x00FF8001, colours), u"\\red1\\green128\\blue255;"_s);
    EXPECT_EQ(RTFColour(0x80000005, colours), u"\\red1\\green2\\blue3;"_s);
    EXPECT_EQ(RTFColour(0x80FFFFFF, colours), u"\\red0\\green0\\blue0;"_s) << "no such system colour";
    EXPECT_EQ(InvertColour(0x00FF8001), 0x00007FFEU);
    EXPECT_EQ(EscapeRTF(u"a{b}\\"), u"a\\{b\\}\\\\"_s);
}

TEST(CommandLine, OptionsAreFoundAnywhereInTheLine)
{
    using Options = std::tuple<std::optional<QString>, std::optional<qint32>, QString, bool>;
    const std::pair<QString, Options> cases[] = {
        // the line; port, room, its name, whether the categories are shown
        {u""_s, {{}, {}, u""_s, false}},
        {u"-port5190~-cid42-cnmLounge~-showcat"_s, {u"5190"_s, 42, u"Lounge"_s, true}},
        {u"-showcat -cid 42 -cnmTwo words~ -port 5190~"_s, {u" 5190"_s, 42, u"Two words"_s, true}},
        {u"-port5190"_s, {{}, {}, u""_s, false}},
        {u"-port~5190~"_s, {{}, {}, u""_s, false}},
        {u"-cid"_s, {{}, 0, u""_s, false}},
        {u"-cid7x -cnmno end"_s, {{}, 7, u"no end"_s, false}},
    };
    for (const auto &[text, options] : cases) {
        const CommandLine line(text.split(u' '));
        EXPECT_EQ(Options(line.portText(), line.roomId(), line.roomName(), line.showCategories()), options)
            << text.toStdString();
    }
}

TEST(Numbers, TheLeadingNumberOfAText)
{
    const std::pair<QString, qint32> cases[] = {{u""_s, 0},
                                                {u"  12ab"_s, 12},
                                                {u"-7"_s, -7},
                                                {u"+3"_s, 3},
                                                {u"x1"_s, 0},
                                                {u"- 1"_s, 0},
                                                {u"2147483647"_s, 2147483647},
                                                {u"2147483648"_s, 2147483647},
                                                {u"-2147483648"_s, -2147483647 - 1},
                                                {u"-99999999999999999999999"_s, -2147483647 - 1}};
    for (const auto &[text, number] : cases) {
        EXPECT_EQ(leadingInt32(text), number) << text.toStdString();
    }
}

TEST(AttributeText, AValueNeedsItsEnd)
{
    const QString text = u"DROPUSER userid=u7\u0003 nick=A =b\u0003 open=x"_s;
    EXPECT_EQ(GetAttribute(text, u" userid=", u"?"_s), u"u7"_s);
    EXPECT_EQ(GetAttribute(text, u" nick=", u"?"_s), u"A =b"_s);
    EXPECT_EQ(GetAttribute(text, u" open=", u"?"_s), u"?"_s);
    EXPECT_EQ(GetAttribute(text, u" none=", u"?"_s), u"?"_s);
}

TEST(ShownName, HasNothingInItThatCannotBeSeen)
{
    const std::pair<QString, QString> cases[] = {
        {u"Ann"_s, u"Ann"_s},
        {u"An\u200Bn\uFEFF"_s, u"Ann"_s},
        {u"\u202Eevil\u202C"_s, u"evil"_s},
        {u"\u2066A\u2069\u200F"_s, u"A"_s},
        {u"A\u200DB"_s, u"AB"_s},
        {u"\u0645\u06CC\u200C\u062E"_s, u"\u0645\u06CC\u200C\u062E"_s},
        {u"\u0645\u200C\u200C\u062E\u200D"_s, u"\u0645\u062E"_s},
        {u"\U0001F468\u200D\U0001F469"_s, u"\U0001F468\u200D\U0001F469"_s},
        {u"\u202E"_s, u""_s},
    };
    for (const auto &[name, shown] : cases) {
        EXPECT_EQ(shownName(name), shown) << qPrintable(name);
    }
}
