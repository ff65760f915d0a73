#include "skin/clsProgramIcons.h"
#include "skin/skin_in_use.h"
#include "skin/written_skin.h"

#include <functional>
#include <map>

namespace {

/// What is in the item, in words; bitmaps by the colour of their first pixel.
QString inWords(const SkinItemValue &value)
{
    if (const SkinBitmap bitmap = value.bitmap()) {
        return QString(u'*' % QString::number(bitmap->GetPixel(0, 0)));
    }
    if (const auto font = value.font()) {
        return QString(u'@' % font->family());
    }
    return value.isEmpty() ? QString() : QString(QString::number(value.number()) % value.text());
}

QImage pixel(int value)
{
    return plain({1, 1}, qRgb(value & 0xFF, value >> 8, 0));
}

/// The accessors by their group.
QString itemOf(clsSkinResourceNew &skin, SkinGroup group, int number)
{
    const std::function<SkinItemValue(int)> accessors[] = {
        [&](int item) { return skin.FormDefaults(static_cast<FormItem>(item)); },
        [&](int item) { return skin.DefaultButton(static_cast<ButtonItem>(item)); },
        [&](int item) { return skin.Frame(static_cast<FrameItem>(item)); },
        [&](int item) { return skin.PopupMenu(static_cast<MenuItem>(item)); },
        [&](int item) { return skin.ContactList(static_cast<ListItem>(item)); },
        [&](int item) { return skin.ChatRoom(static_cast<RoomItem>(item)); },
        [&](int item) { return skin.OptionsForm(static_cast<OptionsItem>(item)); },
        [&](int item) { return skin.MessagingForm(static_cast<PrivateItem>(item)); }};
    return inWords(accessors[static_cast<std::size_t>(group)](number));
}

struct DescriptionTest : testing::Test
{
    /// Writes another value under the key; gives what its item holds then.
    QString write(const SkinSection &section, const SkinKey &key)
    {
        const QString number = QString::number(++values);
        const QString name = key.name.toString();
        const QString table = section.name.toString();
        if (key.kind == SkinKind::Bitmap) {
            skin.set(table, name, pixel(values));
            return QString(u'*' % number);
        }
        if (key.kind == SkinKind::Font) {
            skin.set(table, name, QString(u"{ face = '" % number % u"', size = 9 }"));
            return QString(u'@' % number);
        }
        const bool isText = key.kind == SkinKind::Text;
        skin.set(table, name, isText ? QString(u'\'' % number % u'\'') : number);
        return isText ? QString(u'0' % number) : number;
    }

    WrittenSkin skin;
    clsSkinResourceNew description{skin.app};
    int values = 0;
};

} // namespace

TEST_F(DescriptionTest, EveryKeyLandsInItsItem)
{
    std::map<std::pair<SkinGroup, int>, QString> expected;
    QStringList ends; ///< the first and the last of each run of keys whose items go on together
    for (const SkinSection &section : skinCatalogue()) {
        const auto goesOn = [&keys = section.keys](std::size_t i) {
            return i > 0 && i < keys.size() && keys[i].item == keys[i - 1].item + 1;
        };
        for (std::size_t i = 0; i < section.keys.size() && section.group != SkinGroup::ProgramIcons; ++i) {
            const SkinKey &key = section.keys[i];
            EXPECT_TRUE(expected.emplace(std::pair(section.group, key.item), write(section, key)).second)
                << key.name.toString().toStdString() << " has another key's item";
            if (!goesOn(i) || !goesOn(i + 1)) {
                ends += QString(key.name % u' ' % QString::number(key.item));
            }
        }
    }
    EXPECT_EQ(ends.join(u", "),
              u"BackColour 10, InputFont 23, MaskColour 0, TopLeft 2, BottomRight 9, "
              "NormalSysClose 24, ClickedSysHelp 32, Font 0, Mask Button 10, BackColour 8, "
              "TopLeft 0, BottomRight 7, Font 0, HeaderTextColour 9, BackColour 0, "
              "ForeColour 1, SearchFont 11, Button Font 2, DownSelectButton 13, "
              "Message Board Background 0, Message Board Font 2, "
              "Username ForeColour 12, Username BackColour 13, "
              "Message ForeColour 3, Message BackColour 4, "
              "Chatters Name ForeColour 14, Chatters Name BackColour 15, "
              "Chatters Message ForeColour 5, Emotions BackColour 11, Button Font 16, Emoticon Overlay 31, "
              "Emoticon to Website 33, Exit Button Text 68, NormalInfoMsgButton 2, MaskInfoMsgButton 7"_s);
    skin.write();
    clsMyApp elsewhere = skin.app;
    elsewhere.Skin += u'x';
    clsSkinResourceNew lacking(elsewhere);
    expected[{SkinGroup::FormDefaults, 0}].remove(u'*'); // the colour of the bitmap's first pixel
    for (clsSkinResourceNew *found : {&description, &lacking}) {
        found->Initialize();
        found->OptionsForm(OptionsItem::LoadSelectButton);
        found->MessagingForm(PrivateItem::AcquireInfoButton);
        found->FormDefaults(FormItem::ReloadSystemButtons);
        const bool isThere = found == &description;
        for (const auto &[place, value] : expected) {
            const QString none = place == std::pair(SkinGroup::FormDefaults, 0) ? u"-1"_s : QString();
            EXPECT_EQ(itemOf(*found, place.first, place.second), isThere ? value : none) << place.second;
        }
        EXPECT_EQ(itemOf(*found, SkinGroup::ChatRoom, 32), isThere ? u"1"_s : u"0"_s) << "has been read";
        EXPECT_EQ(found->notes(), QStringList());
        for (const int number : {-1, 1, 1000}) {
            EXPECT_TRUE(found->FormDefaults(static_cast<FormItem>(number)).isEmpty());
        }
        EXPECT_TRUE(found->Frame(static_cast<FrameItem>(10)).isEmpty());
    }
}

