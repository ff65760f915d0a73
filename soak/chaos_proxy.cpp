#include "soak/chaos_proxy.h"

#include <QRegularExpression>
#include <QTimer>

#include <array>
#include <string_view>
#include <utility>

namespace {

constexpr qsizetype mostWaiting = 1 << 20; // bytes for the client; then the messenger waits as well
constexpr int mostPieces = 300;            // in a row
constexpr int acknowledgedInTime = 29'000; // milliseconds

QByteArray keyOf(const QByteArray &message)
{
    const qsizetype start = message.indexOf('"') + 1;
    return message.mid(start, message.indexOf('"', start) - start);
}

/// What the soak's own user has typed.
QString wordsIn(const QByteArray &message)
{
    static const QRegularExpression words(QStringLiteral("(q\\d+\\.)+"));
    return words.match(QString::fromLatin1(message)).captured();
}

QByteArray attribute(const QByteArray &message, const char *name)
{
    const QByteArray start = ' ' + QByteArray(name) + "=\"";
    const qsizetype at = message.indexOf(start);
    return at < 0 ? QByteArray() : message.mid(at + start.size()).split('"').value(0);
}

void talk(TcpSocket &member, const QByteArray &payload)
{
    member.write(QByteArray("<MSG><V mk=\"C1\"/>" + payload + "</MSG>" + '\0'));
}

/// Ways in which a reply is none. To a message of the user the last one would be as good as any.
QByteArray broken(const QByteArray &reply, int way)
{
    static const QByteArray payloads[] = {"", "<NACKSM r=\"0\"/>", "<KLC r=\"-99999999999999\"/>"};
    return "<MSG><V mk=\"" + keyOf(reply) + "\"/>" + payloads[way] + "</MSG>";
}

} // namespace

/// The client, the messenger, and what is on its way between them.
struct ChaosProxy::Connection : QObject
{
    Connection(ChaosProxy &proxy, std::unique_ptr<TcpSocket> arrived)
        : m_proxy(proxy), m_client(std::move(arrived))
    {
        m_client->setReading(false);
        connect(m_client.get(), &TcpSocket::arrived, this, &Connection::readClient);
        connect(m_client.get(), &TcpSocket::drained, this, &Connection::pump);
        connect(&m_messenger, &TcpSocket::arrived, this, &Connection::readMessenger);
        connect(&m_messenger, &TcpSocket::stateChanged, this, &Connection::connected);
        m_messenger.connectToLocalHost(proxy.m_messengerPort);
        connected();
    }

    void deliver(const QByteArray &message)
    {
        m_outgoing += message + '\0';
        pump();
    }

    void stall(int milliseconds)
    {
        m_stalled = true;
        QTimer::singleShot(milliseconds, this, [this] {
            m_stalled = false;
            pump();
        });
    }

    void end(bool reset)
    {
        reset ? m_client->reset() : m_client->close();
        m_messenger.close();
    }

private:
    void connected()
    {
        if (m_messenger.state() == TcpSocket::State::Connected) {
            m_client->setReading(true);
        }
    }

    template <typename Handle>
    static bool read(TcpSocket &socket, MessageFramer &framer, const Handle &handle)
    {
        const TcpSocket::ReadResult result = socket.read(framer.tail());
        if (result.status == TcpSocket::ReadStatus::Data) {
            framer.commit(result.count);
            while (const auto message = framer.next()) {
                handle(message->toByteArray());
            }
        }
        return result.status == TcpSocket::ReadStatus::Data || result.status == TcpSocket::ReadStatus::Empty;
    }

    void readClient()
    {
        if (!read(*m_client, m_fromClient, [this](const QByteArray &request) { pass(request); })) {
            end(false);
        }
    }

    void readMessenger()
    {
        if (!read(m_messenger, m_fromMessenger, [this](const QByteArray &message) { take(message); })) {
            end(false);
        }
    }

    /// A request, on its way to the messenger.
    void pass(const QByteArray &request)
    {
        if (request.contains("<CMSG ")) {
            m_words.insert(keyOf(request), wordsIn(request));
        }
        m_proxy.m_stay +=
            request.contains("<NOTIFYJOINCHANNEL ") || request.contains("<CREATECHANNEL ") ? 1 : 0;
        m_messenger.write(QByteArray(request + '\0'));
    }

    /// Replies suffer, events do not: what the messenger tells by itself can be checked.
    void take(const QByteArray &message)
    {
        const QByteArray key = keyOf(message);
        if (key == "MSG" || !m_proxy.m_fault) {
            finish(message);
            return;
        }
        const Fault fault = *std::exchange(m_proxy.m_fault, std::nullopt);
        switch (fault.kind) {
        case Fault::Kind::Late:
            if (fault.number > acknowledgedInTime) {
                m_words.remove(key);
            }
            QTimer::singleShot(fault.number, this, [=, this] { finish(message); });
            break;
        case Fault::Kind::Lost:
            break;
        case Fault::Kind::Broken:
            deliver(broken(message, fault.number % (m_words.contains(key) ? 2 : 3)));
            break;
        case Fault::Kind::Twice:
            finish(message);
            deliver(message);
            break;
        }
    }

