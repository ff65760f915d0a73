#pragma once

#include "link/clsXMLMessage.h"
#include "link/message_framer.h"
#include "platform/tcp_socket.h"

#include <QObject>
#include <QTimer>

#include <memory>

class CodePage;

namespace messenger {

/// The connection of one client: cuts what arrives into messages, opens their envelopes, and sends. One
/// client never takes the others' time: only so many messages are handled at a turn of the event loop, and a
/// client that does not read its answers is not read from until it has.
class Client final : public QObject
{
    Q_OBJECT

public:
    static constexpr int stepsPerTurn = 64;                              ///< messages and reads
    static constexpr qsizetype pauseAbove = qsizetype(256) * 1024;       ///< unsent bytes
    static constexpr qsizetype giveUpAbove = qsizetype(8) * 1024 * 1024; ///< unsent bytes
    static constexpr qsizetype longestKey = 64;                          ///< characters of a request's mark

    /// The code page must outlive the client.
    Client(const QString &userId, std::unique_ptr<TcpSocket> socket, const CodePage &codePage);

    [[nodiscard]] QString userId() const { return m_userId; }

    /// Sends bytes that end with the NUL. A client that lets too much pile up is given up; from one that has
    /// gone, what it sent before is still handled.
    void send(QByteArrayView bytes);

    /// Bytes that were sent and that the system has not taken yet.
    [[nodiscard]] qsizetype pendingBytes() const { return m_socket->pendingBytes(); }

    void close();

Q_SIGNALS:
    /// A message whose envelope is right. The element is gone after the call.
    void requested(const QString &key, const clsXMLMessage &request);
    void messageRead(const QString &text);
    /// The connection is over. Signalled once.
    void finished();

private:
    void work();
    bool step();
    bool readMore();
    void handle(QByteArrayView bytes);
    void resume();
    [[nodiscard]] bool mayWork() const { return m_open && !m_paused; }

    QString m_userId;
    std::unique_ptr<TcpSocket> m_socket;
    const CodePage &m_codePage;
    MessageFramer m_framer;
    QTimer m_nextTurn;
    bool m_open = true;
    bool m_paused = false; ///< until what was sent is taken
    bool m_mute = false;   ///< writing has failed
    bool m_ended = false;  ///< nothing more will arrive
};

} // namespace messenger
