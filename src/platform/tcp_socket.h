#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <span>

/// A TCP connection on this machine, never blocking. It stands between the programs and the system's sockets
/// because the link needs what the toolkit's socket hides: the connection-reset error as a condition of its
/// own, and reading straight into the buffer that messages are cut from.
///
/// arrived() is signalled while unread data waits; each read() takes what is there. Deleting the socket or
/// closing it inside a slot of its signals is safe.
class TcpSocket final : public QObject
{
    Q_OBJECT

public:
    enum class State
    {
        NotConnected,
        Connecting,
        Connected
    };
    enum class ReadStatus
    {
        Data,   ///< the count says how many bytes were read
        Empty,  ///< nothing there now
        Closed, ///< the other side has closed the connection
        Reset,  ///< the connection was reset
        Failed, ///< any other error
    };
    struct ReadResult
    {
        ReadStatus status = ReadStatus::Failed;
        qsizetype count = 0;
    };

    explicit TcpSocket(QObject *parent = nullptr);
    /// Takes over a connected descriptor, as the listener hands it out.
    explicit TcpSocket(int descriptor, QObject *parent = nullptr);
    ~TcpSocket() override;

    /// Starts connecting to 127.0.0.1; state() tells when it is through. A refusal leads to NotConnected.
    void connectToLocalHost(quint16 port);

    [[nodiscard]] State state() const { return m_state; }

    /// Hands the bytes to the system; what it does not take at once is kept and written when it does.
    /// False when the socket is not connected or the write failed.
    bool write(QByteArrayView bytes);

    /// Bytes handed over by write() that the system has not taken yet.
    [[nodiscard]] qsizetype pendingBytes() const { return m_unwritten.size() - m_unwrittenStart; }

    /// Reads what is there, at most as much as fits.
    ReadResult read(std::span<char> into);

    /// While off, arrived() is not signalled and the system holds the data back. On at the start.
    void setReading(bool on);

    /// Closes the connection at once; nothing is signalled.
    void close();

    /// Closes the connection so that the other side sees it reset; what was not taken yet is thrown away.
    void reset();

Q_SIGNALS:
    void stateChanged();
    void arrived();
    /// Nothing that write() was given waits any more: the system has taken it, or the connection is broken,
    /// which the next read() tells.
    void drained();

private:
    void watch();
    void finishConnecting();
    void flush();
    void dropWritten();
    void setState(State state);

    int m_descriptor = -1;
    State m_state = State::NotConnected;
    bool m_reading = true;
    QByteArray m_unwritten;
    qsizetype m_unwrittenStart = 0;
    std::unique_ptr<QSocketNotifier> m_readNotifier;
    std::unique_ptr<QSocketNotifier> m_writeNotifier;
};
