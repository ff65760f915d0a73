#include "app/program_windows.h"

#include "directory/frmCategories.h"
#include "room/frmMain.h"

ProgramWindows::ProgramWindows(const WindowDress &dress, const Preferences &preferences,
                               const PrivateChat &chat, Prompts &prompts, frmMain &room)
    : m_dress(dress),
      m_preferences(preferences),
      m_chat(chat),
      m_prompts(prompts),
      m_room(room),
      m_privateWindows(dress, chat)
{
    connect(&room, &frmMain::directoryRequested, this, &ProgramWindows::openDirectory);
    connect(&room, &frmMain::optionsRequested, this, &ProgramWindows::openOptions);
    connect(&room, &frmMain::privateMessageReceived, &m_privateWindows,
            &PrivateWindows::ReceivePrivateMessage);
    connect(&m_privateWindows, &PrivateWindows::helpRequested, this, &ProgramWindows::helpRequested);
    connect(&m_privateWindows, &PrivateWindows::addressActivated, this, &ProgramWindows::addressActivated);
}

ProgramWindows::~ProgramWindows() = default;

/// One at a time: an entry of the menu or an option may ask for a dialog while another is open.
bool ProgramWindows::raiseOpenDialog()
{
    for (const QPointer<TitledWindow> &dialog : {m_directory, m_options}) {
        if (dialog != nullptr && !dialog->isHidden()) {
            dialog->raise();
            return true;
        }
    }
    return false;
}

/// A directory that was closed on the way into a room comes back, and the answer finds it there.
void ProgramWindows::openDirectory()
{
    if (raiseOpenDialog()) {
        return;
    }
    if (m_directory != nullptr) {
        m_directory->open();
        return;
    }
    auto *directory =
        new frmCategories(m_dress, m_chat.state, m_chat.link, m_room.lifecycle(), m_prompts, &m_room);
    m_directory = directory;
    connect(directory, &TitledWindow::helpRequested, this, &ProgramWindows::helpRequested);
    connect(directory, &frmCategories::left, this, [this, directory] {
        directory->deleteLater();
        m_directory = nullptr;
        m_room.lifecycle().EnterRoom();
    });
    directory->Browse();
}

void ProgramWindows::openOptions()
{
    if (raiseOpenDialog()) {
        return;
    }
    auto *options = new frmOptions(m_dress, m_preferences, m_room.composeFont(), m_prompts, &m_room);
    m_options = options;
    connect(options, &TitledWindow::helpRequested, this, &ProgramWindows::helpRequested);
    connect(options, &frmOptions::optionsChanged, &m_room, &frmMain::takeOptions);
    connect(options, &TitledWindow::dismissed, options, &QObject::deleteLater);
    options->open();
}

void ProgramWindows::unload()
{
    for (const QPointer<TitledWindow> &dialog : {m_directory, m_options}) {
        if (dialog != nullptr) {
            dialog->close();
        }
    }
    m_privateWindows.UnloadAll();
}
