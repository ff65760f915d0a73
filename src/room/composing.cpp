#include "room/composing.h"

#include "core/attribute_text.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
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
