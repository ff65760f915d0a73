#include "messenger/client.h"

#include "link/xml_codec.h"
#include "platform/code_page.h"

#include <utility>

namespace messenger {

namespace {

/// The key of a message in its envelope; none when it is not one that a reply can carry. A key that reads as
/// unsolicited would turn the reply into an event.
std::optional<QStringView> keyOf(const clsXMLMessage &message)
{
    const clsXMLMessage *mark = message.XMLMessage.Item(1);
    if (mark == nullptr || mark->MsgName != QStringView(u"V")) {
        return std::nullopt;
    }
    const auto key = mark->value(u"mk");
    const bool isUsable =
        key && !key->isEmpty() && key->size() <= Client::longestKey && *key != QStringView(u"MSG");
    return isUsable ? key : std::nullopt;
}

} // namespace

Client::Client(const QString &userId, std::unique_ptr<TcpSocket> socket, const CodePage &codePage)
    : m_userId(userId), m_socket(std::move(socket)), m_codePage(codePage)
{
    m_nextTurn.setSingleShot(true);
    m_nextTurn.setInterval(0);
    connect(&m_nextTurn, &QTimer::timeout, this, &Client::work);
    connect(m_socket.get(), &TcpSocket::arrived, this, &Client::work);
    connect(m_socket.get(), &TcpSocket::drained, this, &Client::resume);
}

void Client::send(QByteArrayView bytes)
{
    if (!m_open || m_mute) {
        return;
    }
    if (!m_socket->write(bytes)) {
        m_mute = true;
        resume();
        return;
    }
    if (pendingBytes() > giveUpAbove) {
        close();
        return;
    }
    if (pendingBytes() > pauseAbove) {
        m_paused = true;
        m_socket->setReading(false);
    }
}

void Client::close()
{
    if (std::exchange(m_open, false)) {
        m_nextTurn.stop();
        m_socket->close();
        Q_EMIT finished();
    }
}

void Client::resume()
{
    m_paused = false;
    m_socket->setReading(!m_ended);
    m_nextTurn.start();
}

void Client::work()
{
    for (int steps = 0; steps < stepsPerTurn; ++steps) {
        if (!mayWork() || !step()) {
            return;
        }
    }
    m_nextTurn.start();
}

/// Handles a message or reads more; false when there is neither.
bool Client::step()
{
    if (const auto message = m_framer.next()) {
        handle(*message);
        return true;
    }
    if (m_ended) {
        close();
        return false;
    }
    return readMore();
}

bool Client::readMore()
{
    const auto tail = m_framer.tail();
    const TcpSocket::ReadResult result = m_socket->read(tail);
    switch (result.status) {
    case TcpSocket::ReadStatus::Data:
        m_framer.commit(result.count);
        return true;
    case TcpSocket::ReadStatus::Empty:
        if (m_mute) {
            close();
        }
        return false;
    default:
        m_ended = true;
        m_socket->setReading(false);
        return true;
    }
}

void Client::handle(QByteArrayView bytes)
{
    const QString text = m_codePage.decode(bytes);
    Q_EMIT messageRead(text);
    XMLDocument document;
    qsizetype position = 1;
    if (!ParseElement(text, document.root, position)) {
        return;
    }
    const auto key = keyOf(document.root);
    const clsXMLMessage *request = document.root.XMLMessage.Item(2);
    if (key && request != nullptr) {
        Q_EMIT requested(key->toString(), *request);
    }
}

} // namespace messenger
