#include "core/clsMyApp.h"
#include "skin/skin_in_use.h"
#include "tools/authored_files.h"
#include "tools/skin/nearest_name.h"

#include <algorithm>

namespace {

using Description = clsSkinResourceNew;

/// A spoilt skin and what the check says about it.
struct SpoiltSkin
{
    Spoiling spoil;
    QByteArray line; ///< quotes aside, how the line of skin.toml begins that is named; empty for no place
    QString finding; ///< after the place
    std::function<bool(Description &)> isEmpty = {};     ///< true for what lost its item
    std::function<void(QByteArray &)> spoilArchive = {}; ///< as which it is written then, else as a folder
};

const auto button = [](Description &skin) { return skin.DefaultButton(ButtonItem::Over).isEmpty(); };
const auto backColour = [](Description &skin) { return skin.FormDefaults(FormItem::BackColour).isEmpty(); };
const QString overPicture = u"default-button/over-button"_s;
const QString overFile = u"pictures/default-button/over-button.png"_s;
const QString menuFile = u"pictures/menu/back-ground.png"_s;
const QByteArray halfAPicture = encoded(plain({84, 28}, 0)).first(60);
const auto asItIs = [](QByteArray &) {};
const Spoiling nothing = [](AuthoredFiles &) {};

Spoiling fine(const QByteArray &bytes)
{
    return [=](AuthoredFiles &files) { files.file(u"pictures/default-button/over-button@2x.png"_s) = bytes; };
}
Spoiling without(const QByteArray &start)
{
    return [=](AuthoredFiles &files) { files.replaceLine(start, ""); };
}
Spoiling misspelt(const QByteArray &right, const QByteArray &wrong)
{
    return [=](AuthoredFiles &files) { files.replace('"' + right + '"', '"' + wrong + '"'); };
}

const SpoiltSkin refused[] = {
    {drawn(overPicture, 4097, 1), "Over Button", u"over-button.png: larger than 4096 x 4096 pixels: the"_s},
    {[](AuthoredFiles &f) {
         for (const QString &name : {u"happy"_s, u"sad"_s, u"angry"_s, u"bored"_s, u"silly"_s}) {
             f.draw(u"mood-bitmaps/"_s + name, promisedPicture(4096, 4096));
         }
     },
     "Silly", u"the pictures are too large in all: the program refuses"_s},
    {lineTo("\"Over Button\" = \"../over.png\""), "Over Button", u"the name leads out of the skin: the"_s},
    {lineTo("BackColour = #ffffff"), "BackColour", u"error: "_s},
    {[](AuthoredFiles &f) { f.remove(u"skin.toml"_s); }, {}, u"there is no skin.toml in it"_s, {}, asItIs},
    {nothing, {}, u"no skin archive, or a damaged one"_s, {}, [](auto &zip) { zip.chop(zip.size() / 2); }},
    {nothing,
     {},
     u"error: ../tures/menu/back-ground.png: the name leads"_s,
     {},
     [](auto &zip) { zip.replace("pictures/menu/back-ground.png", "../tures/menu/back-ground.png"); }},
    {[](AuthoredFiles &f) { f.file(menuFile) = "PNG that was"; },
     "BackGround",
     u"back-ground.png: damaged"_s,
     {},
     [](auto &zip) { zip.replace("PNG that was", "PNG that is!"); }},
};

const SpoiltSkin errors[] = {
    {[](AuthoredFiles &f) { f.remove(overFile); }, "Over Button", u"over-button.png is not there"_s, button},
    {drawn(overPicture, halfAPicture), "Over Button", u"over-button.png cannot be decoded"_s, button},
    {drawn(overPicture, "GIF89a"), "Over Button", u"is neither PNG nor BMP"_s, button},
    {drawn(overPicture, promisedPicture(84, 28)), "Over Button", u"cannot be decoded"_s, button},
    {fine(encoded(plain({168, 28}, 0))), "Over Button", u"has 168 x 28 pixels: it must be exactly twice"_s},
    {fine("PNG"), "Over Button", u"over-button@2x.png is neither PNG nor BMP"_s},
    {lineTo("BackColour = '#12345'"), "BackColour",
     u"[Defaults] BackColour: a colour is wanted, \"#rrggbb\" or a number up to 0xFFFFFF, not \"#12345\""_s,
     backColour},
    {lineTo("BackColour = true"), "BackColour", u"0xFFFFFF, not true or false"_s, backColour},
    {lineTo("FormCaptionShadowOffset = 'two'"), "FormCaptionShadowOffset", u"number is wanted, not \"two"_s},
    {lineTo("\"Send Button Text\" = []"), "Send Button Text", u"a text is wanted, not something else"_s,
     [](Description &skin) { return skin.ChatRoom(RoomItem::SendText).isEmpty(); }},
    {lineTo("InputFont = { face = 'A' }"), "InputFont", u"[Defaults] InputFont: a font is wanted"_s,
     [](Description &skin) { return skin.FormDefaults(FormItem::InputFont).isEmpty(); }},
    {lineTo("\"Over Button\" = {}"), "Over Button", u"name of a picture is wanted, not table"_s, button},
    {without("Left = "), "[Defaults]", u"Left: is missing: windows keep the desktop's border"_s,
     [](Description &skin) { return skin.FormDefaults(FormItem::Left).isEmpty(); }},
    {lineTo("FormForeColour = '#cc7a00'"), "FormForeColour",
     u"[Defaults] FormForeColour: text in windows has a contrast of 3.02 to 1 on [Defaults] BackColour; "
     "4.5 is needed: take darker text"_s},
    {[](AuthoredFiles &f) { // text that is missing counts as black
         f.replaceLine("BackColour", "BackColour = 0x202020");
         f.replaceLine("FormForeColour", "");
     },
     "[Defaults]", u"[Defaults] FormForeColour: text in windows has a contrast of 1.28"_s},
    {drawn(u"chat-rooms/over-send-button"_s, 72, 30, 0xFF333333), "ForeColour",
     u"on [Chat Rooms] Over Send Button; 4.5 is needed: take darker text or a lighter ground"_s},
    {[](AuthoredFiles &f) { // a translucent button
         f.replaceLine("BackColour", "BackColour = '#101010'");
         f.draw(overPicture, encoded(plain({84, 28}, 0x80FFFFFF)));
     },
     "ForeColour", u"a contrast of 4.10 to 1 on [Default Button] Over Button"_s},
    {drawn(overPicture, 80, 28), "Over Button", u"80 x 28 pixels, but Normal Button has 84 x 28 pixels"_s},
    {drawn(u"default-button/mask-button"_s, 84, 28), "Mask Button", u"cuts the whole button away"_s},
};

const SpoiltSkin warnings[] = {
    {lineTo("BackColour = 'none'"), "BackColour", u"\"none\" is understood by FormCaptionBackColour only"_s},
    {without("\"Over Button\""), "[Default Button]",
     u"[Default Button] Over Button: is missing: the HasFocus picture is shown"_s, button},
    {[](AuthoredFiles &f) { f.toml().truncate(f.toml().indexOf("[\"Chat Room Smileys\"]")); }, "#",
     u"[Chat Room Smileys]: the section is missing: emoticons"_s},
    {misspelt("Over Button", "Ovre Buton"), "Ovre Buton", u"did you mean \"Over Button\"?"_s, button},
    {misspelt("Mood Bitmaps", "mood bitmap"), "[mood bitmap]", u"section: did you mean \"Mood Bitmaps\"?"_s},
    {inMenu("zzzzzzzz = 1"), "zzzzzzzz", u"the program does not know \"zzzzzzzz\": remove it"_s},
    {inMenu("\"a\\u001B[2J\" = 1"), "a\\u001B", u"[Menu] a?[2J: the program does not know \"a?[2J\""_s},
    {inMenu("\"Over Button\" = ''"), "Over Button = ''",
     u"looks for it in [Default Button]: move it there"_s},
    {[](AuthoredFiles &f) { f.toml().prepend("TopLeft = 'a.png'\n"); }, "TopLeft = 'a",
     u"stands outside of all sections: move it into [Defaults], [Default Frame]"_s},
    {lineTo("\"Disabled Colour\" = '#c0c0c0'"), "Disabled Colour", u"the caption of the button, disabled,"_s},
    {drawn(u"chat-rooms/bold-overlay"_s, 16, 27), "Bold Overlay", u"16 x 27 pixels, more than its button"_s},
    {drawn(u"defaults/top-left"_s, 8, 20), "TopLeft", u"is 20 pixels high, but Top is 28: a hole stays"_s},
    {drawn(u"default-frame/bottom-right"_s, 3, 4), "BottomRight = pictures/default-frame",
     u"[Default Frame] BottomRight: is 3 pixels wide, but Right is 4"_s},
    {drawn(u"defaults/top-right"_s, 8, 29), "TopRight", u"is higher than Top and wider than Right"_s},
    {drawn(u"defaults/top"_s, 16, 19), "NormalSysClose",
     u"20 pixels high, but the title strip, Top, is 19"_s},
    {drawn(u"mood-bitmaps/happy"_s, 18, 16), "Happy", u"but most icons of the section have 16 x 16"_s},
    {drawn(u"defaults/mask-colour"_s, 1, 1, 0), "MaskColour", u"its first pixel is transparent"_s},
};

/// Up to the finding, with the place of the first line that begins so, if any.
QString place(const QString &file, const QByteArray &toml, const QByteArray &line)
{
    const QByteArray lines = '\n' + QByteArray(toml).replace('"', "");
    const qsizetype at = lines.indexOf(QByteArray('\n' + line));
    EXPECT_GE(at, 0) << line.toStdString();
    return line.isEmpty() ? QString(file + u": ") : u"%1:%2:"_s.arg(file).arg(lines.left(at + 1).count('\n'));
}

/// The program uses what it can of the skin, or refuses it and keeps the one before.
void expectFinding(const SpoiltSkin &spoilt, const QString &severity, bool isUsed)
{
    SCOPED_TRACE(spoilt.finding.toStdString());
    const QTemporaryDir folder;
    clsMyApp app(folder.path());
    const QString before = folder.filePath(u"skin.toml"_s);
    writeFile(before, "[Defaults]\nUnFocusColour = 0x123456\n");
    SkinInUse skin(app, WindowFrame::Skin, [](const QString &) {});
    app.Skin = before;
    ASSERT_TRUE(skin.change());

    AuthoredFiles files;
    spoilt.spoil(files);
    app.Skin = folder.filePath(spoilt.spoilArchive ? u"spoilt.skn"_s : u"spoilt/skin.toml"_s);
    if (spoilt.spoilArchive) {
        QByteArray archive = files.archive();
        spoilt.spoilArchive(archive);
        writeFile(app.Skin, archive);
    } else {
        files.writeFolder(folder.filePath(u"spoilt"_s));
    }
    const QString start = place(app.Skin, files.toml(), spoilt.line);
    const Outcome check = run({u"check"_s, app.Skin});
    EXPECT_EQ(check.code, severity == u"error: " ? 1 : 0);
    const auto isFinding = [&](const QString &said) {
        return said.startsWith(start) && said.contains(severity) && said.contains(spoilt.finding);
    };
    EXPECT_TRUE(std::ranges::any_of(check.out.split(u'\n'), isFinding)) << check.out.toStdString();
    EXPECT_EQ(skin.change(), isUsed);
    EXPECT_EQ(skin.description().FormDefaults(FormItem::UnFocusColour).colour() != 0x123456, isUsed);
    EXPECT_TRUE(!spoilt.isEmpty || spoilt.isEmpty(skin.description()));
}

TEST(SpoiltSkins, AreRefused)
{
    for (const SpoiltSkin &spoilt : refused) {
        expectFinding(spoilt, u"error: "_s, false);
    }
}

TEST(SpoiltSkins, AreFoundOutAndDoNoHarm)
{
    for (const SpoiltSkin &spoilt : errors) {
        expectFinding(spoilt, u"error: "_s, true);
    }
    for (const SpoiltSkin &spoilt : warnings) {
        expectFinding(spoilt, u"warning: "_s, true);
    }
}

TEST(SkinCheck, SaysWhereInTheLine)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"skin.toml"_s);
    const std::tuple<QByteArray, QString, QString> cases[] = {
        {"[Menu]\n  TextColour =  'red'\n", u":2:17: error: [Menu] TextColour: "_s, u" warnings\n"_s},
        {"\xEF\xBB\xBF[Menu]\nx = '''\n...'''\n TextColour = {}\n", u":4:15: error: "_s, u" warnings\n"_s},
        {"[Menu]\nTextColour = = 1\n", u":2:"_s, u": 1 error, 0 warnings\n"_s},
    };
    for (const auto &[toml, finding, end] : cases) {
        writeFile(path, toml);
        const QString said = run({u"check"_s, path}).out;
        EXPECT_TRUE(said.contains(path + finding) && said.endsWith(end)) << said.toStdString();
    }
}

TEST(SkinCheck, MeantNamesAreNear)
{
    const QStringList names{u"Over Button"_s, u"Normal Button"_s, u"Font"_s, u"TopLeft"_s};
    const std::pair<QString, QString> cases[] = {
        {u"over button"_s, u"Over Button"_s},
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

} // namespace
