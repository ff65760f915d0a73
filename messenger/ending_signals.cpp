#include "messenger/ending_signals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace messenger {

namespace {

/// A signal handler may do next to nothing, but it may write to a pipe.
volatile std::sig_atomic_t writeEnd = -1;

void noteSignal(int /*number*/)
{
    const int kept = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
    errno = kept;
}

void handleWith(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

} // namespace

EndingSignals::EndingSignals(QObject *parent) : QObject(parent)
{
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals then end the program as they do any other
    }
    m_readEnd = ends[0];
    writeEnd = ends[1];
    auto *notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT received();
    });
    handleWith(noteSignal);
}

EndingSignals::~EndingSignals()
{
    if (m_readEnd >= 0) {
        handleWith(SIG_DFL);
        ::close(m_readEnd);
        ::close(writeEnd);
    }
}

} // namespace messenger
