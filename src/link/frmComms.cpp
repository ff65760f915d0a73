#include "link/frmComms.h"

#include "core/clock.h"
#include "core/clsMyApp.h"
#include "core/command_line.h"
#include "core/shared_state.h"
#include "link/requests.h"
#include "link/room_event_handler.h"
#include "link/wait.h"
#include "platform/settings_file.h"
#include "platform/skinnable.h"

namespace {

constexpr int sendIntervalMilliseconds = 100;
constexpr int cleanUpIntervalMilliseconds = 50;

} // namespace

const clsXMLMessage *Reply::element() const
{
    return m_record->RetCode == RetCode::Replied ? m_record->RetXML.get() : nullptr;
}

frmComms::frmComms(SharedState &state, clsMyApp &myApp, SettingsFile &settings, LoadedWindows &windows,
                   Prompts &prompts, Clock &clock)
    : m_state(state),
      m_myApp(myApp),
      m_settings(settings),
      m_windows(windows),
      m_clock(clock),
      m_dispatcher(m_queue, [this](const QString &skinFile) { changeSkin(skinFile); }),
      m_floodLock(clock, prompts)
{
    setObjectName(QStringLiteral("frmComms"));
    connect(&tcpClient, &TcpSocket::arrived, this, &frmComms::receive);
    connect(&tmrTCPSend, &QTimer::timeout, this, &frmComms::sendNext);
    connect(&tmrCheckComms, &QTimer::timeout, this, &frmComms::cleanUp);
    connect(&m_handleRest, &QTimer::timeout, this, &frmComms::handleReceived);
    tmrTCPSend.start(sendIntervalMilliseconds);
    tmrCheckComms.start(cleanUpIntervalMilliseconds);
}

bool frmComms::ConnectToClient(const CommandLine &commandLine)
{
    const QString section = QStringLiteral("Chat");
    const QString configured = m_settings.ReadValue(QStringLiteral("Port"), QStringLiteral("0"), section);
    m_codePage =
        CodePage(m_settings.ReadValue(QStringLiteral("CodePage"), QStringLiteral("windows-1252"), section));
    const quint16 port = commandLine.portText().value_or(configured).trimmed().toUShort();
    if (port == 0) {
        return false;
    }
    tcpClient.connectToLocalHost(port);
    waitUntil([this] { return tcpClient.state() != TcpSocket::State::Connecting; });
    return tcpClient.state() == TcpSocket::State::Connected;
}

/// Queues a request and waits until it is answered or has failed.
RequestQueue::Record frmComms::request(const QString &text)
{
    const bool connected = tcpClient.state() == TcpSocket::State::Connected;
    RequestQueue::Record record = m_queue.add(text, connected, m_clock.steadyMilliseconds());
    WaitForReply(*record);
    if (!record->Sent && record->RetCode == RetCode::Replied) {
        record->RetCode = RetCode::NotSent; // an answer to what was never asked
    }
    return record;
}

void frmComms::WaitForReply(const clsCommMsg &record) const
{
    waitUntil([&] { return record.Processed || record.Terminate || m_shutDown; });
}

void frmComms::sendNext()
{
    if (const RequestQueue::Record record = m_queue.nextToSend()) {
        SendMessageToServer(*record);
    }
}

void frmComms::SendMessageToServer(clsCommMsg &record)
{
    if (m_shutDown) {
        return;
    }
    record.Sent = true;
    if (!tcpClient.write(m_codePage.encode(record.MessageToSend))) {
        record.Processed = true;
        record.RetCode = RetCode::NotSent;
    }
}

void frmComms::cleanUp()
{
    m_queue.cleanUp(m_clock.steadyMilliseconds());
}

/// One block at a time, so that the windows are drawn and the user is heard between the blocks of a flood.
/// Inside a handler's wait, what came before is handled before more is read.
void frmComms::receive()
{
    if (!m_receiveBuffer.isDrained()) {
        handleReceived();
        return;
    }
    const TcpSocket::ReadResult result = tcpClient.read(m_receiveBuffer.tail());
    switch (result.status) {
    case TcpSocket::ReadStatus::Empty:
        return;
    case TcpSocket::ReadStatus::Data:
        m_receiveBuffer.commit(result.count);
        break;
    case TcpSocket::ReadStatus::Reset:
        m_queue.failLast();
        [[fallthrough]];
    case TcpSocket::ReadStatus::Closed:
    case TcpSocket::ReadStatus::Failed:
        endConnection();
        return;
    }
    handleReceived();
}

/// A handler may wait for a reply that has come together with its own message. The timer then fires inside
/// that wait, and the messages behind are handled there.
void frmComms::handleReceived()
{
    m_handleRest.start(0);
    while (const auto message = m_receiveBuffer.next()) {
        m_dispatcher.HandleIncoming(m_codePage.decode(*message));
    }
    m_handleRest.stop();
}

