#include "room/session_commands.h"
#include "support/room_fixture.h"

#include <QTemporaryDir>

namespace {

struct RoomWindow : RoomFixture
{
    void beOwner()
    {
        state.CurrentRoomID = 12;
        state.InRoom = state.IsRoomOwner = true;
    }
};

TEST_F(RoomWindow, EnterSendsAndEmptiesTheBox)
{
    text->setText(u"hello"_s);
    send();
    EXPECT_EQ(text->text(), u"hello"_s) << "no room, nothing sent";

    beOwner();
    send();
    EXPECT_TRUE(text->text().isEmpty());
    EXPECT_EQ(board->toPlainText(), u"Ann: hello"_s);

    text->setText(u"sent"_s);
    QTimer::singleShot(0, [&] { text->insert(u" and more"_s); });
    window.findChild<QAbstractButton *>(u"smdSend"_s)->click();
    EXPECT_EQ(text->text(), u"sent and more"_s) << "nothing that was typed is lost";
}

TEST_F(RoomWindow, ClosingAsksAnOwnerWithGuestsAndTakesTheWayOut)
{
    beOwner();
    messenger.send(u"<QJC id=\"u1\" nm=\"Ann\"/><QJC id=\"u2\" nm=\"Bob\"/>"_s);
    ASSERT_TRUE(eventually([this] { return board->toPlainText().contains(u"Bob"_s); }));
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
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const bool isReached = (widget->focusPolicy() & Qt::TabFocus) != 0;
        EXPECT_TRUE(!isReached || !widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
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
    prompts.file = folder.filePath(u"kept"_s);
    session.save();
    ASSERT_TRUE(eventually([&] { return whole.has_value(); }));
    QFile file(folder.filePath(u"kept.rtf"_s));
    ASSERT_TRUE(*whole && file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("hello"));

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
