#pragma once

#include "link/message_framer.h"
#include "platform/tcp_listener.h"
#include "support/eventually.h"

#include <QStringList>

#include <functional>
#include <memory>

/// The other end of the link as a test wants it: a real socket that answers each request by a script, or not.
class ScriptedMessenger final : public QObject
{
    Q_OBJECT

public:
    /// What to send back for a request, each text a whole message without its NUL; "{key}" becomes its key.
    using Script = std::function<QStringList(const QString &request)>;

    ScriptedMessenger();

    [[nodiscard]] quint16 port() const { return m_listener.port(); }
    [[nodiscard]] bool hasClient() const { return m_client != nullptr; }

    /// Answers by the script. What start-up asks is answered as a messenger does, unless that is switched
    /// off.
    void answerBy(Script script) { m_script = std::move(script); }

    /// Sends one message: the payload in an envelope with this key.
    void send(const QString &payload, const QString &key = QStringLiteral("MSG"))
    {
        sendText(u"<MSG><V mk=\"" + key + u"\"/>" + payload + u"</MSG>");
    }
    void sendRaw(const QByteArray &bytes) { m_client->write(bytes); }

    void closeClient() { m_client->close(); }
    /// Ends the connection so that the other side sees it reset.
    void resetClient() { m_client->reset(); }

    bool answersStartUp = true;
    bool speaksUtf8 = false; ///< and not Latin-1
    QStringList requests;    ///< what came, the element inside the envelope only
    QString lastKey;         ///< of what came last

private:
    void accept();
    void read();
    void answer(const QString &message);
    void sendText(const QString &text) { sendRaw((speaksUtf8 ? text.toUtf8() : text.toLatin1()) + '\0'); }

    TcpListener m_listener;
    std::unique_ptr<TcpSocket> m_client;
    MessageFramer m_framer;
    Script m_script;
};
