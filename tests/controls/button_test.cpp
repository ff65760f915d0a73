#include "controls/SkinButton.h"
#include "controls/dressing.h"
#include "skin/clsSkinResourceNew.h"
#include "skin/written_skin.h"
#include "support/eventually.h"
#include "support/input.h"

#include <QAccessible>
#include <QApplication>
#include <QEnterEvent>

#include <map>

namespace {

constexpr QSize frameSize(20, 10);

/// The states by letters: Normal, Clicked, Disabled, HasFocus, Latched, and the frames of Over counted by
/// 1 to 9 and a to z. The picture of each is of one colour, which is the letter itself.
ButtonState stateOf(QChar letter)
{
    const qsizetype number = u"NDC HO L"_s.indexOf(letter); // in the order of their numbers
    return number < 0 ? ButtonState::Over : static_cast<ButtonState>(number);
}
QImage pictureFor(QChar letter, QSize size = frameSize)
{
    return plain(size, qRgb(10, 20, letter.unicode()));
}
QChar letterAt(const QImage &image, int x, int y)
{
    const QRgb pixel = image.isNull() ? 0 : image.pixel(x, y);
    return qRed(pixel) == 10 && qGreen(pixel) == 20 ? QChar(qBlue(pixel)) : u'?';
}

struct ButtonTest : testing::Test
{
    void give(QChar letter, QSize size = frameSize)
    {
        button.SetSkin(stateOf(letter), bitmapOf(pictureFor(letter, size)));
    }
    void wear(const QString &letters)
    {
        for (const QChar letter : letters) {
            give(letter);
        }
        button.FinishSkin();
    }
    QString strip() const
    {
        QString letters;
        for (int x = 0; x < button.strip().Width(); x += frameSize.width()) {
            const QImage &image = button.strip().image();
            const QChar letter = letterAt(image, x + 19, 9);
            letters += letter == letterAt(image, x, 9) ? letter : u'!';
        }
        return letters;
    }
    QChar shown() { return letterAt(button.grab().toImage(), 1, 1); }

    template <typename Event, typename... Arguments>
    void send(Arguments... arguments)
    {
        Event event(arguments...);
        QCoreApplication::sendEvent(&button, &event);
    }
    void act(const QString &what)
    {
        const QPointF in(5, 5);
        const std::map<QString, std::function<void()>> acts = {
            {u"enter"_s, [&] { send<QEnterEvent>(in, in, in); }},
            {u"leave"_s, [&] { send<QEvent>(QEvent::Leave); }},
            {u"press"_s, [&] { sendMouse(button, QEvent::MouseButtonPress, in); }},
            {u"dragOff"_s, [&] { sendMouse(button, QEvent::MouseMove, -in, Qt::NoButton); }},
            {u"dragOn"_s, [&] { sendMouse(button, QEvent::MouseMove, in, Qt::NoButton); }},
            {u"release"_s,
             [&] { sendMouse(button, QEvent::MouseButtonRelease, in, Qt::LeftButton, Qt::NoButton); }},
            {u"focus"_s,
             [&] {
                 button.activateWindow();
                 button.setFocus();
                 EXPECT_TRUE(eventually([&] { return button.hasFocus(); }));
             }},
            {u"unfocus"_s, [&] { button.clearFocus(); }},
            {u"able"_s, [&] { button.setEnabled(true); }},
            {u"disable"_s, [&] { button.setEnabled(false); }},
            {u"latch"_s, [&] { button.setLatched(true); }},
            {u"unlatch"_s, [&] { button.setLatched(false); }}};
        acts.at(what)();
    }

    SkinButton button;
};

} // namespace

