#pragma once

#include "core/clock.h"
#include "core/clsMyApp.h"
#include "core/command_line.h"
#include "core/options.h"
#include "core/shared_state.h"
#include "emotions/emoticon_file.h"
#include "platform/settings_file.h"
#include "platform/skinnable.h"
#include "room/banner.h"
#include "room/saved_settings.h"
#include "skin/skin_in_use.h"

#include <QObject>

#include <memory>

class Addresses;
class Prompts;
class frmComms;
class ProgramWindows;
class frmMain;

/// The whole program: it makes each shared object once and hands it to those who need it. Windows are members
/// of the program, so that the end of the program is the end of them all.
class Program final : public QObject, private Skinnable
{
    Q_OBJECT

public:
    /// The application folder is where the settings file lies.
    Program(const QString &applicationFolder, const CommandLine &commandLine, Prompts &prompts, Clock &clock,
            Addresses &addresses);
    ~Program() override;

    /// Connects to the messenger, asks it for the skin and for the user's details, and shows the room window.
    /// False when one of these failed: the user has been told and the program is to end.
    [[nodiscard]] bool Main();

    /// Null until Main() has shown it.
    [[nodiscard]] frmMain *window() const { return m_window.get(); }
    [[nodiscard]] const SharedState &state() const { return m_state; }
    /// Null before Main(), and after it has failed.
    [[nodiscard]] const frmComms *link() const { return m_link.get(); }

Q_SIGNALS:
    /// The last window has gone.
    void ended();

private:
    [[nodiscard]] bool fail(const QString &caption, const QString &text);
    [[nodiscard]] bool retrieveDetails();
    void loadSkin();
    void DoSkinChange() override;
    void suitScreens();
    void showRoom();
    [[nodiscard]] BannerSource bannerSource() const;
    void openAddress(const QUrl &address);
    void showHelp(const QString &anchor);
    void end();

    CommandLine m_commandLine;
    Prompts &m_prompts;
    Clock &m_clock;
    Addresses &m_addresses;

    SharedState m_state;
    Options m_options;
    clsMyApp m_myApp;
    SavedSettings m_savedSettings{m_myApp, m_options, m_state.lists};
    EmoticonFile m_emoticons;
    SettingsFile m_settings;
    LoadedWindows m_loadedWindows;
    std::unique_ptr<SkinInUse> m_skin;
    std::unique_ptr<frmComms> m_link;
    std::unique_ptr<frmMain> m_window;
    std::unique_ptr<ProgramWindows> m_windows;
};
