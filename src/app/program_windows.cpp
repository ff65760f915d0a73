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

/// One at a time: an entry of the menu or an option may ask for it while another is open.
void ProgramWindows::openDirectory()
{
    if (m_dialog != nullptr) {
        m_dialog->raise();
        return;
    }
    const QPointer directory(
        new frmCategories(m_dress, m_chat.state, m_chat.link, m_room.lifecycle(), m_prompts, &m_room));
    m_dialog = directory;
    connect(directory, &TitledWindow::helpRequested, this, &ProgramWindows::helpRequested);
    directory->Browse();
    delete directory;
}

void ProgramWindows::openOptions()
{
    if (m_dialog != nullptr) {
        m_dialog->raise();
        return;
    }
    const QPointer options(new frmOptions(m_dress, m_preferences, m_room.composeFont(), m_prompts, &m_room));
    m_dialog = options;
    connect(options, &TitledWindow::helpRequested, this, &ProgramWindows::helpRequested);
    connect(options, &frmOptions::optionsChanged, &m_room, &frmMain::takeOptions);
    options->ShowModal();
    delete options;
}

void ProgramWindows::unload()
{
    if (m_dialog != nullptr) {
        m_dialog->close();
    }
    m_privateWindows.UnloadAll();
}