TEST_F(ButtonTest, TheStripHoldsTheFramesThatAreThereInTheirOrder)
{
    const std::pair<QString, QString> table[] = {
        {u"N"_s, u"N"_s},       {u"ND12"_s, u"ND12"_s},
        {u"N1HC"_s, u"NCH1"_s}, {u"NLHDC321"_s, u"NCDHL321"_s},
        {u"CDN1"_s, u"N1"_s},   {u"NDCNL"_s, u"NL"_s},
        {u"NOL1"_s, u"NL1"_s},  {u"N123456789abcdefghi"_s, u"N123456789abcdefg"_s},
    };
    for (const auto &[given, expected] : table) {
        give(u'N');
        wear(given);
        EXPECT_EQ(strip(), expected) << given.toStdString();
        EXPECT_EQ(button.size(), frameSize);
        EXPECT_EQ(button.sizeHint(), frameSize);
    }
    EXPECT_EQ(button.frame(ButtonState::Over, 16), QRect(16 * 20, 0, 20, 10)) << "the 17th is lost";
    EXPECT_TRUE(button.frame(ButtonState::Clicked).isNull());
    give(u'C');
    EXPECT_EQ(strip(), u"N123456789abcdefg"_s) << "too late";
    button.SetSkin(ButtonState::Normal, nullptr);
    give(u'N', {1025, 1});
    EXPECT_TRUE(button.isFinished()) << "no bitmap, or too large a one, changes nothing";

    give(u'N');
    give(u'C', {25, 12});
    give(u'1', {33, 20});
    give(u'2', {20, 4});
    wear(u"D"_s);
    EXPECT_EQ(strip(), u"NCD1?"_s) << "no frame reaches into the next";
    EXPECT_EQ(button.size(), frameSize);
}

TEST_F(ButtonTest, ShowsTheStateThatMattersMost)
{
    const std::tuple<QString, QString, QString> table[] = {
        {u"NCDHL1"_s, u"focus enter press release leave unfocus"_s, u"H1C1HN"_s},
        {u"NCDHL1"_s, u"press enter latch disable able release unlatch leave"_s, u"CCLDLL1N"_s},
        {u"NCDHL1"_s, u"disable enter press latch able unlatch release leave"_s, u"DDDDL11N"_s},
        {u"NCDH1"_s, u"latch enter press dragOff dragOn release leave disable able"_s, u"N1CNC1NDN"_s},
        {u"N"_s, u"focus enter press latch disable able release leave"_s, u"NNNNNNNN"_s},
        {u"NH"_s, u"enter press release leave"_s, u"HNHN"_s},
    };
    button.show();
    for (const auto &[skin, acts, expected] : table) {
        button.clearFocus();
        button.setLatched(false);
        button.setEnabled(true);
        wear(skin);
        QString seen;
        for (const QString &what : acts.split(u' ')) {
            act(what);
            seen += shown();
            EXPECT_EQ(letterAt(button.picture(button.State(), 1), 1, 1), seen.back());
        }
        EXPECT_EQ(seen, expected) << skin.toStdString() << " " << acts.toStdString();
    }
    act(u"enter"_s);
    button.hide(); // from under the pointer
    button.show();
    EXPECT_EQ(shown(), u'N');
}

TEST_F(ButtonTest, TheOverFramesGoOnThroughTheSequence)
{
    std::tuple<const char *, OverSequence, QString> table[] = {
        {"once round", {.frames = 3, .reverses = false}, u"11223311223311"_s},
        {"to and fro", {.frames = 3}, u"11223322111122332211"_s},
        {"a pause", {.frames = 3, .pause = 100, .reverses = false}, u"11223311112233111122"_s},
        {"a pause at the end of to and fro", {.frames = 2, .pause = 100}, u"1122111111221111112"_s},
        {"slower", {.frames = 2, .frameDelay = 60, .reverses = false}, u"111222111222"_s},
    };
    for (auto &[what, sequence, frames] : table) {
        QString seen = QString::number(sequence.current);
        while (seen.size() < frames.size()) {
            sequence.advance(25);
            seen += QString::number(sequence.current);
        }
        EXPECT_EQ(seen, frames) << what;
    }
    wear(u"NC123"_s);
    button.Sequence.pause = 600000;
    button.show();
    act(u"enter"_s);
    EXPECT_EQ(shown(), u'1');
    EXPECT_TRUE(eventually([&] { return shown() == u'3'; }));
    act(u"press"_s);
    act(u"release"_s);
    EXPECT_EQ(shown(), u'1') << "begun anew";
    wear(u"N45"_s);
    EXPECT_EQ(shown(), u'4') << "a new skin under the pointer";
    wear(u"N6"_s);
    EXPECT_EQ(shown(), u'6');
    wear(u"N78"_s);
    EXPECT_TRUE(eventually([&] { return shown() == u'8'; })) << "moves, though the one before did not";
}

