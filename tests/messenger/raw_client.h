#pragma once

#include "link/message_framer.h"
#include "platform/tcp_socket.h"
#include "support/eventually.h"
#include "support/text.h"

#include <QStringList>

#include <algorithm>

/// A client as simple as can be: it sends what it is told and keeps what it gets.
class RawClient
{
public:
    explicit RawClient(quint16 port, bool reads = true)
    {
        socket.setReading(reads);
        QObject::connect(&socket, &TcpSocket::arrived, &socket, [this] { read(); });
        socket.connectToLocalHost(port);
    }

    /// Sends a request so many times at once, each under the next key: C1, C2 …
    void request(const QString &text, int times = 1)
    {
        QByteArray bytes;
        for (int count = 0; count < times; ++count) {
            bytes += QString(u"<MSG><V mk=\"C%1\"/>"_s.arg(++keys) + text + u"</MSG>").toLatin1() + '\0';
        }
        send(bytes);
    }
    void send(const QByteArray &bytes) { socket.write(bytes); }

    /// Waits until a message came that holds the text.
    [[nodiscard]] bool gets(const QString &text, int milliseconds = 10000)
    {
        const auto holds = [&](const QString &message) { return message.contains(text); };
        return eventually([&] { return std::ranges::any_of(received, holds); }, milliseconds);
    }

    /// Asks to join the lobby and enters it.
    void asksForLobby()
    {
        request(u"<REQUESTJOINCHANNEL cid=\"1\" id=\"\" nm=\"\"/>"_s);
        request(u"<NOTIFYJOINCHANNEL cid=\"1\" id=\"\" tid=\"h1\" cnm=\"Lobby\"/>"_s);
    }
    [[nodiscard]] bool entersLobby()
    {
        asksForLobby();
        return gets(u"<NJC r=\"0\"/>"_s);
    }

    QStringList received;
    TcpSocket socket;
    int keys = 0;
    bool isClosed = false;

private:
    void read()
    {
        while (true) {
            const auto result = socket.read(m_framer.tail());
            if (result.status != TcpSocket::ReadStatus::Data) {
                isClosed = result.status != TcpSocket::ReadStatus::Empty;
                socket.setReading(!isClosed);
                return;
            }
            m_framer.commit(result.count);
            while (const auto text = m_framer.next()) {
                received.append(QString::fromLatin1(*text));
            }
        }
    }

    MessageFramer m_framer;
};
