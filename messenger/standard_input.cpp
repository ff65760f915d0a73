#include "messenger/standard_input.h"

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace messenger {

StandardInput::StandardInput(int descriptor, QObject *parent)
    : QObject(parent), m_descriptor(descriptor), m_notifier(descriptor, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &StandardInput::read);
}

/// One read a turn never blocks: the notifier has said that there is something.
void StandardInput::read()
{
    char bytes[4096];
    const ssize_t count = ::read(m_descriptor, bytes, sizeof bytes);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count <= 0) {
        m_notifier.setEnabled(false);
        return;
    }
    m_buffer.append(bytes, count);
    takeLines();
}

void StandardInput::takeLines()
{
    for (qsizetype end = m_buffer.indexOf('\n'); end >= 0; end = m_buffer.indexOf('\n')) {
        const QByteArray line = m_buffer.first(end);
        m_buffer.remove(0, end + 1);
        if (std::exchange(m_skipping, false)) {
            continue;
        }
        if (line.size() > longestLine) {
            Q_EMIT lineTooLong();
        } else {
            Q_EMIT lineRead(QString::fromLocal8Bit(line));
        }
    }
    if (m_buffer.size() > longestLine) {
        m_buffer.clear();
        if (!std::exchange(m_skipping, true)) {
            Q_EMIT lineTooLong();
        }
    }
}

} // namespace messenger