TEST_F(ButtonTest, TheOverlayStandsInTheMiddleOfEveryState)
{
    const std::pair<QSize, QPoint> table[] = {
        {{4, 4}, {8, 3}}, {{5, 3}, {7, 3}}, {{23, 13}, {-1, -1}}, {{30, 4}, {-5, 3}}};
    for (const auto &[size, place] : table) {
        for (const bool isKeyed : {false, true}) {
            QImage overlay = motley(size, 1, 4);
            overlay.setPixel(0, 0, fuchsia);
            button.OverlayMaskColour = isKeyed ? 0x123456 : noColour;
            wear(u"NOCDHL12"_s); // an overlay that comes too early
            EXPECT_EQ(letterAt(button.picture(ButtonState::Normal, 1), 10, 5), u'N');
            button.SetSkin(ButtonState::Overlay, bitmapOf(overlay));
            EXPECT_EQ(button.OverlayMaskColour, isKeyed ? 0xFF00FF : noColour);
            for (const QChar letter : u"NCDHL1"_s) {
                QImage expected = pictureFor(letter);
                paste(expected, isKeyed ? withoutFuchsia(overlay) : overlay, place);
                EXPECT_EQ(button.picture(stateOf(letter), 1).convertToFormat(expected.format()), expected)
                    << size.width() << letter.toLatin1();
            }
        }
    }
}

TEST_F(ButtonTest, TheCaptionIsInWholePointsAndItsShadowThatOfTheState)
{
    const auto picture = [&](double points) {
        QFont font(u"DejaVu Sans"_s);
        font.setPointSizeF(points);
        button.setFont(font);
        return button.picture(ButtonState::Normal, 1);
    };
    give(u'N', {80, 30});
    button.FinishSkin();
    const QImage plainly = picture(12);
    button.setCaption(u"&Hil"_s);
    const QImage written = picture(12.4);
    EXPECT_EQ(written, picture(12));
    EXPECT_NE(written, plainly);
    const QImage disabled = button.picture(ButtonState::Disabled, 1);
    button.Colours.DisabledShadowColour = 0;
    EXPECT_NE(button.picture(ButtonState::Disabled, 1), disabled) << "a shadow of its own";
    EXPECT_EQ(picture(12), written);
}

TEST_F(ButtonTest, TheCaptionGivesTheAccessKeyAndTheNameThatIsHeard)
{
    const std::tuple<QString, QString, QString> table[] = {
        {u"&Send"_s, u"Alt+S"_s, u"Send"_s}, {u"menu"_s, u"Alt+M"_s, u"menu"_s},
        {u"&&x"_s, u"Alt+M"_s, u"&x"_s},     {u"x&"_s, u"Alt+M"_s, u"x"_s},
        {u"E&xit"_s, u"Alt+X"_s, u"Exit"_s}, {u""_s, u"Alt+X"_s, u""_s},
    };
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&button);
    ASSERT_NE(heard, nullptr);
    for (const auto &[caption, key, name] : table) {
        button.setCaption(caption);
        EXPECT_EQ(button.Caption(), caption);
        EXPECT_EQ(button.shortcut().toString(), key) << caption.toStdString();
        EXPECT_EQ(heard->text(QAccessible::Name), name);
    }
    button.setCaption(QString(100000, u'W'));
    EXPECT_EQ(button.Caption().size(), 500);
    EXPECT_EQ(heard->role(), QAccessible::PushButton);
}

