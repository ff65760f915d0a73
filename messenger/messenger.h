#pragma once

#include "messenger/options.h"

#include <QObject>
#include <QStringList>

#include <memory>

class clsXMLMessage;

namespace messenger {
class Client;
struct Engine;
} // namespace messenger

/// The companion as a whole: it listens on 127.0.0.1, plays the messenger for each client that connects, and
/// moves the guests. It lives on the event loop of the thread that made it, so that a test can run one beside
/// the clients it talks to. Destroying it closes every connection.
class Messenger final : public QObject
{
    Q_OBJECT

public:
    explicit Messenger(const MessengerOptions &options, QObject *parent = nullptr);
    ~Messenger() override;

    /// Listens, and writes the port into Pylox.ini of the application folder. False when there is no port to
    /// be had; problems() says why.
    bool start();

    /// Why start() failed; after a start that succeeded, what is to be reported all the same: one line each.
    [[nodiscard]] QStringList problems() const;

    /// The port that is listened on; 0 before start().
    [[nodiscard]] quint16 port() const;

    [[nodiscard]] qsizetype clientCount() const;

    /// Runs one line of the console. What is to be printed, without a line end; empty when there is nothing.
    QString command(const QString &line);

Q_SIGNALS:
    /// The console said "quit".
    void quitRequested();

private:
    void acceptClients();
    void connectClient(messenger::Client &client);
    void answer(messenger::Client &client, const QString &key, const clsXMLMessage &request);
    void dropClient(const QString &userId);
    void moveGuests();
    void deliver();
    void log(const QString &userId, QStringView arrow, const QString &text) const;
    void prepareFolder();

    MessengerOptions m_options;
    QStringList m_problems;
    std::unique_ptr<messenger::Engine> m_engine;
};
