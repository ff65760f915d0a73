#include "soak/report.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

constexpr std::size_t kept = 50;

Report *theReport = nullptr; // for those who call without an object

/// What the platform without a screen says of itself.
bool isKnown(const QString &message)
{
    static const QRegularExpression known(QStringLiteral("This plugin does not support|XDG_RUNTIME_DIR"));
    return known.match(message).hasMatch();
}

void take(QtMsgType type, const QMessageLogContext & /*where*/, const QString &message)
{
    if (type != QtDebugMsg && type != QtInfoMsg && !isKnown(message)) {
        theReport->fail(QStringLiteral("the toolkit warns: ") + message);
    }
}

} // namespace

Report::Report(quint32 seed) : m_seed(seed)
{
    theReport = this;
    qInstallMessageHandler(take);
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback([] {
        if (theReport != nullptr) {
            theReport->printSteps();
        }
    });
#endif
}

Report::~Report()
{
    qInstallMessageHandler(nullptr);
    theReport = nullptr;
}

void Report::step(const QString &name, const QString &details)
{
    static const QElapsedTimer since = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    const QMutexLocker lock(&m_mutex);
    ++m_taken[name];
    m_steps.push_back(QString::number(since.elapsed()) % u" ms  " % name % u' ' % details);
    if (m_steps.size() > kept) {
        m_steps.pop_front();
    }
}

void Report::printSteps()
{
    for (const QString &step : m_steps) {
        std::fprintf(stderr, "  %s\n", qPrintable(step));
    }
    std::fprintf(stderr, "seed %u\n", m_seed);
}

void Report::fail(const QString &what)
{
    std::fprintf(stderr, "soak: WRONG: %s\nthe last steps:\n", qPrintable(what));
    printSteps();
    std::_Exit(1);
}