TEST_F(ButtonTest, IsPressedByMouseKeysAndAssistivePrograms)
{
    int clicks = 0;
    QObject::connect(&button, &SkinButton::clicked, &button, [&] { ++clicks; });
    button.show();
    wear(u"NCL"_s);
    act(u"press"_s);
    EXPECT_EQ(clicks, 0);
    act(u"release"_s);
    EXPECT_EQ(clicks, 1);
    int expected = 1;
    const auto expectClick = [&](const std::string &by) {
        ++expected;
        EXPECT_TRUE(eventually([&] { return clicks == expected; })) << by;
    };
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        send<QKeyEvent>(QEvent::KeyPress, key, Qt::NoModifier);
        EXPECT_EQ(shown(), u'C');
        send<QKeyEvent>(QEvent::KeyRelease, key, Qt::NoModifier);
        expectClick(std::to_string(key));
        EXPECT_EQ(shown(), u'N');
    }
    QAccessibleInterface *heard = QAccessible::queryAccessibleInterface(&button);
    for (const bool latched : {false, true}) {
        button.setLatched(latched);
        EXPECT_TRUE(heard->state().checkable);
        EXPECT_EQ(heard->state().checked, latched);
        QStringList actions = heard->actionInterface()->actionNames();
        EXPECT_TRUE(actions.removeOne(QAccessibleActionInterface::setFocusAction()));
        EXPECT_TRUE(actions.contains(QAccessibleActionInterface::pressAction()));
        for (const QString &action : actions) {
            heard->actionInterface()->doAction(action);
            expectClick(action.toStdString());
        }
        EXPECT_EQ(button.Down(), latched) << "latching is the owner's";
    }
    send<QKeyEvent>(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    send<QKeyEvent>(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true); // held down
    button.setEnabled(false);
    clickAt(button, {5, 5});
    pressKey(button, Qt::Key_Return);
    EXPECT_FALSE(eventually([&] { return clicks != expected; }, 200));
}

TEST_F(ButtonTest, ANewSkinForgetsTheOldOne)
{
    QImage mask = plain(frameSize, qRgb(254, 255, 255)); // not quite white
    mask.setPixel(7, 3, qRgb(255, 255, 255));
    const QRegion shape = QRegion(QRect(QPoint(), frameSize)) - QRect(7, 3, 1, 1);
    for (const bool clears : {false, true}) {
        give(u'N');
        button.SetSkin(ButtonState::Mask, bitmapOf(mask));
        wear(u"CDHL123"_s);
        give(u'O', {4, 4});
        EXPECT_TRUE((button.mask() ^ shape).isEmpty());
        EXPECT_EQ(strip(), u"NCDHL123"_s);
        if (clears) {
            button.ClearSkin();
            EXPECT_NE(button.sizeHint(), frameSize) << "the desktop's own look again";
        }
        wear(u"ND"_s);
        EXPECT_EQ(strip(), u"ND"_s);
        EXPECT_EQ(letterAt(button.picture(ButtonState::Normal, 1), 10, 5), u'N') << "no overlay";
        EXPECT_TRUE(button.mask().isEmpty());
    }
}

/// A skin with the pictures of every kind of button.
void writeButtons(WrittenSkin &skin)
{
    const QString three = u"Normal Over Clicked"_s;
    const QString six = three + u" Disabled HasFocus Mask";
    const QString seven = six + u" Down";
    const std::tuple<QString, QString, QString> groups[] = {
        {u"Default Button"_s, u"%1 Button"_s, six},
        {u"Chat Rooms"_s, u"%1 Send Button"_s, six},
        {u"Chat Rooms"_s, u"%1 BIU Button"_s, seven},
        {u"Add Friend Window"_s, u"%1SelectButton"_s, seven},
        {u"Messaging Window"_s, u"%1InfoMsgButton"_s, six},
        {u"Defaults"_s, u"%1SysMin"_s, three},
    };
    for (const auto &[section, key, states] : groups) {
        for (const QString &state : states.split(u' ')) {
            const QChar letter = state == u"Over" ? u'1' : state == u"Down" ? u'L' : state[0];
            skin.set(section, key.arg(state),
                     state == u"Mask" ? plain(frameSize, 0xFF000001) : pictureFor(letter));
        }
    }
    QImage overlay = pictureFor(u'O', {4, 4});
    overlay.setPixel(0, 0, fuchsia);
    skin.set(u"Chat Rooms"_s, u"Italic Overlay"_s, overlay);
    skin.set(u"Chat Rooms"_s, u"Send Button Text"_s, u"'&Go'"_s);
    skin.set(u"Default Button"_s, u"Font"_s, u"{ face = 'DejaVu Serif', size = 7 }"_s);
    int colour = 0;
    for (const QString &key :
         u"ForeColour;Shadow Colour;Disabled Colour;Disabled Shadow Colour"_s.split(u';')) {
        skin.set(u"Default Button"_s, key, QString::number(++colour));
        skin.set(u"Add Friend Window"_s, QString(u"Button " % QString(key).replace(u"ForeC"_s, u"Forec"_s)),
                 QString::number(10 + colour));
    }
    skin.write();
}

