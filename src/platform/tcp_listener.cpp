#include "platform/tcp_listener.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int retryMilliseconds = 1000;

/// The connection stays where it is; trying again at once would fail again.
bool isExhaustion(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM;
}

} // namespace

TcpListener::TcpListener(QObject *parent) : QObject(parent)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(retryMilliseconds);
    connect(&m_retry, &QTimer::timeout, this, [this] { m_notifier->setEnabled(true); });
}

TcpListener::~TcpListener()
{
    close();
}

bool TcpListener::listen(quint16 port)
{
    close();
    m_descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int on = 1;
    setsockopt(m_descriptor, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    if (bind(m_descriptor, generic, size) != 0 || ::listen(m_descriptor, SOMAXCONN) != 0 ||
        getsockname(m_descriptor, generic, &size) != 0) {
        close();
        return false;
    }
    m_port = ntohs(address.sin_port);
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &TcpListener::arrived);
    return true;
}

std::unique_ptr<TcpSocket> TcpListener::accept()
{
    const int descriptor = accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) {
        if (isExhaustion(errno)) {
            pause(errno);
        }
        return nullptr;
    }
    m_isPaused = false;
    return std::make_unique<TcpSocket>(descriptor);
}

void TcpListener::pause(int error)
{
    m_notifier->setEnabled(false);
    m_retry.start();
    if (!std::exchange(m_isPaused, true)) {
        Q_EMIT paused(QString::fromLocal8Bit(std::strerror(error)));
    }
}

void TcpListener::close()
{
    m_retry.stop();
    m_notifier.reset();
    m_isPaused = false;
    if (m_descriptor >= 0) {
        ::close(std::exchange(m_descriptor, -1));
    }
    m_port = 0;
}
