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

    TcpListener listener;
    TcpSocket client;
    std::unique_ptr<TcpSocket> server;
};

TEST_F(Connection, ClosingAndResettingAreToldApart)
{
    using Status = TcpSocket::ReadStatus;
    for (const bool resets : {false, true}) {
        SCOPED_TRACE(resets ? "reset" : "closed");
        ASSERT_TRUE(resets || server->write("last words"));
        resets ? server->reset() : server->close();
        QByteArray bytes;
        EXPECT_TRUE(eventually([&] {
            std::array<char, 4096> room{};
            const auto [status, count] = client.read(room);
            bytes.append(room.data(), status == Status::Data ? count : 0);
            return status == (resets ? Status::Reset : Status::Closed);
        }));
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