    /// What is about to be delivered is in the list before the client can have it.
    void finish(const QByteArray &message)
    {
        if (message.contains("<RCMSG ")) {
            static const QRegularExpression mark(QChar(serialMark) + QStringLiteral("(\\d+)\\."));
            const auto match = mark.match(QString::fromLatin1(message));
            if (match.hasMatch()) {
                const bool isPrivate = attribute(message, "tid") != "0";
                note({isPrivate ? Delivered::Kind::PrivateMessage : Delivered::Kind::RoomMessage,
                      {},
                      match.capturedView(1).toInt(),
                      QString::fromLatin1(attribute(message, "id")),
                      m_proxy.m_stay});
            }
        } else if (message.contains("<ACKSM")) {
            if (const QString words = m_words.take(keyOf(message)); !words.isEmpty()) {
                note({Delivered::Kind::Acknowledgement, words, 0, {}, m_proxy.m_stay});
            }
        }
        deliver(message);
    }

    void note(const Delivered &delivered)
    {
        const QMutexLocker lock(&m_proxy.m_mutex);
        m_proxy.m_delivered += delivered;
    }

    void pump()
    {
        if (m_stalled || m_pumping || m_outgoing.isEmpty()) {
            return;
        }
        const bool inPieces = m_proxy.m_pieces > 0 && m_proxy.m_piecesLeft-- > 0;
        const qsizetype size = inPieces ? m_proxy.m_pieces : m_outgoing.size();
        m_client->write(m_outgoing.first(std::min(size, m_outgoing.size())));
        m_outgoing.remove(0, size);
        m_messenger.setReading(m_outgoing.size() < mostWaiting);
        if (!m_outgoing.isEmpty()) {
            m_pumping = true;
            QTimer::singleShot(0, this, [this] {
                m_pumping = false;
                pump();
            });
        }
    }

    ChaosProxy &m_proxy;
    std::unique_ptr<TcpSocket> m_client;
    TcpSocket m_messenger;
    MessageFramer m_fromClient;
    MessageFramer m_fromMessenger;
    QHash<QByteArray, QString> m_words; ///< by the key of their request
    QByteArray m_outgoing;              ///< to the client
    bool m_stalled = false;
    bool m_pumping = false; ///< the next piece goes with the next turn
};

ChaosProxy::ChaosProxy(quint16 messengerPort) : m_messengerPort(messengerPort), m_listener(this)
{
    connect(&m_listener, &TcpListener::arrived, this, &ChaosProxy::accept);
}

ChaosProxy::~ChaosProxy() = default;

quint16 ChaosProxy::listen()
{
    m_listener.listen(0);
    return m_listener.port();
}

void ChaosProxy::accept()
{
    m_connection = std::make_unique<Connection>(*this, m_listener.accept());
}

void ChaosProxy::arm(Fault fault)
{
    QMetaObject::invokeMethod(this, [=, this] { m_fault = fault; });
}

void ChaosProxy::inject(const QByteArray &message)
{
    QMetaObject::invokeMethod(this, [=, this] {
        if (m_connection) {
            m_connection->deliver(message);
        }
    });
}

void ChaosProxy::setPieces(int size)
{
    QMetaObject::invokeMethod(this, [=, this] {
        m_pieces = size;
        m_piecesLeft = mostPieces;
    });
}

void ChaosProxy::stall(int milliseconds)
{
    QMetaObject::invokeMethod(this, [=, this] {
        if (m_connection) {
            m_connection->stall(milliseconds);
        }
    });
}

void ChaosProxy::breakConnection(bool reset)
{
    QMetaObject::invokeMethod(this, [=, this] {
        if (m_connection) {
            m_connection->end(reset);
        }
    });
}

void ChaosProxy::calm()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_connection.reset();
            m_crowd.clear();
            m_fault.reset();
            m_pieces = 0;
        },
        Qt::BlockingQueuedConnection);
}

void ChaosProxy::crowdArrives(int count, int roomId)
{
    QMetaObject::invokeMethod(this, [=, this] {
        for (int at = 0; at < count; ++at) {
            TcpSocket &member = *m_crowd.emplace_back(std::make_unique<TcpSocket>());
            const QByteArray room = " cid=\"" + QByteArray::number(roomId) + '"';
            connect(&member, &TcpSocket::stateChanged, this,
                    [=, &member] { talk(member, "<REQUESTJOINCHANNEL" + room + " id=\"x\" nm=\"x\"/>"); });
            connect(&member, &TcpSocket::arrived, this, [=, &member] {
                std::array<char, 8192> heard{};
                (void)member.read(heard);
                if (std::string_view(heard.data(), heard.size()).find("<V mk=\"MSG\"/><AJC ") !=
                    std::string_view::npos) {
                    talk(member, "<NOTIFYJOINCHANNEL" + room + " id=\"x\" tid=\"x\" cnm=\"x\"/>");
                }
            });
            member.connectToLocalHost(m_messengerPort);
        }
    });
}

void ChaosProxy::crowdLeaves(int count)
{
    QMetaObject::invokeMethod(
        this, [=, this] { m_crowd.resize(std::max(0, static_cast<int>(m_crowd.size()) - count)); });
}

void ChaosProxy::crowdSpeaks(int roomId, const QString &toUserId, int firstSerial, int count)
{
    QMetaObject::invokeMethod(this, [=, this] {
        for (int at = 0; at < count && !m_crowd.empty(); ++at) {
            TcpSocket &speaker = *m_crowd[toUserId.isEmpty() ? 0 : std::size_t(at) % m_crowd.size()];
            const QByteArray target =
                toUserId.isEmpty() ? QByteArray() : QByteArray(" tid=\"" + toUserId.toLatin1() + '"');
            talk(speaker, "<CMSG cid=\"" + QByteArray::number(roomId) + "\" id=\"x\"" + target +
                              ">\\<SMSG\\>n" + QByteArray::number(firstSerial + at) +
                              ". and so the evening goes on\x01</CMSG>");
        }
    });
}

QList<Delivered> ChaosProxy::takeDelivered()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_delivered, {});
}