TEST_F(ButtonTest, IsDressedWithThePicturesOfItsKind)
{
    WrittenSkin skin;
    writeButtons(skin);
    clsSkinResourceNew description(skin.app);
    clsSkinResourceNew nothing(skin.app);
    description.Initialize();
    description.OptionsForm(OptionsItem::LoadSelectButton);
    description.MessagingForm(PrivateItem::AcquireInfoButton);
    using Skin = clsSkinResourceNew;
    struct
    {
        std::function<void(Skin &)> dress;
        QString strip;
        QString caption = u"&Own"_s;
        ColourValue colour = 1;
    } const table[] = {
        {[&](Skin &worn) { dressButton(button, worn); }, u"NCDH1"_s},
        {[&](Skin &worn) { dressFormatButton(button, worn, RoomItem::ItalicOverlay); }, u"NCDHL1"_s},
        {[&](Skin &worn) { dressFormatButton(button, worn, RoomItem::BoldOverlay); }, u"NCDHL1"_s, u"B"_s},
        {[&](Skin &worn) { dressRoomButton(button, worn, RoomItem::NormalMenu, RoomItem::MenuText); },
         u"NCDH1"_s},
        {[&](Skin &worn) { dressSelectButton(button, worn); }, u"NCDHL1"_s, u"&Own"_s, 11},
        {[&](Skin &worn) { dressInfoButton(button, worn); }, u"NCDH1"_s},
        {[&](Skin &worn) { dressRoomButton(button, worn, RoomItem::NormalSend, RoomItem::SendText); },
         u"NCDH1"_s, u"&Go"_s},
    };
    const auto look = [&] {
        const ButtonColours &all = button.Colours;
        return std::tuple(all.ForeColour, all.ForeShadowColour, all.DisabledForeColour,
                          all.DisabledShadowColour, button.font().family(), button.font().pointSize());
    };
    const auto ofNoSkin = look();
    button.setCaption(u"&Own"_s);
    for (const auto &[dress, expected, caption, first] : table) {
        dress(description);
        EXPECT_EQ(strip(), expected) << expected.toStdString();
        EXPECT_EQ(button.Caption(), caption);
        EXPECT_FALSE(button.mask().isEmpty());
        EXPECT_EQ(look(), std::tuple(first, first + 1, first + 2, first + 3, u"DejaVu Serif"_s, 7));
        dress(nothing);
        EXPECT_FALSE(button.isFinished());
        EXPECT_EQ(look(), ofNoSkin) << "nothing stays of the old skin";
        dressRoomButton(button, nothing, RoomItem::NormalSend, RoomItem::SendText);
        EXPECT_EQ(button.Caption() % button.shortcut().toString(), u"&OwnAlt+O"_s);
    }
    dressSystemButton(button, description, FormItem::NormalSysMin);
    EXPECT_EQ(strip(), u"NC1"_s);
    dressSystemButton(button, nothing, FormItem::NormalSysMin);
    EXPECT_TRUE(button.size().isEmpty()) << "takes no place in the title strip";
    button.setCaption({});
    dressFormatButton(button, description, RoomItem::ItalicOverlay);
    const QImage picture = button.picture(ButtonState::Down, 1);
    EXPECT_EQ(QString(letterAt(picture, 8, 3)) + letterAt(picture, 9, 3), u"LO"_s);
}
