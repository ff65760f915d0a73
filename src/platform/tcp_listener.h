#pragma once

#include "platform/tcp_socket.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

/// Listens for TCP connections on 127.0.0.1, and on no other address. When the system has no means left for
/// another connection, those that want in wait, and the listener tries again once a second.
class TcpListener final : public QObject
{
    Q_OBJECT

public:
    explicit TcpListener(QObject *parent = nullptr);
    ~TcpListener() override;

    /// Port 0 takes a free one. False when the port cannot be had.
    bool listen(quint16 port);

    /// The port that is listened on; 0 when none is.
    [[nodiscard]] quint16 port() const { return m_port; }

    /// The next connection that waits, or null.
    [[nodiscard]] std::unique_ptr<TcpSocket> accept();

    void close();

Q_SIGNALS:
    /// At least one connection waits to be accepted.
    void arrived();
    /// None can be accepted for now, and why; told once until one has been accepted again.
    void paused(const QString &reason);

private:
    void pause(int error);

    int m_descriptor = -1;
    quint16 m_port = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_retry;
    bool m_isPaused = false; ///< and it has been told
};
