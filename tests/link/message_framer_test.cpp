#include "link/message_framer.h"

#include <QByteArrayList>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

/// Puts the bytes in and takes out every message that is complete then.
QByteArrayList feed(MessageFramer &framer, const QByteArray &text)
{
    QByteArrayView bytes(text);
    QByteArrayList messages;
    while (!bytes.isEmpty()) {
        const auto room = framer.tail();
        const qsizetype count = std::min(bytes.size(), static_cast<qsizetype>(room.size()));
        std::copy_n(bytes.begin(), count, room.begin());
        framer.commit(count);
        bytes = bytes.sliced(count);
        while (const auto message = framer.next()) {
            messages.append(message->toByteArray());
        }
    }
    return messages;
}

TEST(MessageFramer, AnyCutOfTheStreamGivesTheSameMessages)
{
    std::mt19937 random(7);
    QByteArrayList sent;
    QByteArray stream;
    for (const qsizetype size : {5, 0, 70'000, 65'535, 65'536, 1, 200'000, 65'537, 3}) {
        sent.append(QByteArray(size, static_cast<char>('a' + sent.size())));
        stream += sent.last() + '\0';
    }
    for (int round = 0; round < 30; ++round) {
        MessageFramer framer;
        QByteArrayList received;
        for (qsizetype at = 0, piece = 0; at < stream.size(); at += piece) {
            piece = std::uniform_int_distribution<qsizetype>(1, 90'000)(random);
            received += feed(framer, stream.mid(at, piece));
        }
        ASSERT_EQ(received, sent);
        EXPECT_EQ(framer.pendingBytes(), 0);
    }
}

TEST(MessageFramer, AMessageOverTheLimitIsDroppedUpToItsNul)
{
    constexpr qsizetype limit = 100'000;
    MessageFramer framer(limit);
    EXPECT_EQ(feed(framer, QByteArray(limit, 'x') + '\0').size(), 1);
    EXPECT_TRUE(feed(framer, QByteArray(limit + 1, 'x') + '\0').isEmpty());
    EXPECT_EQ(feed(framer, "next" + QByteArray(1, '\0')), (QByteArrayList{"next"}));

    for (int round = 0; round < 200; ++round) { // a line without end
        EXPECT_TRUE(feed(framer, QByteArray(limit, 'x')).isEmpty());
        ASSERT_LE(framer.pendingBytes(), limit + MessageFramer::blockSize);
    }
    EXPECT_EQ(feed(framer, QByteArray("\0next\0", 6)), (QByteArrayList{"next"}));
}

} // namespace
