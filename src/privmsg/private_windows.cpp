#include "privmsg/private_windows.h"

#include "core/attribute_text.h"
#include "link/frmComms.h"
#include "privmsg/frmPrivMsg.h"
#include "privmsg/privmsg_rtf.h"
#include "room/message_board.h"
#include "room/message_text.h"

#include <QStringList>

namespace {

constexpr qsizetype mostByMessages = 50;
constexpr QStringView messageStart = u"<SMSG>";

/// Each ends with character code 1; what follows the last one is none.
QStringList itemsOf(const QString &body)
{
    QStringList items = body.split(itemEnd);
    items.removeLast();
    return items;
}

/// An answer to nobody would go to the whole room, and in a request these characters end the place of the id.
bool canBeAnswered(const QString &id)
{
    return !id.isEmpty() && !id.contains(u'"') && !id.contains(u'\\');
}

} // namespace

PrivateWindows::PrivateWindows(const WindowDress &dress, const PrivateChat &chat)
    : m_dress(dress), m_chat(chat)
{}

PrivateWindows::~PrivateWindows()
{
    UnloadAll();
    for (const QPointer<frmPrivMsg> &window : m_made) {
        delete window;
    }
}

void PrivateWindows::ReceivePrivateMessage(const QString &id, const QString &name, const QString &body)
{
    if (m_chat.link.isShutDown()) {
        return; // the program is on its way out
    }
    const QString key = u'W' + id;
    const OpenedBy by = body.isEmpty() ? OpenedBy::User : OpenedBy::Message;
    const QStringList items = itemsOf(body);
    frmPrivMsg *window = m_open.value(key);
    if (window != nullptr) {
        window->update();
    } else if (!canBeAnswered(id) || (by == OpenedBy::Message && m_open.size() >= mostByMessages)) {
        showOnBoard(id, name, items);
        return;
    } else {
        window = &make(key);
    }
    window->SetupPrivateSession(id, name, by);
    for (const QString &item : items) {
        window->ShowPrivateMessage(id, item.startsWith(messageStart) ? m_chat.messages.GeneratePrivateMsg(
                                                                           item.sliced(messageStart.size()))
                                                                     : item);
    }
}

frmPrivMsg &PrivateWindows::make(const QString &key)
{
    std::erase(m_made, nullptr);
    auto *window = new frmPrivMsg(m_dress, m_chat);
    m_made.emplace_back(window);
    m_open.insert(key, window);
    window->setDraft(m_drafts.take(key));
    connect(window, &TitledWindow::helpRequested, this, &PrivateWindows::helpRequested);
    connect(window, &frmPrivMsg::addressActivated, this, &PrivateWindows::addressActivated);
    connect(window, &frmPrivMsg::unloaded, this, [this, key] { m_open.remove(key); });
    connect(window, &frmPrivMsg::finished, this, [this, key](const QString &draft) {
        if (!draft.isEmpty()) {
            m_drafts.insert(key, draft);
        }
    });
    return *window;
}

/// The words are not lost, and the user may answer by the member's menu.
void PrivateWindows::showOnBoard(const QString &id, const QString &name, const QStringList &items)
{
    const QString sender = shownPeerName(name, id);
    for (const QString &item : items) {
        const QString text =
            item.startsWith(messageStart) ? withoutTags(item.sliced(messageStart.size())) : item;
        m_chat.messages.AddMessage(QString(tr("Private message from '") % sender % u"': " % text),
                                   MessageKind::Warning);
    }
}

void PrivateWindows::UnloadAll()
{
    const QList<frmPrivMsg *> open = m_open.values();
    for (frmPrivMsg *window : open) {
        window->close();
    }
}
