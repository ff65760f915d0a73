#pragma once

#include "link/dispatcher.h"
#include "link/flood_lock.h"
#include "link/message_framer.h"
#include "link/request_queue.h"
#include "platform/code_page.h"
#include "platform/tcp_socket.h"

#include <QObject>
#include <QTimer>

class Clock;
class CommandLine;
class LoadedWindows;
class Prompts;
class RoomEventHandler;
class SettingsFile;
class clsMyApp;
struct SharedState;

/// A reply that carries an element. Its record is finished with when the reply goes out of scope.
class Reply
{
public:
    explicit Reply(RequestQueue::Record record) : m_record(std::move(record)) {}

    /// The element, or null when no reply came. It lives as long as the reply.
    [[nodiscard]] const clsXMLMessage *element() const;

private:
    RecordUse m_record;
};

/// What became of a request to join a room. Whether the user is let in is told later.
enum class JoinRequest : qint16
{
    Sent = -1,
    Failed = 0,
    RoomFull = 1
};

/// The link window, which is never shown: the connection to the messenger, the queue of requests, and an
/// operation for each request. An operation waits for its reply while events go on; none of them fails
/// loudly: without a reply the result is empty, false or Failed. It owns the connection and the queue.
class frmComms final : public QObject
{
    Q_OBJECT

public:
    frmComms(SharedState &state, clsMyApp &myApp, SettingsFile &settings, LoadedWindows &windows,
             Prompts &prompts, Clock &clock);

    /// Connects to the messenger's port: the command line's, else the settings file's. True when connected.
    [[nodiscard]] bool ConnectToClient(const CommandLine &commandLine);

    /// Who is told of room events, at once of a connection that has ended; not owned, null for nobody.
    void setRoomEvents(RoomEventHandler *handler);

    /// Stops all writes and ends every wait, for good.
    void setShutDown() { m_shutDown = true; }
    [[nodiscard]] bool isShutDown() const { return m_shutDown; }

    /// The skin file's full path, or empty.
    [[nodiscard]] QString RetrieveSkin();
    [[nodiscard]] Reply RetrieveMyDetails();
    [[nodiscard]] Reply GetCategories();
    [[nodiscard]] Reply GetChannels(const QString &groupingCode, int start = 1);
    [[nodiscard]] Reply CreateChannel(const QString &groupingCode, const QString &roomName, bool isPrivate);
    [[nodiscard]] Reply GetChannelContents(int start = 1);
    [[nodiscard]] JoinRequest RequestJoinChannel();
    bool AllowJoinChannel(const QString &userId, bool reject);
    bool DropUser(const QString &userId, const QString &nickname);
    bool LeaveChannel();
    bool DestroyChannel();
    bool SendNotify(const QString &targetUserId);

    /// To one user, or to the whole room when the target is empty. True when the messenger has acknowledged
    /// it.
    [[nodiscard]] bool SendMessage(const QString &text, const QString &targetUserId);

    /// Rebuilds the contacts; without a reply they stay as they are.
    void GetPyloxUsers();
    void UserDetails(const QString &userId);
    void InviteUserToPylox(const QString &userId, const QString &nickname);

    [[nodiscard]] const RequestQueue &queue() const { return m_queue; }

    /// What the two timers do at each tick.
    void sendNext();
    void cleanUp();

private:
    [[nodiscard]] RequestQueue::Record request(const QString &text);
    [[nodiscard]] bool succeeds(const QString &requestText);
    [[nodiscard]] bool isAnswered(const QString &requestText);
    void SendMessageToServer(clsCommMsg &record);
    void WaitForReply(const clsCommMsg &record) const;
    void receive();
    void handleReceived();
    void endConnection();
    void changeSkin(const QString &skinFile);

    SharedState &m_state;
    clsMyApp &m_myApp;
    SettingsFile &m_settings;
    LoadedWindows &m_windows;
    Clock &m_clock;

    TcpSocket tcpClient;
    CodePage m_codePage;
    MessageFramer m_receiveBuffer;
    RequestQueue m_queue;
    Dispatcher m_dispatcher;
    FloodLock m_floodLock;
    QTimer tmrTCPSend;
    QTimer tmrCheckComms;
    QTimer m_handleRest;     ///< runs while messages are being handled, for handlers that let events run
    bool m_hasEnded = false; ///< the connection, by the messenger
    bool m_shutDown = false;
};
