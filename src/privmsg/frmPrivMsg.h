#pragma once

#include "controls/titled_window.h"
#include "privmsg/private_chat.h"
#include "privmsg/privmsg_controls.h"

#include <functional>

struct PrivateLook;

/// Who wants a private window: the user, who gets the keyboard there, or a message, which never takes it from
/// where the user is.
enum class OpenedBy
{
    User,
    Message
};

/// The conversation with one person. It keeps what it shows, and what is typed until that has arrived, and
/// asks the messenger to pass on what is sent. A window that is closed goes by itself, once no answer is
/// waited for.
class frmPrivMsg final : public TitledWindow
{
    Q_OBJECT

public:
    frmPrivMsg(const WindowDress &dress, const PrivateChat &chat);

    /// Whom the conversation is with; the id stays the same. The first time the window is loaded, with its
    /// place and its title. It comes to the front.
    void SetupPrivateSession(const QString &id, const QString &name, OpenedBy by);

    /// Appends a message, RTF or plain text, and brings the window to the front, unless it is minimised; the
    /// keyboard stays where it is.
    void ShowPrivateMessage(const QString &senderId, const QString &message);

    /// The user's own text as it is shown.
    [[nodiscard]] QString GenerateMyPrivateMsg(const QString &text) const;

    [[nodiscard]] const QString &PeerID() const { return m_peerId; }
    /// As it is shown.
    [[nodiscard]] const QString &PeerName() const { return m_peerName; }
    /// What was written before and not sent.
    void setDraft(const QString &text);

Q_SIGNALS:
    /// The window has been closed; it shows nothing more.
    void unloaded();
    /// It is about to go; what was written and not sent.
    void finished(const QString &draft);
    /// The user has clicked on an address; it is a stranger's.
    void addressActivated(const QUrl &address);

protected:
    void SetupFormSkin() override;
    void layOut() override;
    void closeEvent(QCloseEvent *event) override;

private:
    void connectControls();
    void connectSplitter();
    void Load();
    void takeColours();
    void bringToFront(OpenedBy by);
    void append(const QString &senderId, const QString &message);
    [[nodiscard]] PrivateLook look(ColourValue colour) const;
    void waitFor(const std::function<void()> &request);
    void send();
    void sent(const QString &text);
    void finish();

    PrivateChat m_chat;
    PrivateControls m_controls;
    QPalette m_boxColours; ///< of the room's box when the window was made
    QString m_peerId;
    QString m_peerName;
    bool m_isLoaded = false;
    bool m_isUnloaded = false;
    int m_waits = 0; ///< for answers of the messenger
    bool m_sending = false;
    bool m_dragging = false;  ///< the splitter
    bool m_autoScroll = true; ///< the user has not moved the view back
};
