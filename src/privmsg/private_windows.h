#pragma once

#include "controls/titled_window.h"
#include "privmsg/private_chat.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <vector>

class QUrl;
class frmPrivMsg;

/// The windows of private conversations, one for each person, by that person's id. It owns them.
class PrivateWindows final : public QObject
{
    Q_OBJECT

public:
    PrivateWindows(const WindowDress &dress, const PrivateChat &chat);
    ~PrivateWindows() override;

    /// Shows the items of the body in the person's own window, which is made when there is none. An empty
    /// body means that the user wants to write to that person: the window gets the keyboard. Messages open
    /// one window in each turn of events; those for others wait for theirs. While very many windows are open
    /// a message opens no other one; it is shown on the room's board.
    void ReceivePrivateMessage(const QString &id, const QString &name, const QString &body);

    /// Closes them all.
    void UnloadAll();

Q_SIGNALS:
    void helpRequested(const QString &anchor);
    /// The user has clicked on an address; it is a stranger's.
    void addressActivated(const QUrl &address);

private:
    struct Message
    {
        QString id;
        QString name;
        QString body;
    };
    /// One person's, in their order; at least one.
    using Messages = std::vector<Message>;

    [[nodiscard]] static const QString &idOf(const Messages &messages) { return messages.front().id; }
    [[nodiscard]] bool putAside(const Message &message);
    [[nodiscard]] Messages takeWaiting(const QString &id);
    void openNext();
    void open(const Messages &messages);
    void show(frmPrivMsg &window, const Message &message);
    [[nodiscard]] frmPrivMsg &make(const QString &key);
    void showOnBoard(const Message &message);

    WindowDress m_dress;
    PrivateChat m_chat;
    QHash<QString, frmPrivMsg *> m_open;      ///< by "W" and the person's id
    std::vector<QPointer<frmPrivMsg>> m_made; ///< those that still wait for an answer included
    QHash<QString, QString> m_drafts;         ///< what was written in closed windows, by the same keys
    std::vector<Messages> m_waiting;          ///< of people who have no window yet
    QTimer m_nextTurn;                        ///< runs from one window that a message opens to the next turn
};
