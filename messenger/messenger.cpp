#include "messenger/messenger.h"

#include "core/application_folder.h"
#include "core/clock.h"
#include "messenger/announcer.h"
#include "messenger/client.h"
#include "messenger/console.h"
#include "messenger/default_world.h"
#include "messenger/guests.h"
#include "messenger/replies.h"
#include "messenger/requests.h"
#include "messenger/skin_files.h"
#include "messenger/users_file.h"
#include "messenger/world.h"
#include "platform/code_page.h"
#include "platform/settings_file.h"
#include "platform/tcp_listener.h"
#include "platform/text_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QTimer>

#include <cstdio>
#include <map>
#include <utility>

using messenger::Client;

namespace {

constexpr std::size_t mostClients = 64;

/// Longer messages are cut in the log.
constexpr qsizetype longestLogged = 500;

/// The users of the file, or the built-in ones without a file or when it names none.
QList<messenger::User> usersOf(const QString &path, QStringList &problems)
{
    if (path.isEmpty()) {
        return messenger::defaultUsers();
    }
    const auto text = readTextFile(path);
    if (!text) {
        problems.append(path % u": cannot be read");
        return messenger::defaultUsers();
    }
    const messenger::UserTable table = messenger::parseUsers(*text);
    for (const QString &problem : table.problems) {
        problems.append(path % u": " % problem);
    }
    return table.users.isEmpty() ? messenger::defaultUsers() : table.users;
}

QString homeOf(const MessengerOptions &options)
{
    return options.home.isEmpty() ? applicationFolder(QCoreApplication::applicationDirPath())
                                  : withTrailingSeparator(options.home);
}

QByteArray framed(const CodePage &codePage, const QString &message)
{
    QByteArray bytes = codePage.encode(message);
    bytes.append('\0');
    return bytes;
}

QString printable(QStringView text)
{
    QString shown = text.first(qMin(text.size(), longestLogged)).toString();
    for (QChar &c : shown) {
        c = c < u' ' ? QChar(u'.') : c;
    }
    return shown.size() < text.size() ? QString(shown % u" …") : shown;
}

} // namespace

/// What a messenger is made of. The parts know each other in this order only.
struct messenger::Engine
{
    Engine(const MessengerOptions &options, const QList<User> &users, std::function<void()> quit)
        : world(users),
          announcer(world),
          requests(world),
          console(world, std::move(quit)),
          guests(world, clock, options.guests, options.seed)
    {
        world.addListener(announcer);
    }

    SystemClock clock;
    World world;
    Announcer announcer;
    Requests requests;
    Console console;
    Guests guests;
    CodePage codePage;
    TcpListener listener;
    QTimer guestTimer;
    std::map<QString, std::unique_ptr<Client>> clients; ///< by user id
};

Messenger::Messenger(const MessengerOptions &options, QObject *parent) : QObject(parent), m_options(options)
{
    m_options.home = homeOf(options);
    const auto quit = [this] { Q_EMIT quitRequested(); };
    m_engine = std::make_unique<messenger::Engine>(options, usersOf(options.usersFile, m_problems), quit);
    const QStringList folders =
        messenger::skinFolders(m_options.home, QCoreApplication::applicationDirPath());
    m_engine->console.setSkinFolders(folders);
    m_engine->world.setSkin(
        messenger::findSkin(options.skin.isEmpty() ? QStringLiteral("Light") : options.skin, folders));
    m_engine->guestTimer.setSingleShot(true);
    m_engine->guestTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_engine->guestTimer, &QTimer::timeout, this, &Messenger::moveGuests);
    connect(&m_engine->listener, &TcpListener::arrived, this, &Messenger::acceptClients);
    connect(&m_engine->listener, &TcpListener::paused, this, [](const QString &reason) {
        const QString line = u"pylox-messenger: no further client for now: " % reason % u'\n';
        std::fputs(line.toLocal8Bit().constData(), stderr);
    });
}

Messenger::~Messenger() = default;