TEST_F(DescriptionTest, SomeGroupsAreThereBetweenTheirActionsOnly)
{
    skin.set(u"Defaults"_s, u"ClickedSysHelp"_s, pixel(2));
    skin.set(u"Defaults"_s, u"BottomRight"_s, pixel(3));
    skin.set(u"Add Friend Window"_s, u"DownSelectButton"_s, pixel(4));
    skin.set(u"Messaging Window"_s, u"MaskInfoMsgButton"_s, pixel(7));
    skin.write();
    description.Initialize();
    skin.writeText(u"[["_s); // the file is not looked at again
    QString system;
    for (const FormItem action : {FormItem::ReloadSystemButtons, FormItem::ReleaseSystemButtons,
                                  FormItem::ReleaseSystemButtons, FormItem::ReloadSystemButtons}) {
        system += inWords(description.FormDefaults(FormItem::ClickedSysHelp)) % u' ';
        EXPECT_TRUE(description.FormDefaults(action).isEmpty());
    }
    EXPECT_EQ(system + inWords(description.FormDefaults(FormItem::ClickedSysHelp)), u"*2 *2   *2"_s);
    description.FormDefaults(FormItem::ReleaseSystemButtons);
    EXPECT_EQ(inWords(description.FormDefaults(FormItem::BottomRight)), u"*3"_s) << "of another group";

    QString select = inWords(description.OptionsForm(OptionsItem::DownSelect));
    for (const OptionsItem action : {OptionsItem::LoadSelectButton, OptionsItem::ReleaseSelectButton}) {
        description.OptionsForm(action);
        select += inWords(description.OptionsForm(OptionsItem::DownSelect));
    }
    EXPECT_EQ(select, u"*4"_s);

    QString info;
    for (const QChar action : u"+-++--+---+-+"_s) {
        description.MessagingForm(action == u'+' ? PrivateItem::AcquireInfoButton
                                                 : PrivateItem::ReleaseInfoButton);
        info += inWords(description.MessagingForm(PrivateItem::MaskInfo)) == u"*7" ? u'x' : u'.';
    }
    EXPECT_EQ(info, u"x.xxx.x...x.x"_s) << "a count below 0 shows at each use until it is above 1 again";
    for (int i = 0; i < 32768; ++i) {
        description.MessagingForm(PrivateItem::AcquireInfoButton);
    }
    EXPECT_THROW(description.MessagingForm(PrivateItem::AcquireInfoButton), SkinError);
    EXPECT_EQ(inWords(description.MessagingForm(PrivateItem::MaskInfo)), u"*7"_s);
}

