#include "controls/SkinButton.h"
#include "emotions/clsEmoticons.h"
#include "room/compose_box.h"
#include "room/room_controls.h"
#include "support/fake_prompts.h"
#include "support/input.h"
#include "support/text.h"

#include <QLineEdit>

namespace {

struct Compose : testing::Test
{
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        pressKey(*controls.rtfText, key, {}, modifiers);
    }

    [[nodiscard]] QString text() const { return controls.rtfText->text(); }

    QWidget window;
    RoomControls controls{window};
    FakePrompts prompts;
    ComposeBox box{controls, prompts};
    clsEmoticons emoticons;
};

} // namespace

TEST_F(Compose, StylesAndFont)
{
    int changes = 0;
    QObject::connect(&box, &ComposeBox::fontChanged, [&] { ++changes; });
    box.setFont({u"DejaVu Sans"_s, 8.25, false, true, false});
    EXPECT_TRUE(controls.smdItalic->Down() && !controls.smdBold->Down());
    controls.smdBold->click();
    controls.smdItalic->click();
    EXPECT_EQ(box.font(), (ComposeFont{u"DejaVu Sans"_s, 8.25, true, false, false}));
    EXPECT_TRUE(controls.smdBold->Down() && !controls.smdItalic->Down());

    controls.smdFont->click();
    EXPECT_EQ(prompts.boxes, QStringList{u"Font: 8 to 12"_s});
    EXPECT_EQ(changes, 3) << "a cancelled dialog changes nothing";
    const int height = controls.rtfText->height();
    prompts.font = QFont(u"DejaVu Serif"_s, 12);
    controls.smdFont->click();
    EXPECT_EQ(box.font(), (ComposeFont{u"DejaVu Serif"_s, 12, false, false, false}));
    EXPECT_FALSE(controls.smdBold->Down());
    EXPECT_GT(controls.rtfText->height(), height);
}

TEST_F(Compose, EmoticonsAreAppendedWithSpaces)
{
    const std::pair<QString, QString> cases[] = {
        {u""_s, u":) "_s}, {u"hi"_s, u"hi :) "_s}, {u"hi "_s, u"hi :) "_s}};
    for (const auto &[before, after] : cases) {
        controls.rtfText->setText(before);
        controls.rtfText->setCursorPosition(0);
        box.WriteEmotion(u"eHappy"_s, emoticons);
        EXPECT_EQ(text(), after);
    }
    box.WriteEmotion(u"eNobody"_s, emoticons);
    EXPECT_EQ(text(), u"hi :) "_s);
}

TEST_F(Compose, WhatWasSentComesBackAndWhatWasTypedIsNotLost)
{
    for (const QString &line : {u"one"_s, u"two"_s, u"one"_s}) {
        controls.rtfText->setText(line);
        box.sent(line);
        EXPECT_TRUE(text().isEmpty());
    }
    controls.rtfText->setText(u"unsent"_s);
    QStringList seen;
    for (const int key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}) {
        press(key, Qt::ControlModifier);
        seen += text();
    }
    EXPECT_EQ(seen.join(u' '), u"one two two one unsent unsent"_s);
    box.sent(u"gone by now"_s);
    EXPECT_EQ(text(), u"unsent"_s);
    controls.rtfText->setText(u"sentunsent"_s);
    controls.rtfText->setCursorPosition(6);
    box.sent(u"sent"_s);
    EXPECT_EQ(text(), u"unsent"_s) << "typed while the first word was on its way";
    EXPECT_EQ(controls.rtfText->cursorPosition(), 2);
}

TEST_F(Compose, TabCompletesNames)
{
    QStringList names{u"Ann"_s, u"Anna Lee"_s, u"Bob"_s, u"Ann"_s};
    box.setNames([&] { return names; });
    const std::tuple<QString, int, QString> cases[] = {
        {u"an"_s, 1, u"Ann: "_s},
        {u"an"_s, 2, u"Anna Lee: "_s},
        {u"an"_s, 3, u"Ann: "_s},
        {u"hello b"_s, 1, u"hello Bob "_s},
        {u"hello c"_s, 1, u"hello c"_s},
        {u"hello "_s, 1, u"hello "_s},
        {u""_s, 1, u""_s},
    };
    for (const auto &[typed, times, expected] : cases) {
        controls.rtfText->setText(typed);
        for (int i = 0; i < times; ++i) {
            press(Qt::Key_Tab);
        }
        EXPECT_EQ(text(), expected) << qPrintable(typed) << ' ' << times;
    }
    controls.rtfText->setText(u"bo, how are you"_s);
    controls.rtfText->setCursorPosition(2);
    press(Qt::Key_Tab);
    EXPECT_EQ(text(), u"Bob: , how are you"_s) << "what stands behind the caret stays";
}
