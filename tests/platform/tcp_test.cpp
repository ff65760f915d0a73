#include "platform/tcp_listener.h"
#include "support/scripted_messenger.h"

#include <array>
#include <gtest/gtest.h>
#include <unistd.h>
#include <vector>

namespace {

struct Connection : testing::Test
{
    void SetUp() override
    {
        ASSERT_TRUE(listener.listen(0));
        meet();
    }

    void meet()
    {
        server.reset();
        client.connectToLocalHost(listener.port());
        ASSERT_TRUE(eventually([&] {
            server = server ? std::move(server) : listener.accept();
            return server != nullptr && client.state() == TcpSocket::State::Connected;
        }));
    }

    /// Reads until something else than data or emptiness comes.
    TcpSocket::ReadStatus readToTheEnd(QByteArray &bytes)
    {
        std::array<char, 4096> room{};
        TcpSocket::ReadResult result;
        (void)eventually([&] {
            result = client.read(room);
            if (result.status == TcpSocket::ReadStatus::Data) {
                bytes.append(room.data(), result.count);
            }
            return result.status != TcpSocket::ReadStatus::Data &&
                   result.status != TcpSocket::ReadStatus::Empty;
        });
        return result.status;
    }

    TcpListener listener;
    TcpSocket client;
    std::unique_ptr<TcpSocket> server;
};

TEST_F(Connection, MoreThanTheSystemTakesAtOnceArrivesWhole)
{
    QByteArray sent(20'000'000, 'x');
    sent[12'345'678] = 'y';
    bool drained = false;
    QObject::connect(server.get(), &TcpSocket::drained, [&] { drained = true; });
    ASSERT_TRUE(server->write(sent));
    EXPECT_GT(server->pendingBytes(), 0);
    QByteArray received;
    QObject::connect(&client, &TcpSocket::arrived, [&] {
        std::array<char, 65536> room{};
        received.append(room.data(), client.read(room).count);
    });
    ASSERT_TRUE(eventually([&] { return received.size() == sent.size() && drained; }));
    EXPECT_EQ(received, sent);
}

TEST_F(Connection, ClosingAndResettingAreToldApart)
{
    for (const bool resets : {false, true}) {
        QByteArray bytes;
        ASSERT_TRUE(resets || server->write("last words"));
        resets ? server->reset() : server->close();
        EXPECT_EQ(readToTheEnd(bytes), resets ? TcpSocket::ReadStatus::Reset : TcpSocket::ReadStatus::Closed);
        EXPECT_EQ(bytes, resets ? "" : "last words");
        client.close();
        EXPECT_FALSE(client.write("x"));
        meet();
    }
    client.close();
    const quint16 port = listener.port();
    listener.close();
    client.connectToLocalHost(port); // nobody listens any more
    EXPECT_TRUE(eventually([&] { return client.state() == TcpSocket::State::NotConnected; }));
}

TEST_F(Connection, WithoutDescriptorsTheListenerRestsAndGoesOnLater)
{
    int arrivals = 0;
    QStringList reasons;
    QObject::connect(&listener, &TcpListener::arrived, [&] {
        ++arrivals;
        server = listener.accept();
    });
    QObject::connect(&listener, &TcpListener::paused, [&](const QString &why) { reasons += why; });
    server.reset();
    client.close();
    client.connectToLocalHost(listener.port());
    std::vector<int> taken;
    for (int one = 0; (one = dup(0)) >= 0;) {
        taken.push_back(one);
    }
    (void)eventually([] { return false; }, 1500);
    EXPECT_LE(arrivals, 3);
    EXPECT_EQ(reasons.size(), 1);
    for (const int one : taken) {
        close(one);
    }
    EXPECT_TRUE(eventually([&] { return server != nullptr; }));
}

} // namespace
