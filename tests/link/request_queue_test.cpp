#include "link/request_queue.h"
#include "support/text.h"

namespace {

constexpr qint64 start = 1'000'000;

struct Queue : testing::Test
{
    RequestQueue queue;
};

TEST_F(Queue, WrapsAndKeysRequests)
{
    const auto first = queue.add(u"<GETSKIN/>"_s, true, start);
    const auto second = queue.add(u"<A nm=\"x\0<B/>\"/>"_s, true, start);
    EXPECT_EQ(first->MsgKey, u"C1"_s);
    EXPECT_EQ(first->MessageToSend, u"<MSG><V mk=\"C1\"/><GETSKIN/></MSG>\0"_s);
    EXPECT_EQ(first->RetString, first->MessageToSend);
    EXPECT_EQ(second->MsgKey, u"C2"_s);
    EXPECT_EQ(second->MessageToSend.count(u'\0'), 1) << "no request can smuggle in another message";
    EXPECT_EQ(queue.find(u"C2"_s), second);
}

TEST_F(Queue, OneRequestAtATime)
{
    const auto first = queue.add({}, true, start);
    const auto second = queue.add({}, true, start);
    EXPECT_EQ(queue.nextToSend(), first);
    first->Sent = true;
    EXPECT_EQ(queue.nextToSend(), nullptr);
    first->Processed = true;
    EXPECT_EQ(queue.nextToSend(), second);
    {
        const RecordUse use(second);
        EXPECT_FALSE(second->Terminate);
    }
    EXPECT_TRUE(second->Terminate) << "its use has ended";
    EXPECT_EQ(queue.nextToSend(), nullptr);
}

TEST_F(Queue, GivesUpAfterThirtySecondsAndForgetsAfterForty)
{
    const auto unanswered = queue.add({}, true, start);
    const auto answered = queue.add({}, true, start);
    const auto finished = queue.add({}, true, start);
    unanswered->Sent = true;
    answered->Processed = true;
    answered->RetCode = RetCode::Replied;
    finished->Terminate = true;

    queue.cleanUp(start + 30'999);
    EXPECT_EQ(queue.records().Count(), 2) << "what is finished with goes at once";
    EXPECT_FALSE(unanswered->Terminate);
    queue.cleanUp(start + 31'000);
    EXPECT_TRUE(unanswered->Terminate && unanswered->RetCode == RetCode::NoReply);
    EXPECT_FALSE(answered->Terminate) << "its caller may still read it";
    queue.cleanUp(start + 31'050);
    EXPECT_EQ(queue.find(unanswered->MsgKey), nullptr);
    queue.cleanUp(start + 40'999);
    EXPECT_EQ(queue.find(answered->MsgKey), answered);
    queue.cleanUp(start + 41'000);
    EXPECT_EQ(queue.records().Count(), 0);
    EXPECT_EQ(answered->RetCode, RetCode::Replied);
}

TEST_F(Queue, TheEndOfTheConnection)
{
    const auto answered = queue.add({}, true, start);
    const auto waiting = queue.add({}, true, start);
    const auto last = queue.add({}, true, start);
    answered->Processed = true;
    answered->RetCode = RetCode::Replied;
    queue.failLast();
    queue.failAll();
    const auto late = queue.add({}, false, start);
    const QList<enum RetCode> codes{answered->RetCode, waiting->RetCode, last->RetCode, late->RetCode};
    EXPECT_EQ(codes, (QList{RetCode::Replied, RetCode::NotSent, RetCode::ConnectionReset, RetCode::NotSent}));
    EXPECT_TRUE(waiting->Processed && last->Processed && late->Processed && late->Terminate);
    EXPECT_NE(queue.nextToSend(), late);
    RequestQueue().failLast();
}

} // namespace
