#include "support/scripted_messenger.h"

ScriptedMessenger::ScriptedMessenger()
{
    connect(&m_listener, &TcpListener::arrived, this, &ScriptedMessenger::accept);
    m_listener.listen(0);
}

void ScriptedMessenger::accept()
{
    m_client = m_listener.accept();
    connect(m_client.get(), &TcpSocket::arrived, this, &ScriptedMessenger::read);
}

void ScriptedMessenger::read()
{
    const auto result = m_client->read(m_framer.tail());
    if (result.status != TcpSocket::ReadStatus::Data) {
        m_client->close();
        return;
    }
    m_framer.commit(result.count);
    while (const auto message = m_framer.next()) {
        answer(speaksUtf8 ? QString::fromUtf8(*message) : QString::fromLatin1(*message));
    }
}

void ScriptedMessenger::answer(const QString &message)
{
    const qsizetype keyStart = message.indexOf(u'"') + 1;
    const qsizetype keyEnd = message.indexOf(u'"', keyStart);
    const QString key = lastKey = message.sliced(keyStart, keyEnd - keyStart);
    const qsizetype start = message.indexOf(u"/>") + 2;
    const QString request = message.sliced(start, message.lastIndexOf(u"</MSG>") - start);
    requests.append(request);
    if (answersStartUp && request == u"<GETSKIN/>") {
        send(QStringLiteral("<SKIN value=\"C:\\\\skins\\\\Blue.skn\"/>"), key);
    } else if (answersStartUp && request == u"<GETMYDETAILS/>") {
        send(QStringLiteral("<MYDETAILS id=\"u1\" nick=\"Ann\" s=\"11\" m=\"7\"/>"), key);
    } else if (m_script) {
        for (QString reply : m_script(request)) {
            sendText(reply.replace(QStringLiteral("{key}"), key));
        }
    }
}
