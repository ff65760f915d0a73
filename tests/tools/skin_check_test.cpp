#include "core/clsMyApp.h"
#include "skin/skin_in_use.h"
#include "tools/authored_files.h"
#include "tools/skin/nearest_name.h"
#include "tools/skin/skin_contrast.h"

#include <algorithm>

namespace {

enum class Packed
{
    Yes,
    No
};

/// What the program makes of a spoilt skin.
enum class Reading
{
    Used,
    Refused
};

using Description = clsSkinResourceNew;

/// A spoilt skin, what the check says about it, and what the program does with it.
struct SpoiltSkin
{
    const char *what;
    Spoiling spoil;
    const char *line; ///< the finding is where this line of skin.toml begins so; null for no place
    QString finding;  ///< after the place
    int code;
    std::function<bool(Description &)> isEmpty = {}; ///< true for what lost its item
    Reading reading = Reading::Used;
    Packed packed = Packed::Yes;
    std::function<void(QByteArray &)> spoilArchive = {};
};

const auto overButton = [](Description &skin) { return skin.DefaultButton(ButtonItem::Over).isEmpty(); };
const auto backColour = [](Description &skin) { return skin.FormDefaults(FormItem::BackColour).isEmpty(); };
const QString overPicture = u"default-button/over-button"_s;
const QString overFile = u"pictures/default-button/over-button.png"_s;
const QString fineFile = u"pictures/default-button/over-button@2x.png"_s;
const Spoiling nothing = [](AuthoredFiles &) {};
const std::function<bool(Description &)> anything;

const SpoiltSkin filesAndPictures[] = {
    {"picture not there", [](AuthoredFiles &f) { f.remove(overFile); }, "\"Over Button\"",
     u"error: [Default Button] Over Button: pictures/default-button/over-button.png is not there"_s, 1,
     overButton, Reading::Used, Packed::No},
    {"half a picture", [](AuthoredFiles &f) { f.file(overFile).truncate(60); }, "\"Over Button\"",
     u"over-button.png cannot be decoded"_s, 1, overButton},
    {"another format", drawn(overPicture, "GIF89a"), "\"Over Button\"", u"is neither PNG nor BMP"_s, 1,
     overButton},
    {"bitmap with missing rows", [](AuthoredFiles &f) { f.draw(overPicture, promisedPicture(84, 28)); },
     "\"Over Button\"", u"over-button.png cannot be decoded"_s, 1, overButton},
    {"finer picture of another size",
     [](AuthoredFiles &f) { f.file(fineFile) = encoded(plain(QSize(168, 28), 0)); }, "\"Over Button\"",
     u"over-button@2x.png has 168 x 28 pixels: it must be exactly twice"_s, 1},
    {"damaged finer picture", [](AuthoredFiles &f) { f.file(fineFile) = "PNG"; }, "\"Over Button\"",
     u"over-button@2x.png is neither PNG nor BMP"_s, 1},
    {"picture too large", drawn(overPicture, 4097, 1), "\"Over Button\"",
     u"Over Button: pictures/default-button/over-button.png: larger than 4096 x 4096 pixels: the program refuses"_s,
     1, anything, Reading::Refused},
    {"pictures too large together",
     [](AuthoredFiles &f) {
         for (const QString &name : {u"happy"_s, u"sad"_s, u"angry"_s, u"bored"_s, u"silly"_s}) {
             f.draw(u"mood-bitmaps/"_s + name, promisedPicture(4096, 4096));
         }
     },
     "Silly", u"the pictures are too large in all: the program refuses"_s, 1, anything, Reading::Refused},
    {"name that leads out", lineTo("\"Over Button\" = \"../over.png\""), "\"Over Button\"",
     u"the name leads out of the skin: the program refuses"_s, 1, anything, Reading::Refused, Packed::No},
    {"no skin.toml", [](AuthoredFiles &f) { f.remove(u"skin.toml"_s); }, nullptr,
     u"error: there is no skin.toml in it"_s, 1, anything, Reading::Refused},
    {"half an archive", nothing, nullptr, u"error: no skin archive, or a damaged one"_s, 1, anything,
     Reading::Refused, Packed::Yes, [](QByteArray &zip) { zip.truncate(zip.size() / 2); }},
    {"entry that leads out", nothing, nullptr, u"error: ../tures/menu/back-ground.png: the name leads"_s, 1,
     anything, Reading::Refused, Packed::Yes,
     [](QByteArray &zip) { zip.replace("pictures/menu/back-ground.png", "../tures/menu/back-ground.png"); }},
    {"damaged entry", [](AuthoredFiles &f) { f.file(u"pictures/menu/back-ground.png"_s) = "PNG that was"; },
     "BackGround", u"back-ground.png: damaged"_s, 1, anything, Reading::Refused, Packed::Yes,
     [](QByteArray &zip) { zip.replace("PNG that was", "PNG that is!"); }},
};

const SpoiltSkin values[] = {
    {"no TOML", lineTo("BackColour = #ffffff"), "BackColour", u"error: "_s, 1, anything, Reading::Refused,
     Packed::No},
    {"colour too short", lineTo("BackColour = '#12345'"), "BackColour",
     u"error: [Defaults] BackColour: a colour is wanted, \"#rrggbb\" or a number up to 0xFFFFFF, not \"#12345\""_s,
     1, backColour},
    {"colour of another kind", lineTo("BackColour = true"), "BackColour", u"0xFFFFFF, not true or false"_s, 1,
     backColour},
    {"no colour where one is needed", lineTo("BackColour = 'none'"), "BackColour",
     u"warning: [Defaults] BackColour: \"none\" is understood by FormCaptionBackColour only"_s, 0},
    {"number in words", lineTo("FormCaptionShadowOffset = 'two'"), "FormCaptionShadowOffset",
     u"error: [Defaults] FormCaptionShadowOffset: a number is wanted, not \"two\""_s, 1},
    {"list for a text", lineTo("\"Send Button Text\" = []"), "\"Send Button Text\"",
     u"a text is wanted, not something else"_s, 1,
     [](Description &skin) { return skin.ChatRoom(RoomItem::SendText).isEmpty(); }},
    {"font without a size", lineTo("InputFont = { face = 'A' }"), "InputFont",
     u"error: [Defaults] InputFont: a font is wanted"_s, 1,
     [](Description &skin) { return skin.FormDefaults(FormItem::InputFont).isEmpty(); }},
    {"font for a picture", lineTo("\"Over Button\" = { face = 'A', size = 9 }"), "\"Over Button\"",
     u"the name of a picture is wanted, not table"_s, 1, overButton},
    {"needed piece missing", [](AuthoredFiles &f) { f.replaceLine("Left = ", ""); }, "[Defaults]",
     u"error: [Defaults] Left: is missing: windows keep the desktop's border"_s, 1,
     [](Description &skin) { return skin.FormDefaults(FormItem::Left).isEmpty(); }},
    {"other key missing", [](AuthoredFiles &f) { f.replaceLine("\"Over Button\"", ""); },
     "[\"Default Button\"]",
     u"warning: [Default Button] Over Button: is missing: the HasFocus picture is shown"_s, 0, overButton},
    {"section missing",
     [](AuthoredFiles &f) { f.toml().truncate(f.toml().indexOf("[\"Chat Room Smileys\"]")); }, "#",
     u"warning: [Chat Room Smileys]: the section is missing: emoticons"_s, 0},
    {"misspelt key", [](AuthoredFiles &f) { f.replace("\"Over Button\"", "\"Ovre Buton\""); },
     "\"Ovre Buton\"", u"did you mean \"Over Button\"?"_s, 0, overButton},
    {"unknown key", inMenu("zzzzzzzz = 1"), "zzzzzzzz",
     u"warning: [Menu] zzzzzzzz: the program does not know \"zzzzzzzz\": remove it"_s, 0},
    {"key that does not print", inMenu("\"a\\u001B[2J\" = 1"), "\"a\\u001B",
     u"warning: [Menu] a?[2J: the program does not know \"a?[2J\""_s, 0},
    {"key of another section", inMenu("'Over Button' = ''"), "'Over Button'",
     u"warning: [Menu] Over Button: the program looks for it in [Default Button]: move it there"_s, 0},
    {"misspelt section", [](AuthoredFiles &f) { f.replace("[\"Mood Bitmaps\"]", "[\"mood bitmap\"]"); },
     "[\"mood bitmap\"]",
     u"warning: [mood bitmap]: the program does not know this section: did you mean \"Mood Bitmaps\"?"_s, 0},
    {"key above all sections", [](AuthoredFiles &f) { f.toml().prepend("TopLeft = 'a.png'\n"); },
     "TopLeft = 'a", u"stands outside of all sections: move it into [Defaults], [Default Frame]"_s, 0},
};

const SpoiltSkin looks[] = {
    {"pale text", lineTo("FormForeColour = '#999999'"), "FormForeColour",
     u"error: [Defaults] FormForeColour: text in windows has a contrast of 2.60 to 1 on [Defaults] "
     u"BackColour; 4.5 is needed: take darker text"_s,
     1},
    {"text that is missing counts as black",
     [](AuthoredFiles &f) {
         f.replaceLine("BackColour", "BackColour = 0x202020");
         f.replaceLine("FormForeColour", "");
     },
     "[Defaults]", u"error: [Defaults] FormForeColour: text in windows has a contrast of 1.28"_s, 1},
    {"pale disabled text", lineTo("\"Disabled Colour\" = '#c0c0c0'"), "\"Disabled Colour\"",
     u"warning: [Default Button] Disabled Colour: the caption of the button, disabled,"_s, 0},
    {"dark button", drawn(u"chat-rooms/over-send-button"_s, 72, 30, 0xFF333333), "ForeColour",
     u"on [Chat Rooms] Over Send Button; 4.5 is needed: take darker text or a lighter ground"_s, 1},
    {"translucent button over a dark window",
     [](AuthoredFiles &f) {
         f.replaceLine("BackColour", "BackColour = '#101010'");
         f.draw(overPicture, encoded(plain({84, 28}, 0x80FFFFFF)));
     },
     "ForeColour", u"a contrast of 4.10 to 1 on [Default Button] Over Button"_s, 1},
    {"state of another size", drawn(overPicture, 80, 28), "\"Over Button\"",
     u"error: [Default Button] Over Button: has 80 x 28 pixels, but Normal Button has 84 x 28 pixels: make"_s,
     1},
    {"mask that leaves nothing", drawn(u"default-button/mask-button"_s, 84, 28), "\"Mask Button\"",
     u"error: [Default Button] Mask Button: cuts the whole button away"_s, 1},
    {"large overlay", drawn(u"chat-rooms/bold-overlay"_s, 16, 27), "\"Bold Overlay\"",
     u"warning: [Chat Rooms] Bold Overlay: has 16 x 27 pixels, more than its button"_s, 0},
    {"low corner", drawn(u"defaults/top-left"_s, 8, 20), "TopLeft",
     u"warning: [Defaults] TopLeft: is 20 pixels high, but Top is 28: a hole stays"_s, 0},
    {"narrow corner", drawn(u"default-frame/bottom-right"_s, 3, 4), "BottomRight = \"pictures/default-frame",
     u"warning: [Default Frame] BottomRight: is 3 pixels wide, but Right is 4"_s, 0},
    {"corner below the contents", drawn(u"defaults/top-right"_s, 8, 29), "TopRight",
     u"warning: [Defaults] TopRight: is higher than Top and wider than Right"_s, 0},
    {"strip lower than its buttons", drawn(u"defaults/top"_s, 16, 19), "NormalSysClose",
     u"warning: [Defaults] NormalSysClose: is 20 pixels high, but the title strip, Top, is 19"_s, 0},
    {"icon of another size", drawn(u"mood-bitmaps/happy"_s, 18, 16), "Happy",
     u"warning: [Mood Bitmaps] Happy: has 18 x 16 pixels, but most icons of the section have 16 x 16"_s, 0},
    {"mask colour that is none", drawn(u"defaults/mask-colour"_s, 1, 1, 0), "MaskColour",
     u"warning: [Defaults] MaskColour: its first pixel is transparent"_s, 0},
};

using SpoiltSkins = testing::TestWithParam<SpoiltSkin>;

TEST_P(SpoiltSkins, AreFoundOutAndDoNoHarm)
{
    const auto &[what, spoil, line, finding, code, isEmpty, reading, packed, spoilArchive] = GetParam();
    const QTemporaryDir place;
    AuthoredFiles files;
    spoil(files);
    QString path = place.filePath(u"spoilt.skn"_s);
    QString file = path; // that findings name
    if (packed == Packed::No) {
        files.writeFolder(path = place.filePath(u"spoilt"_s));
        file = path + u"/skin.toml"_s;
    } else {
        QByteArray archive = files.archive();
        spoilArchive ? spoilArchive(archive) : void();
        writeFile(path, archive);
    }
    QString start = file + u": "_s;
    if (line != nullptr) {
        const qsizetype at = QByteArray('\n' + files.toml()).indexOf(QByteArray('\n' + QByteArray(line)));
        ASSERT_GE(at, 0);
        start = QString(file + u':' + QString::number(files.toml().left(at).count('\n') + 1) + u':');
    }
    const Outcome check = run({u"check"_s, path});
    EXPECT_EQ(check.code, code) << check.out.toStdString();
    EXPECT_TRUE(std::ranges::any_of(
        check.out.split(u'\n'),
        [&, words = finding](const QString &said) { return said.startsWith(start) && said.contains(words); }))
        << start.toStdString() << ".. " << finding.toStdString() << '\n'
        << check.out.toStdString();

    AuthoredFiles before;
    before.replaceLine("UnFocusColour", "UnFocusColour = 0x123456");
    writeFile(place.filePath(u"before.skn"_s), before.archive());
    clsMyApp app(place.path());
    SkinInUse skin(app, WindowFrame::Skin, [](const QString &) {});
    app.Skin = place.filePath(u"before.skn"_s);
    ASSERT_TRUE(skin.change());
    app.Skin = file;
    EXPECT_EQ(skin.change(), reading == Reading::Used);
    const bool isBefore = skin.description().FormDefaults(FormItem::UnFocusColour).colour() == 0x123456;
    EXPECT_EQ(isBefore, reading == Reading::Refused);
    EXPECT_TRUE(!isEmpty || isEmpty(skin.description()));
}

std::string nameOf(const testing::TestParamInfo<SpoiltSkin> &info)
{
    return QString::fromLatin1(info.param.what).replace(u' ', u'_').remove(u'.').toStdString();
}
void PrintTo(const SpoiltSkin &skin, std::ostream *out)
{
    *out << skin.what;
}
INSTANTIATE_TEST_SUITE_P(Files, SpoiltSkins, testing::ValuesIn(filesAndPictures), nameOf);
INSTANTIATE_TEST_SUITE_P(Values, SpoiltSkins, testing::ValuesIn(values), nameOf);
INSTANTIATE_TEST_SUITE_P(Looks, SpoiltSkins, testing::ValuesIn(looks), nameOf);

TEST(SkinCheck, SaysWhereInTheLine)
{
    const QTemporaryDir place;
    const QString path = place.filePath(u"skin.toml"_s);
    writeFile(path, "[Menu]\n  TextColour =  'red'\n");
    const Outcome check = run({u"check"_s, path});
    EXPECT_TRUE(check.out.contains(path + u":2:17: error: [Menu] TextColour: "_s)) << check.out.toStdString();
    EXPECT_TRUE(check.out.endsWith(u" warnings\n"_s));
    writeFile(path, "[Menu]\nTextColour = = 1\n");
    const Outcome broken = run({u"check"_s, path});
    EXPECT_TRUE(broken.out.startsWith(path + u":2:"_s)) << broken.out.toStdString();
    EXPECT_TRUE(broken.out.endsWith(u": 1 error, 0 warnings\n"_s));
}

TEST(SkinCheck, MeantNamesAreNear)
{
    const QStringList names{u"Over Button"_s, u"Normal Button"_s, u"Font"_s, u"TopLeft"_s};
    const std::pair<QString, QString> cases[] = {
        {u"over button"_s, u"Over Button"_s},
        {u"OverButton"_s, u"Over Button"_s},
        {u"Fnot"_s, u"Font"_s},
        {u"Nornal Buttton"_s, u"Normal Button"_s},
        {u"Top Left"_s, u"TopLeft"_s},
        {u"Mask"_s, {}},
        {u"BottomRight"_s, {}},
        {u"a"_s.repeated(100'000), {}},
    };
    for (const auto &[name, meant] : cases) {
        EXPECT_EQ(nearestName(name, names), meant) << name.left(20).toStdString();
    }
}

TEST(SkinCheck, ContrastIsThatOfTheEye)
{
    EXPECT_DOUBLE_EQ(contrast(0xFF000000, 0xFFFFFFFF), 21);
    EXPECT_DOUBLE_EQ(contrast(0xFF336699, 0xFF336699), 1);
    EXPECT_NEAR(contrast(0xFFFFFFFF, 0xFF767676), 4.54, 0.01);
    EXPECT_NEAR(contrast(0xFF0000FF, 0xFFFFFFFF), 8.59, 0.01);
}

} // namespace
