#include "room/session_commands.h"
#include "support/composed.h"
#include "support/files.h"
#include "support/room_fixture.h"

#include <QGuiApplication>

namespace {

using RoomWindow = RoomFixture;

TEST_F(RoomWindow, WhatIsTypedWhileAMessageIsOnItsWayStays)
{
    enter();
    text->setText(u"sent"_s);
    QTimer::singleShot(0, [&] { text->insert(u" and more"_s); });
    press(u"smdSend"_s);
    EXPECT_EQ(text->text(), u" and more"_s);
}

TEST_F(RoomWindow, SystemColoursOfTheOptionsAreThoseOfTheDesktop)
{
    constexpr ColourValue windowGround = 0x80000005;
    options.MMBC = options.CMBC = windowGround;
    window.takeOptions();
    const QColor ground = QGuiApplication::palette().color(QPalette::Base);
    EXPECT_EQ(text->palette().color(QPalette::Base), ground);
    EXPECT_EQ(board->backgroundColour(), ground);
}

TEST_F(RoomWindow, ClosingAsksAnOwnerWithGuestsAndTakesTheWayOut)
{
    enter(true);
    receive(u"<QJC id=\"u1\" nm=\"Ann\"/><QJC id=\"u2\" nm=\"Bob\"/>"_s);
    prompts.answer = PromptAnswer::No;
    EXPECT_FALSE(window.close());
    EXPECT_EQ(prompts.boxes, QStringList{u"Warning: Leave Chat: You still have people in your chat room!  "
                                         "Do you still wish to leave?"_s});
    EXPECT_FALSE(link.isShutDown());

    prompts.answer = PromptAnswer::Yes;
    EXPECT_FALSE(window.close() || window.close()) << "it closes when the room has been left";
    EXPECT_EQ(prompts.boxes.size(), 2) << "the question is asked once";
    EXPECT_TRUE(eventually([&] { return exited && !window.isVisible(); }));
}

TEST_F(RoomWindow, EveryControlHasAName)
{
    expectNames(window);
}

TEST_F(RoomWindow, SavesTheSessionOrNothing)
{
    EXPECT_EQ(sessionDate(QDate(2026, 3, 5)), u"05-Mar-2026"_s);
    SessionCommands session(*board, prompts, &window);
    std::optional<bool> whole;
    QObject::connect(&session, &SessionCommands::saved, [&](bool written) { whole = written; });
    window.AddMessage(u"hello"_s, MessageKind::Normal);
    session.save();
    const QString today = sessionDate(QDate::currentDate());
    EXPECT_EQ(prompts.boxes.last(),
              QString(u"Save: Save Session to File: Chat Session " + today + u".rtf: Richtext File (*.rtf)"));
    prompts.file = folder.filePath(u"kept.rtf"_s);
    session.save();
    ASSERT_TRUE(eventually([&] { return whole.has_value(); }));
    EXPECT_TRUE(*whole && contentOf(folder.filePath(u"kept.rtf"_s)).contains("hello"));

    whole.reset();
    prompts.file = folder.filePath(u"no such folder/kept.rtf"_s);
    session.save();
    ASSERT_TRUE(eventually([&] { return whole.has_value(); }));
    EXPECT_FALSE(*whole);
    prompts.boxes.clear();
    prompts.answer = PromptAnswer::No;
    session.print();
    EXPECT_EQ(prompts.boxes,
              QStringList{u"Information: Print Session: This will print the chat session to your Default "
                          "printer.\n\nDo you wish to continue?"_s});
}

} // namespace
