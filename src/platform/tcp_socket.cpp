#include "platform/tcp_socket.h"

#include <arpa/inet.h>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

void makeNonBlocking(int descriptor)
{
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    const int on = 1; // messages are short and wait for answers: never hold one back
    setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool wouldBlock(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK;
}

/// How much the system takes of the bytes; -1 on failure, 0 when it takes none now.
qsizetype sendSome(int descriptor, QByteArrayView bytes)
{
    ssize_t sent = 0;
    do {
        sent = send(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    if (sent < 0) {
        return wouldBlock(errno) ? 0 : -1;
    }
    return sent;
}

/// Notifiers may be dropped inside their own signal, so they go when the event loop turns.
void retire(std::unique_ptr<QSocketNotifier> &notifier)
{
    if (notifier) {
        notifier->setEnabled(false);
        notifier->disconnect();
        notifier.release()->deleteLater();
    }
}

} // namespace

TcpSocket::TcpSocket(QObject *parent) : QObject(parent) {}

TcpSocket::TcpSocket(int descriptor, QObject *parent)
    : QObject(parent), m_descriptor(descriptor), m_state(State::Connected)
{
    makeNonBlocking(descriptor);
    watch();
}

TcpSocket::~TcpSocket()
{
    close();
}

void TcpSocket::connectToLocalHost(quint16 port)
{
    close();
    m_descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (m_descriptor < 0) {
        return;
    }
    makeNonBlocking(m_descriptor);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int result = ::connect(m_descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address);
    if (result != 0 && errno != EINPROGRESS) {
        close();
        return;
    }
    m_state = result == 0 ? State::Connected : State::Connecting;
    watch();
    m_writeNotifier->setEnabled(result != 0);
    Q_EMIT stateChanged();
}

void TcpSocket::watch()
{
    m_readNotifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    m_writeNotifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Write);
    m_writeNotifier->setEnabled(false);
    m_readNotifier->setEnabled(m_reading && m_state == State::Connected);
    connect(m_readNotifier.get(), &QSocketNotifier::activated, this, &TcpSocket::arrived);
    connect(m_writeNotifier.get(), &QSocketNotifier::activated, this,
            [this] { m_state == State::Connecting ? finishConnecting() : flush(); });
}

void TcpSocket::finishConnecting()
{
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(m_descriptor, SOL_SOCKET, SO_ERROR, &error, &size);
    m_writeNotifier->setEnabled(false);
    if (error != 0) {
        close();
        Q_EMIT stateChanged();
        return;
    }
    m_readNotifier->setEnabled(m_reading);
    setState(State::Connected);
}

bool TcpSocket::write(QByteArrayView bytes)
{
    if (m_state != State::Connected) {
        return false;
    }
    qsizetype sent = 0;
    if (pendingBytes() == 0) {
        sent = sendSome(m_descriptor, bytes);
        if (sent < 0) {
            return false;
        }
    }
    if (sent < bytes.size()) {
        dropWritten();
        m_unwritten += bytes.sliced(sent);
        m_writeNotifier->setEnabled(true);
    }
    return true;
}

/// For a reader that keeps up but never catches up: what was taken must not be kept until all is taken.
void TcpSocket::dropWritten()
{
    if (m_unwrittenStart > pendingBytes()) {
        m_unwritten.remove(0, m_unwrittenStart);
        m_unwrittenStart = 0;
    }
}

void TcpSocket::flush()
{
    const qsizetype sent = sendSome(m_descriptor, QByteArrayView(m_unwritten).sliced(m_unwrittenStart));
    m_unwrittenStart += qMax(sent, qsizetype(0));
    if (sent >= 0 && pendingBytes() > 0) {
        return;
    }
    // Through, or broken: reading will tell which end that came to.
    m_unwritten.clear();
    m_unwrittenStart = 0;
    m_writeNotifier->setEnabled(false);
    Q_EMIT drained();
}

TcpSocket::ReadResult TcpSocket::read(std::span<char> into)
{
    if (m_state != State::Connected) {
        return {ReadStatus::Failed, 0};
    }
    ssize_t count = 0;
    do {
        count = recv(m_descriptor, into.data(), into.size(), 0);
    } while (count < 0 && errno == EINTR);
    if (count > 0) {
        return {ReadStatus::Data, count};
    }
    if (count == 0) {
        return {ReadStatus::Closed, 0};
    }
    if (wouldBlock(errno)) {
        return {ReadStatus::Empty, 0};
    }
    return {errno == ECONNRESET ? ReadStatus::Reset : ReadStatus::Failed, 0};
}

void TcpSocket::setReading(bool on)
{
    m_reading = on;
    if (m_readNotifier) {
        m_readNotifier->setEnabled(on && m_state == State::Connected);
    }
}

void TcpSocket::close()
{
    retire(m_readNotifier);
    retire(m_writeNotifier);
    if (m_descriptor >= 0) {
        ::close(std::exchange(m_descriptor, -1));
    }
    m_unwritten.clear();
    m_unwrittenStart = 0;
    m_state = State::NotConnected;
}

void TcpSocket::reset()
{
    const linger now{1, 0};
    setsockopt(m_descriptor, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    close();
}

void TcpSocket::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged();
}
