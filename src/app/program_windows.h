#pragma once

#include "core/options_text.h"
#include "prefs/frmOptions.h"
#include "privmsg/private_windows.h"

class Addresses;
class frmMain;

/// The windows beside the room's: each is made when the room asks for it and goes when it is closed.
class ProgramWindows final : public QObject
{
    Q_OBJECT

public:
    /// The room window's requests are answered from now on. All of them must stay.
    ProgramWindows(const WindowDress &dress, const Preferences &preferences, const PrivateChat &chat,
                   Prompts &prompts, frmMain &room);
    ~ProgramWindows() override;

    /// Closes what is open.
    void unload();

Q_SIGNALS:
    void helpRequested(const QString &anchor);
    void addressActivated(const QUrl &address);

private:
    [[nodiscard]] bool raiseOpenDialog();
    void openDirectory();
    void openOptions();

    WindowDress m_dress;
    Preferences m_preferences;
    PrivateChat m_chat;
    Prompts &m_prompts;
    frmMain &m_room;
    PrivateWindows m_privateWindows;
    QPointer<TitledWindow> m_directory; ///< the room window is the parent of both
    QPointer<TitledWindow> m_options;
};
