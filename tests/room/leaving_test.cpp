#include "room/exit_road.h"
#include "windowless_room_fixture.h"

namespace {

TEST_F(Room, LeavingAndClosing)
{
    lifecycle.LeaveRoom(true);
    EXPECT_TRUE(prompts.boxes.isEmpty()) << "there is no room to leave";
    join();
    prompts.answer = PromptAnswer::No;
    lifecycle.LeaveRoom(true);
    EXPECT_TRUE(state.InRoom);
    prompts.answer = PromptAnswer::Yes;
    answer(u"LEAVECHANNEL"_s, uR"(<KLC r="1"/>)"_s);
    lifecycle.LeaveRoom(true);
    EXPECT_EQ(shown(), QStringList{u"5 You have left the room but there was a server error!"_s});
    EXPECT_FALSE(state.InRoom);
    own();
    lifecycle.CloseRoom(true);
    EXPECT_EQ(shown().last(), u"4 Your room was closed successfully!"_s);
    const QString leave = u"Question: Leave Room: Do you really wish to leave the current room you are in?"_s;
    EXPECT_EQ(prompts.boxes,
              (QStringList{leave, leave, u"Question: Close Room: Do you really wish to close your room?"_s}));
}

TEST_F(Room, WhoGoesOnWhileTheAnswerToLeavingIsAwaitedHasLeft)
{
    join();
    QTimer::singleShot(0, [this] {
        lifecycle.endDeparture();
        EXPECT_EQ(lifecycle.ShownRoomID(), 0);
        own(13);
    });
    lifecycle.LeaveRoom(false);
    EXPECT_EQ(shown(), QStringList{u"3 Created room: Talk - Mine"_s});
    lifecycle.endDeparture();
    EXPECT_TRUE(state.InRoom) << "nothing is under way";
}

TEST_F(Room, TheWayOutLeavesTheRoomAndEndsEvenWithoutAnAnswer)
{
    ExitRoad exitRoad(state, lifecycle, link);
    bool ended = false;
    QObject::connect(&exitRoad, &ExitRoad::ended, [&] { ended = true; });
    join();
    messenger.answerBy([](const QString &) { return QStringList(); });
    messenger.requests.clear();
    exitRoad.start();
    exitRoad.start();
    EXPECT_TRUE(eventually([&] { return ended; }));
    EXPECT_EQ(messenger.requests, QStringList{u"<LEAVECHANNEL cid=\"12\"/>"_s});
    EXPECT_TRUE(link.isShutDown());
}

} // namespace
