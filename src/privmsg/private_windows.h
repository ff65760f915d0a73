#pragma once

#include "controls/titled_window.h"
#include "privmsg/private_chat.h"

#include <QHash>
#include <QObject>
#include <QPointer>

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
    /// body means that the user wants to write to that person: the window gets the keyboard. While very many
    /// windows are open a message opens no other one; it is shown on the room's board.
    void ReceivePrivateMessage(const QString &id, const QString &name, const QString &body);

    /// Closes them all.
    void UnloadAll();

Q_SIGNALS:
    void helpRequested(const QString &anchor);
    /// The user has clicked on an address; it is a stranger's.
    void addressActivated(const QUrl &address);

private:
    [[nodiscard]] frmPrivMsg &make(const QString &key);
    void showOnBoard(const QString &id, const QString &name, const QStringList &items);

    WindowDress m_dress;
    PrivateChat m_chat;
    QHash<QString, frmPrivMsg *> m_open;      ///< by "W" and the person's id
    std::vector<QPointer<frmPrivMsg>> m_made; ///< those that still wait for an answer included
    QHash<QString, QString> m_drafts;         ///< what was written in closed windows, by the same keys
};
