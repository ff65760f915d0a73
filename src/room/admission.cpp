#include "room/admission.h"

#include "core/numbers.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
#include "room/colChatters.h"
#include "room/member_names.h"
#include "room/room_view.h"

#include <QScopedValueRollback>

namespace {

constexpr int checkIntervalMilliseconds = 1000;
constexpr int mostReplies = 100;

QString textOf(const clsXMLMessage &element, QStringView name)
{
    return element.value(name).value_or(QStringView()).toString();
}

} // namespace

Admission::Admission(SharedState &state, colChatters &chatters, frmComms &link, RoomView &view)
    : m_state(state), m_chatters(chatters), m_link(link), m_view(view)
{
    connect(&tmrCheck, &QTimer::timeout, this, &Admission::check);
    tmrCheck.start(checkIntervalMilliseconds);
}

void Admission::check()
{
    if (m_checking) {
        return;
    }
    const QScopedValueRollback guard(m_checking, true);
    if (m_state.IsRoomOwner) {
        letOthersIn();
    } else {
        letMeIn();
    }
}

bool Admission::isStillIn(qint32 roomId) const
{
    return m_state.InRoom && m_state.CurrentRoomID == roomId && !m_link.isShutDown();
}

void Admission::letMeIn()
{
    const auto me = m_chatters.withId(m_state.MyUserID);
    if (!me || me->Pending || m_state.InRoom) {
        return;
    }
    const qint32 roomId = m_state.CurrentRoomID;
    m_state.InRoom = true;
    m_view.AddMessage(QStringLiteral("You are allowed to join the chat room!"), MessageKind::Warning);
    m_link.SendNotify(me->ToUserID);
    if (isStillIn(roomId)) {
        fetchContents();
    }
    m_view.DrawUserList();
}

void Admission::reportContents(const QString &reason)
{
    m_view.AddMessage(u"Error in getting channel contents: " + reason, MessageKind::Error);
}

/// The messenger hands the members out in portions and says how many there are. Nothing that it says makes
/// this go on for ever.
void Admission::fetchContents()
{
    const qint32 roomId = m_state.CurrentRoomID;
    QSet<QString> seen;
    qsizetype received = 0;
    for (int replies = 0; replies < mostReplies; ++replies) {
        const Reply reply = m_link.GetChannelContents();
        if (!isStillIn(roomId)) {
            return;
        }
        const clsXMLMessage *contents = reply.element();
        if (contents == nullptr || contents->MsgName != u"KCC") {
            reportContents(QStringLiteral("no reply"));
            return;
        }
        if (const QString code = textOf(*contents, u"r"); code != u"0") {
            reportContents(oneLine(code));
            return;
        }
        const qsizetype known = seen.size();
        addMembers(reply, seen);
        received += contents->XMLMessage.Count();
        const auto total = contents->value(u"t");
        if (total && received >= leadingInt32(*total)) {
            return;
        }
        if (!total || seen.size() == known) {
            break;
        }
    }
    reportContents(QStringLiteral("incomplete"));
}

void Admission::addMembers(const Reply &reply, QSet<QString> &seen)
{
    for (const clsXMLMessage &entry : reply.element()->XMLMessage) {
        const QString id = textOf(entry, u"id");
        if (id.isEmpty()) {
            continue;
        }
        auto member = m_chatters.withId(id);
        if (!member) {
            member = m_chatters.addUnknown(id);
        }
        member->Nickname = textOf(entry, u"nm");
        member->Status = leadingInt32(textOf(entry, u"s"));
        member->Mood = leadingInt32(textOf(entry, u"m"));
        seen.insert(id);
    }
    if (const auto owner = m_chatters.withId(textOf(*reply.element(), u"id"))) {
        owner->Owner = true;
    }
}

/// The count is the one at the start: who asks while an acceptance waits for its answer has its turn next
/// time.
void Admission::letOthersIn()
{
    const qint32 roomId = m_state.CurrentRoomID;
    if (!m_state.InRoom || !m_chatters.withId(m_state.MyUserID)) {
        return;
    }
    bool anyone = false;
    const qsizetype count = m_chatters.Count();
    for (qsizetype at = 1; at <= count && isStillIn(roomId); ++at) {
        const auto member = m_chatters.Item(at);
        if (!member || !member->AutoAccept || !member->Pending) {
            continue;
        }
        member->AutoAccept = false;
        const bool allowed = m_link.AllowJoinChannel(member->ID, false);
        if (allowed && isStillIn(roomId) && m_chatters.withId(member->ID) == member) {
            member->Pending = false;
            m_view.AddMessage(u"User " + displayName(*member, m_state) + u" has just joined the room.",
                              MessageKind::Normal);
            anyone = true;
        }
    }
    if (anyone) {
        m_view.DrawUserList();
    }
}
