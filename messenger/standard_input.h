#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

namespace messenger {

/// The lines that are typed, or that a pipe brings, as they come and without waiting. It ends quietly with
/// the input.
class StandardInput final : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype longestLine = 4096; ///< bytes; a longer one is left out

    /// Watches the descriptor, which stays the caller's.
    explicit StandardInput(int descriptor, QObject *parent = nullptr);

Q_SIGNALS:
    void lineRead(const QString &line);
    void lineTooLong();

private:
    void read();
    void takeLines();

    int m_descriptor;
    QSocketNotifier m_notifier;
    QByteArray m_buffer;
    bool m_skipping = false; ///< up to the end of a line that was too long
};

} // namespace messenger