void frmComms::setRoomEvents(RoomEventHandler *handler)
{
    m_dispatcher.setRoomEvents(handler);
    if (handler != nullptr && m_hasEnded) {
        handler->ShutDown(false);
    }
}

void frmComms::endConnection()
{
    m_hasEnded = true;
    tcpClient.close();
    m_queue.failAll();
    if (RoomEventHandler *room = m_dispatcher.roomEvents()) {
        room->ShutDown(false);
    }
}

void frmComms::changeSkin(const QString &skinFile)
{
    if (clsMyApp::IsFile(skinFile)) {
        m_myApp.Skin = skinFile;
        m_windows.changeSkin();
    }
}

bool frmComms::isAnswered(const QString &requestText)
{
    return RecordUse(request(requestText))->RetCode == RetCode::Replied;
}

/// For the replies that carry a result code.
bool frmComms::succeeds(const QString &requestText)
{
    const RecordUse reply(request(requestText));
    return reply->RetCode == RetCode::Replied && reply->RetString == u"0";
}

QString frmComms::RetrieveSkin()
{
    const RecordUse reply(request(Requests::getSkin()));
    return reply->RetCode == RetCode::Replied ? reply->RetString : QString();
}

Reply frmComms::RetrieveMyDetails()
{
    return Reply(request(Requests::getMyDetails()));
}

Reply frmComms::GetCategories()
{
    return Reply(request(Requests::getCategories()));
}

Reply frmComms::GetChannels(const QString &groupingCode, int start)
{
    return Reply(request(Requests::getChannels(groupingCode, start)));
}

Reply frmComms::CreateChannel(const QString &groupingCode, const QString &roomName, bool isPrivate)
{
    return Reply(request(Requests::createChannel(groupingCode, roomName, isPrivate)));
}

Reply frmComms::GetChannelContents(int start)
{
    return Reply(request(Requests::getChannelContents(m_state.CurrentRoomID, start)));
}

JoinRequest frmComms::RequestJoinChannel()
{
    const Reply reply(
        request(Requests::requestJoinChannel(m_state.CurrentRoomID, m_state.MyUserID, m_state.MyNickname)));
    const auto code = reply.element() != nullptr ? reply.element()->value(u"r") : std::nullopt;
    if (code == u"0") {
        return JoinRequest::Sent;
    }
    return code == u"109" ? JoinRequest::RoomFull : JoinRequest::Failed;
}

bool frmComms::AllowJoinChannel(const QString &userId, bool reject)
{
    return succeeds(Requests::allowJoinChannel(m_state.CurrentRoomID, userId, m_state.MyUserID, reject));
}

bool frmComms::DropUser(const QString &userId, const QString &nickname)
{
    return isAnswered(Requests::dropUser(m_state.CurrentRoomID, m_state.MyUserID, userId, nickname));
}

bool frmComms::LeaveChannel()
{
    return succeeds(Requests::leaveChannel(m_state.CurrentRoomID));
}

bool frmComms::DestroyChannel()
{
    return succeeds(Requests::destroyChannel(m_state.CurrentRoomID));
}

bool frmComms::SendNotify(const QString &targetUserId)
{
    return succeeds(
        Requests::notifyJoinChannel(m_state.CurrentRoomID, m_state.MyUserID, targetUserId, m_state.RoomName));
}

bool frmComms::SendMessage(const QString &text, const QString &targetUserId)
{
    const qint32 roomId = m_state.CurrentRoomID;
    m_floodLock.admit();
    if (m_state.CurrentRoomID != roomId) {
        return false; // the room that it was meant for is gone
    }
    return isAnswered(Requests::message(m_state.CurrentRoomID, m_state.MyUserID, text, targetUserId));
}

void frmComms::GetPyloxUsers()
{
    const RecordUse reply(request(Requests::getPyloxUsers()));
    if (reply->RetCode != RetCode::Replied) {
        return;
    }
    UserList &contacts = m_state.lists.PyloxContacts;
    contacts = emptyUserList();
    if (!reply->RetXML || reply->RetXML->MsgName != u"PYLOXUSERS") {
        return;
    }
    qsizetype next = 0;
    for (const clsXMLMessage &user : reply->RetXML->XMLMessage) {
        const auto id = user.value(u"id");
        const auto nick = user.value(u"nick");
        if (!id || !nick) {
            continue;
        }
        contacts.resize(qMax(contacts.size(), next + 1));
        contacts[next++] = {id->toString(), nick->toString()};
    }
}

void frmComms::UserDetails(const QString &userId)
{
    (void)isAnswered(Requests::userDetails(userId));
}

void frmComms::InviteUserToPylox(const QString &userId, const QString &nickname)
{
    (void)isAnswered(Requests::inviteUser(userId, nickname));
}
