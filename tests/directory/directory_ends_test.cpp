#include "directory_fixture.h"

namespace {

/// Whatever is waited for, the directory, or the program, may end: by closing, shutting down, deleting.
struct DirectoryEnds : Directory, testing::WithParamInterface<std::tuple<QString, int>>
{};

TEST_P(DirectoryEnds, InAnyWait)
{
    const auto &[awaited, way] = GetParam();
    const bool creates = awaited == u"<CREATECHANNEL";
    answer(u"<REQUESTJOINCHANNEL"_s, uR"(<AJC r="5"/>)"_s);
    answer(u"<CREATECHANNEL"_s, uR"(<ACC r="0" cid="31"/>)"_s);
    beInRoom(false);
    onRequest = [this, &awaited = awaited, way = way](const QString &request) {
        if (request.startsWith(awaited)) {
            pressKey(*tree, Qt::Key_Down); // what would be next
            const std::function<void()> ways[] = {[this] { window->close(); }, [this] { link.setShutDown(); },
                                                  [this] { desk.reset(); }};
            ways[way]();
        }
    };
    const auto isOpen = [this] { return window != nullptr && window->isVisible() && !link.isShutDown(); };
    browse([&] {
        if (isOpen()) {
            click(u"Lounge"_s);
        }
        if (isOpen() && creates) {
            createWith([](frmNewChat &dialog) { create(dialog, u"den"_s); });
        } else if (isOpen()) {
            click(u"Attic (members: 0)"_s);
            button(u"smdOk"_s)->click();
        }
    });
    EXPECT_EQ(messenger.requests.filter(awaited).size(), 1);
    EXPECT_TRUE(messenger.requests.last().startsWith(awaited)) << "nothing is asked after it";
    EXPECT_EQ(prompts.boxes.filter(u"Room Error"_s), QStringList());
    const bool stays = awaited.startsWith(u"<GET");
    EXPECT_EQ(state.CurrentRoomID, stays ? 5 : creates && way == 0 ? 31 : 0) << "a room is never orphaned";
    EXPECT_EQ(roomsWhenLeft, way == 2 ? QList<qint32>() : QList{state.CurrentRoomID});
}

INSTANTIATE_TEST_SUITE_P(Waits, DirectoryEnds,
                         testing::Combine(testing::Values(u"<GETCATEGORIES"_s, u"<GETCHANNELS"_s,
                                                          u"<LEAVECHANNEL"_s, u"<REQUESTJOINCHANNEL"_s,
                                                          u"<CREATECHANNEL"_s),
                                          testing::Values(0, 1, 2)));

} // namespace
