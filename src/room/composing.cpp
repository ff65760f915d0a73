#include "room/composing.h"

#include "core/attribute_text.h"
#include "core/shared_state.h"
#include "emotions/colEmotions.h"
#include "link/frmComms.h"
#include "room/member_names.h"
#include "room/room_view.h"

#include <QFont>
#include <QScopedValueRollback>

QString roomMessageItem(QStringView text, const QFont &font)
{
    QString item = QStringLiteral("<SMSG>");
    item += font.bold() ? QStringLiteral("<b>") : QString();
    item += font.italic() ? QStringLiteral("<i>") : QString();
    item += font.underline() ? QStringLiteral("<u>") : QString();
    return item + withoutControlCharacters(text) + itemEnd;
}

const QString &emotionText(const clsEmotions &emotion, const clsChatters *toMember)
{
    return toMember == nullptr ? emotion.ToRoom : emotion.ToUser;
}

QString emotionItem(const clsEmotions &emotion, const QString &ownName, const clsChatters *toMember)
{
    QString item = u"<EMOT>" % withoutControlCharacters(emotionText(emotion, toMember)) % emotionTextEnd %
                   u" user=" % withoutControlCharacters(ownName) % valueEnd;
    if (toMember != nullptr) {
        item += u" tuser=" % withoutControlCharacters(toMember->Nickname) % valueEnd;
    }
    return item + itemEnd;
}

Composing::Composing(SharedState &state, frmComms &link, RoomView &view)
    : m_state(state), m_link(link), m_view(view)
{}

bool Composing::send(const QString &text, const QFont &font)
{
    if (m_sending || withoutControlCharacters(text).isEmpty() || !m_state.InRoom) {
        return false;
    }
    const QScopedValueRollback guard(m_sending, true);
    const qint32 roomId = m_state.CurrentRoomID;
    if (!m_link.SendMessage(roomMessageItem(text, font), {})) {
        return false;
    }
    if (m_state.CurrentRoomID == roomId) {
        m_view.AddMessage(withoutControlCharacters(text), MessageKind::Own, m_state.MyNickname);
    }
    return true;
}

void Composing::sendEmotion(const clsEmotions &emotion, const clsChatters *toMember)
{
    if (!m_state.InRoom) {
        return;
    }
    const qint32 roomId = m_state.CurrentRoomID;
    const QString text = emotionText(emotion, toMember);
    const QString other = toMember == nullptr ? QString() : displayName(*toMember, m_state);
    if (m_link.SendMessage(emotionItem(emotion, m_state.MyNickname, toMember), {}) &&
        m_state.CurrentRoomID == roomId) {
        m_view.AddMessage(text, MessageKind::Emotion, m_state.MyNickname, other);
    }
}