bool Messenger::start()
{
    if (!m_engine->listener.listen(m_options.port)) {
        m_problems.append(m_options.port == 0
                              ? QStringLiteral("no port of 127.0.0.1 is free")
                              : QStringLiteral("port %1 of 127.0.0.1 cannot be had").arg(m_options.port));
        return false;
    }
    prepareFolder();
    moveGuests();
    return true;
}

/// Clients read from Pylox.ini which port to connect to. Without it they can still be told on their command
/// line, so a failure is reported and no more.
void Messenger::prepareFolder()
{
    SettingsFile settings;
    settings.FileName = m_options.home + u"Pylox.ini";
    const QString section = QStringLiteral("Chat");
    m_engine->codePage =
        CodePage(settings.ReadValue(QStringLiteral("CodePage"), QStringLiteral("windows-1252"), section));
    if (!QDir().mkpath(m_options.home) ||
        !settings.WriteValue(QStringLiteral("Port"), QString::number(port()), section)) {
        m_problems.append(settings.FileName % u": cannot be written");
    }
}

QStringList Messenger::problems() const
{
    return m_problems;
}

quint16 Messenger::port() const
{
    return m_engine->listener.port();
}

qsizetype Messenger::clientCount() const
{
    return static_cast<qsizetype>(m_engine->clients.size());
}

QString Messenger::command(const QString &line)
{
    QString output = m_engine->console.run(line);
    deliver();
    return output;
}

void Messenger::acceptClients()
{
    while (auto socket = m_engine->listener.accept()) {
        if (m_engine->clients.size() >= mostClients) {
            continue; // the socket goes, and with it the connection
        }
        const QString id = m_engine->world.connectPerson();
        auto &client = m_engine->clients[id];
        client = std::make_unique<Client>(id, std::move(socket), m_engine->codePage);
        connectClient(*client);
        log(id, u"is", QStringLiteral("connected"));
    }
    deliver();
}

void Messenger::connectClient(Client &client)
{
    connect(
        &client, &Client::requested, this,
        [this, &client](const QString &key, const clsXMLMessage &request) { answer(client, key, request); });
    connect(&client, &Client::messageRead, this,
            [this, &client](const QString &text) { log(client.userId(), u"->", text); });
    // Queued: a client ends in the middle of its own work, or while messages are being handed out.
    connect(
        &client, &Client::finished, this, [this, id = client.userId()] { dropClient(id); },
        Qt::QueuedConnection);
}

void Messenger::answer(Client &client, const QString &key, const clsXMLMessage &request)
{
    const QString reply = messenger::envelope(key, m_engine->requests.answer(client.userId(), request));
    log(client.userId(), u"<-", reply);
    client.send(framed(m_engine->codePage, reply));
    deliver();
}

void Messenger::dropClient(const QString &userId)
{
    if (m_engine->clients.erase(userId) == 0) {
        return;
    }
    log(userId, u"is", QStringLiteral("gone"));
    m_engine->world.disconnectPerson(userId);
    deliver();
}

void Messenger::moveGuests()
{
    m_engine->guests.act();
    deliver();
}

/// Hands out what has happened, and sets the clock for what the guests do about it.
void Messenger::deliver()
{
    for (const messenger::Delivery &delivery : m_engine->announcer.take()) {
        const QByteArray bytes = framed(m_engine->codePage, delivery.message);
        for (const QString &id : delivery.recipients) {
            if (const auto client = m_engine->clients.find(id); client != m_engine->clients.end()) {
                log(id, u"<-", delivery.message);
                client->second->send(bytes);
            }
        }
    }
    if (const auto wait = m_engine->guests.untilNext(); wait && port() != 0) {
        m_engine->guestTimer.start(static_cast<int>(qMin(*wait, qint64(60'000))));
    }
}

void Messenger::log(const QString &userId, QStringView arrow, const QString &text) const
{
    if (m_options.verbose) {
        const QString line = userId % u' ' % arrow % u' ' % printable(text) % u'\n';
        std::fputs(line.toLocal8Bit().constData(), stderr);
    }
}
