#pragma once

#include "link/message_framer.h"
#include "platform/tcp_listener.h"

#include <QHash>
#include <QList>
#include <QMutex>
#include <QObject>

#include <memory>
#include <optional>
#include <vector>

/// What happens to the next reply that goes to the client; a fault that was armed before is forgotten.
struct Fault
{
    enum class Kind
    {
        Late, ///< by so many milliseconds
        Lost,
        Broken, ///< in one of a few ways
        Twice,
    };
    Kind kind = Kind::Late;
    int number = 0;
};

/// What went to the client whole, in the order in which it went.
struct Delivered
{
    enum class Kind
    {
        Acknowledgement, ///< of the words that the client had sent
        RoomMessage,
        PrivateMessage,
    };
    Kind kind = Kind::RoomMessage;
    QString words;    ///< of an acknowledgement
    int serial = 0;   ///< of a message
    QString senderId; ///< of a message
    int stay = 0;     ///< counts the rooms that the client has entered
};

/// Stands between the client and the messenger and does to their talk what a bad day does. Beside it a crowd
/// of other clients comes, talks and goes. It lives in a thread of its own; what is public may be called from
/// any.
class ChaosProxy final : public QObject
{
    Q_OBJECT

public:
    explicit ChaosProxy(quint16 messengerPort);
    ~ChaosProxy() override;

    /// Where clients connect. To be called in the proxy's own thread first.
    quint16 listen();

    void arm(Fault fault);
    /// A message of the proxy's own, between two of the messenger's.
    void inject(const QByteArray &message);
    /// The next bytes go to the client in pieces of this size; 0 sends them as they come.
    void setPieces(int size);
    /// Nothing goes to the client for so many milliseconds; then all of it at once.
    void stall(int milliseconds);
    /// Ends the connection to the client.
    void breakConnection(bool reset);
    /// Everything goes: the connection, the crowd and the faults. They are gone when this returns.
    void calm();

    void crowdArrives(int count, int roomId);
    void crowdLeaves(int count);
    /// One of the crowd says something in the room, or all of them do to one user: each line with a serial of
    /// its own, from the first on.
    void crowdSpeaks(int roomId, const QString &toUserId, int firstSerial, int count);

    /// What has been delivered since it was asked for last.
    [[nodiscard]] QList<Delivered> takeDelivered();

    /// The serial of a message is the number behind this letter.
    static constexpr char16_t serialMark = u'n';

private:
    struct Connection;

    void accept();

    quint16 m_messengerPort;
    TcpListener m_listener;
    std::unique_ptr<Connection> m_connection;
    std::vector<std::unique_ptr<TcpSocket>> m_crowd;
    std::optional<Fault> m_fault; ///< of the next reply
    int m_pieces = 0;             ///< the size of each
    int m_piecesLeft = 0;
    int m_stay = 0;
    QMutex m_mutex;
    QList<Delivered> m_delivered; ///< under the mutex
};
