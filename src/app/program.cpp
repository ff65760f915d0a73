#include "app/program.h"

#include "app/program_windows.h"
#include "core/numbers.h"
#include "link/frmComms.h"
#include "platform/addresses.h"
#include "platform/clsRegistry.h"
#include "platform/prompts.h"
#include "room/frmMain.h"
#include "skin/skin_chat_colours.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QScreen>

namespace {

constexpr double designedFontSize = 10; // points, of what is written
constexpr int settingsMode = 512;       // what the messenger's settings component expects

} // namespace

Program::Program(const QString &applicationFolder, const CommandLine &commandLine, Prompts &prompts,
                 Clock &clock, Addresses &addresses)
    : m_commandLine(commandLine),
      m_prompts(prompts),
      m_clock(clock),
      m_addresses(addresses),
      m_myApp(applicationFolder),
      m_emoticons(m_myApp.Path())
{}

Program::~Program() = default;

bool Program::Main()
{
    QDir().mkpath(m_myApp.Path());
    m_settings.Mode = settingsMode;
    m_settings.FileName = m_myApp.Path() + u"Pylox.ini";
    m_link = std::make_unique<frmComms>(m_state, m_myApp, m_settings, m_loadedWindows, m_prompts, m_clock);
    if (!m_link->ConnectToClient(m_commandLine)) {
        return fail(QStringLiteral("Messenger not found"),
                    QStringLiteral("Could not connect to Pylox Messenger."));
    }
    m_myApp.Skin = m_link->RetrieveSkin();
    if (m_myApp.Skin.isEmpty()) {
        return fail(QStringLiteral("No skin found"),
                    QStringLiteral("Error loading skin for Pylox Chat Client."));
    }
    loadSkin();
    if (!retrieveDetails()) {
        return fail(QStringLiteral("No Details"),
                    QStringLiteral("Error retrieving your details from Pylox Messenger."));
    }
    showRoom();
    return true;
}

bool Program::fail(const QString &caption, const QString &text)
{
    m_prompts.tell(text, caption, PromptIcon::Stop);
    m_link.reset();
    return false;
}

/// A reply of another name counts as a reply and leaves the details as they are.
bool Program::retrieveDetails()
{
    const Reply reply = m_link->RetrieveMyDetails();
    const clsXMLMessage *details = reply.element();
    if (details == nullptr) {
        return false;
    }
    if (details->MsgName == u"MYDETAILS") {
        const auto text = [&](QStringView name) {
            return details->value(name).value_or(QStringView()).toString();
        };
        m_state.MyUserID = text(u"id");
        m_state.MyNickname = text(u"nick");
        m_state.MyStatus = leadingInt32(text(u"s"));
        m_state.MyMood = leadingInt32(text(u"m"));
    }
    return true;
}

/// Without a skin that can be used the program looks as the desktop does.
void Program::loadSkin()
{
    const QString frame = m_settings.ReadValue(QStringLiteral("NativeFrame"), {}, QStringLiteral("Chat"));
    m_skin = std::make_unique<SkinInUse>(m_myApp,
                                         leadingInt32(frame) == 1 ? WindowFrame::Native : WindowFrame::Skin);
    if (!clsMyApp::IsFile(m_myApp.Skin)) {
        m_skin->report(QString(u"skin not used: there is no file \"" % m_myApp.Skin % u'"'));
    }
    m_skin->setFinePictures(qGuiApp->devicePixelRatio() > 1 ? FinePictures::Read : FinePictures::Skip);
    m_skin->change();
    m_loadedWindows.enter(*this);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Program::suitScreens);
}

/// Until there is a window, nobody else takes a new skin.
void Program::DoSkinChange()
{
    m_skin->change();
}

/// A finer screen than all before wants the finer pictures.
void Program::suitScreens()
{
    if (m_skin->finePictures() == FinePictures::Skip && qGuiApp->devicePixelRatio() > 1) {
        m_skin->setFinePictures(FinePictures::Read);
        m_loadedWindows.changeSkin();
    }
}

void Program::showRoom()
{
    m_loadedWindows.leave(*this);
    const QFont designed = QGuiApplication::font();
    m_savedSettings.load(chatColoursOf(m_skin->description()),
                         {designed.family(), designedFontSize, false, false, false});
    m_window = std::make_unique<frmMain>(
        m_state, m_options, *m_link, m_prompts, m_commandLine,
        RoomLooks{*m_skin, m_loadedWindows, m_emoticons, m_savedSettings, bannerSource()});
    const WindowDress dress{*m_skin, m_loadedWindows};
    m_windows =
        std::make_unique<ProgramWindows>(dress, Preferences{m_options, m_state.lists, m_savedSettings},
                                         PrivateChat{m_state, m_options, *m_link, m_settings,
                                                     m_window->messages(), m_window->rtfText(), m_clock},
                                         m_prompts, *m_window);
    connect(m_window.get(), &frmMain::exited, this, &Program::end);
    connect(m_window.get(), &frmMain::addressActivated, this, &Program::openAddress);
    connect(m_window.get(), &frmMain::helpRequested, this, &Program::showHelp);
    connect(m_window.get(), &frmMain::emoticonHelpRequested, this, [this] {
        ShowEmoticonHelp(m_settings, pagesFolder(QCoreApplication::applicationDirPath()), m_addresses);
    });
    connect(m_windows.get(), &ProgramWindows::addressActivated, this, &Program::openAddress);
    connect(m_windows.get(), &ProgramWindows::helpRequested, this, &Program::showHelp);
    m_window->show();
    m_window->repaint();
}

/// No advertising for those whose browser starts with the product's home page.
BannerSource Program::bannerSource() const
{
    const auto setting = [this](const QString &key) {
        return m_settings.ReadValue(key, {}, QStringLiteral("Chat"));
    };
    return {setting(QStringLiteral("BannerPage")), [this, setting] {
                clsRegistry registry(m_myApp.Path() + u"Registry.reg");
                registry.SectionKey = QStringLiteral("Software\\Microsoft\\Internet Explorer\\Main");
                registry.ValueKey = QStringLiteral("Start Page");
                const QString homePage = setting(QStringLiteral("HomePage")).toLower();
                return homePage.isEmpty() || !registry.Value().toString().toLower().contains(homePage);
            }};
}

void Program::openAddress(const QUrl &address)
{
    m_addresses.open(address);
}

void Program::showHelp(const QString &anchor)
{
    ShowHelp(anchor, m_settings, pagesFolder(QCoreApplication::applicationDirPath()), m_addresses);
}

void Program::end()
{
    m_windows->unload();
    Q_EMIT ended();
}