TEST_F(DescriptionTest, NumbersAreRoundedAndAMaskColourIsSeen)
{
    const std::pair<QString, int> table[] = {
        {u"2"_s, 2},         {u"2.5"_s, 2},     {u"3.5"_s, 4},   {u"'-2.5 px'"_s, -2},
        {u"'letters'"_s, 0}, {u"'  7px'"_s, 7}, {u"'.6'"_s, 1},  {u"'99999999999'"_s, 2147483647},
        {u"'-'"_s, 0},       {u"''"_s, 0},      {u"'1e1'"_s, 10}};
    skin.set(u"Defaults"_s, u"MaskColour"_s, plain({1, 1}, 0x00123456));
    for (const auto &[toml, number] : table) {
        skin.set(u"Defaults"_s, u"FormCaptionShadowOffset"_s, toml);
        skin.write();
        clsSkinResourceNew read(skin.app);
        read.Initialize();
        EXPECT_EQ(read.FormDefaults(FormItem::CaptionShadowOffset).number(), number) << toml.toStdString();
        EXPECT_EQ(read.FormDefaults(FormItem::MaskColour).number(), noMaskColour) << "transparent";
    }
}

TEST_F(DescriptionTest, ProgramIconsComeInOrderAfterTheirMaskColour)
{
    const auto load = [&] {
        clsSkinResourceNew read(skin.app);
        read.Initialize();
        QStringList heard;
        clsProgramIcons icons(read);
        QObject::connect(&icons, &clsProgramIcons::MaskColour,
                         [&](ColourValue colour) { heard += QString::number(colour, 16); });
        QObject::connect(&icons, &clsProgramIcons::BitmapLoad,
                         [&](const SkinBitmap &bitmap, const QString &name) {
                             heard += QString(name % u' ' % QString::number(bitmap->GetPixel(0, 0)));
                         });
        icons.LoadBitmaps();
        return heard.join(u", ");
    };
    EXPECT_EQ(load(), QString()) << "no skin, no word";
    int number = 0;
    for (const auto &[section, key] : {std::pair(u"Chat Room Smileys"_s, u"eGift"_s),
                                       {u"Chat Room Smileys"_s, u"eHeart Broken"_s},
                                       {u"Status Bitmaps"_s, u"Do Not Disturb"_s},
                                       {u"Mood Bitmaps"_s, u"Silly"_s},
                                       {u"Mood Bitmaps"_s, u"Sad"_s},
                                       {u"User Menu Bitmaps"_s, u"User Lists"_s},
                                       {u"Main Menu Bitmaps"_s, u"User Lists"_s},
                                       {u"Contact List Heading Bitmaps"_s, u"HeadingHide"_s},
                                       {u"Group Menu Bitmaps"_s, u"Move Down"_s},
                                       {u"Mood Bitmaps"_s, u"Unheard Of"_s},
                                       {u"Defaults"_s, u"Top"_s}}) {
        skin.set(section, key, pixel(++number));
    }
    skin.write();
    const QString all = u"HeadingHide 8, Sad 5, Silly 4, User Lists 7, User Lists 6, Move Down 9, "
                        "Do Not Disturb 3, eHeart Broken 2, eGift 1"_s;
    EXPECT_EQ(load(), QString(u"efffffff, " % all));
    skin.set(u"Mood and Status MaskColour"_s, u"MaskColour"_s, pixel(0x102));
    skin.write();
    EXPECT_EQ(load(), QString(u"102, " % all));
}

TEST_F(DescriptionTest, ASkinThatCannotBeUsedLeavesTheOneBefore)
{
    QStringList reports;
    SkinInUse inUse(skin.app, WindowFrame::Skin, [&](const QString &line) { reports += line; });
    EXPECT_FALSE(inUse.description().isRead());
    const std::tuple<QString, bool, ColourValue, QStringList> table[] = {
        {u"[Defaults]\nBackColour = 7"_s, true, 7, {}},
        {u"[Defaults]\nBackColour = 8\n[["_s, false, 7, {u"skin not used: "_s, u"skin.toml"_s}},
        {u"[Defaults]\nBackColour = 9\nTop = 'not there.png'"_s, true, 9, {u"Top"_s, u"not there.png"_s}},
    };
    for (const auto &[toml, isUsed, colour, words] : table) {
        reports.clear();
        skin.writeText(toml);
        EXPECT_EQ(inUse.change(), isUsed) << toml.toStdString();
        EXPECT_EQ(inUse.description().FormDefaults(FormItem::BackColour).colour(), colour);
        EXPECT_EQ(reports.size(), words.isEmpty() ? 0 : 1) << toml.toStdString();
        for (const QString &word : words) {
            EXPECT_TRUE(reports.value(0).contains(word)) << reports.value(0).toStdString();
        }
    }
}
