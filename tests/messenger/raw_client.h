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

    [[nodiscard]] bool isConnected()
    {
        return eventually([this] { return socket.state() == TcpSocket::State::Connected; });
    }

    /// Sends a request under the next key: C1, C2 …
    void request(const QString &text) { send(message(text)); }
    void send(const QByteArray &bytes) { socket.write(bytes); }
    [[nodiscard]] QByteArray message(const QString &request)
    {
        const QString text = u"<MSG><V mk=\"C%1\"/>"_s.arg(++keys) + request + u"</MSG>"_s;
        return text.toLatin1() + QByteArray(1, '\0');
    }

    /// Waits until a message came that holds the text.
    [[nodiscard]] bool gets(const QString &text)
    {
        return eventually([&] { return count(text) > 0; });
    }
    [[nodiscard]] qsizetype count(const QString &text) const
    {
        return std::ranges::count_if(received,
                                     [&](const QString &message) { return message.contains(text); });
    }

    /// Asks to join the lobby and enters it.
    [[nodiscard]] bool entersLobby()
    {
        request(u"<REQUESTJOINCHANNEL cid=\"1\" id=\"\" nm=\"\"/>"_s);
        request(u"<NOTIFYJOINCHANNEL cid=\"1\" id=\"\" tid=\"h1\" cnm=\"Lobby\"/>"_s);
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
