#include "privmsg/private_windows.h"

#include "core/attribute_text.h"
#include "link/frmComms.h"
#include "privmsg/frmPrivMsg.h"
#include "privmsg/privmsg_rtf.h"
#include "room/message_board.h"
#include "room/message_text.h"

#include <algorithm>

namespace {

constexpr qsizetype mostByMessages = 50;
constexpr QStringView messageStart = u"<SMSG>";

/// An answer to nobody would go to the whole room, and in a request these characters end the place of the id.
bool canBeAnswered(const QString &id)
{
    return !id.isEmpty() && !id.contains(u'"') && !id.contains(u'\\');
}

QString keyOf(const QString &id)
{
    return u'W' + id;
}

} // namespace

PrivateWindows::PrivateWindows(const WindowDress &dress, const PrivateChat &chat)
    : m_dress(dress), m_chat(chat)
{
    m_nextTurn.setSingleShot(true);
    m_nextTurn.setInterval(0);
    connect(&m_nextTurn, &QTimer::timeout, this, &PrivateWindows::openNext);
}

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
    const Message message{id, name, body};
    if (frmPrivMsg *window = m_open.value(keyOf(id))) {
        window->update();
        show(*window, message);
    } else if (!canBeAnswered(id) || (!body.isEmpty() && !putAside(message))) {
        showOnBoard(message);
    } else if (body.isEmpty()) {
        Messages messages = takeWaiting(id);
        messages.insert(messages.begin(), message);
        open(messages);
    } else if (!m_nextTurn.isActive()) {
        openNext();
    }
}

/// False when too many windows are open or to be opened.
bool PrivateWindows::putAside(const Message &message)
{
    const auto waiting = std::ranges::find(m_waiting, message.id, idOf);
    if (waiting != m_waiting.end()) {
        waiting->push_back(message);
        return true;
    }
    if (m_open.size() + std::ssize(m_waiting) >= mostByMessages) {
        return false;
    }
    m_waiting.push_back({message});
    return true;
}

PrivateWindows::Messages PrivateWindows::takeWaiting(const QString &id)
{
    Messages messages;
    if (const auto waiting = std::ranges::find(m_waiting, id, idOf); waiting != m_waiting.end()) {
        messages = std::move(*waiting);
        m_waiting.erase(waiting);
    }
    return messages;
}

/// A turn of events is over: there is time for another window.
void PrivateWindows::openNext()
{
    if (m_waiting.empty() || m_chat.link.isShutDown()) {
        return;
    }
    m_nextTurn.start();
    open(takeWaiting(idOf(m_waiting.front())));
}

void PrivateWindows::open(const Messages &messages)
{
    frmPrivMsg &window = make(keyOf(idOf(messages)));
    for (const Message &message : messages) {
        show(window, message);
    }
}

void PrivateWindows::show(frmPrivMsg &window, const Message &message)
{
    window.SetupPrivateSession(message.id, message.name,
                               message.body.isEmpty() ? OpenedBy::User : OpenedBy::Message);
    for (const QString &item : itemsOf(message.body)) {
        window.ShowPrivateMessage(message.id,
                                  item.startsWith(messageStart)
                                      ? m_chat.messages.GeneratePrivateMsg(item.sliced(messageStart.size()))
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
void PrivateWindows::showOnBoard(const Message &message)
{
    const QString sender = shownPeerName(message.name, message.id);
    for (const QString &item : itemsOf(message.body)) {
        const QString text =
            item.startsWith(messageStart) ? withoutTags(item.sliced(messageStart.size())) : item;
        m_chat.messages.AddMessage(QString(tr("Private message from '") % sender % u"': " % text),
                                   MessageKind::Warning);
    }
}

void PrivateWindows::UnloadAll()
{
    m_waiting.clear();
    const QList<frmPrivMsg *> open = m_open.values();
    for (frmPrivMsg *window : open) {
        window->close();
    }
}
