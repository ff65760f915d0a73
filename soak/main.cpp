// A client that is put through a storm, for as long as it is wanted, and checked all the while.
//
// pylox-soak [--seconds N] [--lives N] [--seed N]: so long, or so many clients. The exit status is 1 when
// something was wrong.

#include "soak/report.h"
#include "soak/soak.h"

#include <QCommandLineParser>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <sys/prctl.h>
#include <thread>

namespace {

constexpr int patience = 20'000;                // milliseconds, for the companion to start and to end
constexpr std::chrono::seconds longestHang(60); // no turn of the event loop for so long

/// The companion, as a program of its own; it never outlives this one.
quint16 start(QProcess &companion, const QString &home, quint32 seed, Report &report)
{
    companion.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    companion.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    companion.start(QCoreApplication::applicationDirPath() + u"/pylox-messenger",
                    {QStringLiteral("--home"), home, QStringLiteral("--guests"), QStringLiteral("6"),
                     QStringLiteral("--seed"), QString::number(seed)});
    report.require(companion.waitForReadyRead(patience), QStringLiteral("the companion does not start"));
    const QByteArray said = companion.readLine().trimmed();
    QObject::connect(&companion, &QProcess::finished, &companion,
                     [&report] { report.fail(QStringLiteral("the companion has ended")); });
    QObject::connect(&companion, &QProcess::readyRead, &companion, [&companion] { companion.readAll(); });
    return said.mid(said.lastIndexOf(':') + 1).toUShort();
}

/// For a loop that never comes back.
void watch(const std::stop_token &stop, const TurnWatch &loop, Report &report)
{
    quint64 turns = 0;
    for (std::chrono::seconds idle{}; !stop.stop_requested(); idle += std::chrono::seconds(1)) {
        idle = std::exchange(turns, loop.turns()) == loop.turns() ? idle : std::chrono::seconds(0);
        report.require(idle < longestHang, QStringLiteral("the event loop hangs"));
        std::this_thread::sleep_for(std::chrono::seconds(1));
    }
}

void print(const Soak::Figures &figures, const TurnWatch &loop, const Report &report, quint32 seed)
{
    std::printf("%-28s %.0f s, seed %u\n", "ran", figures.seconds, seed);
    std::printf("%-28s %d, of which %d did not start\n", "lives", figures.lives, figures.unstarted);
    std::printf("%-28s", "steps");
    for (const auto &[name, count] : report.taken()) {
        std::printf(" %s %d,", qPrintable(name), count);
    }
    std::printf("\n%-28s %d sent, %d known to be acknowledged\n", "lines of the user", figures.sent,
                figures.acknowledged);
    std::printf("%-28s %d told, %lld shown\n", "lines of others", figures.told,
                static_cast<long long>(figures.shown));
    std::printf("%-28s %d\n", "disconnects", figures.disconnects);
    std::printf("%-28s %.1f ms CPU (%s) of %.0f allowed, %.1f ms wall\n", "longest turn", loop.longest().cpu,
                loop.longest().busiest, Soak::turnLimit(), loop.longestWall());
    std::printf("%-28s %.1f s for an answer, %.1f s for the end\n", "longest wait", figures.longestWait,
                figures.longestExit);
    for (std::size_t quarter = 1; quarter <= 4 && !figures.heap.empty(); ++quarter) {
        const std::size_t at = (figures.heap.size() * quarter + 3) / 4 - 1;
        std::printf("%-28s %.0f KiB in use, %.0f KiB resident\n",
                    qPrintable(QStringLiteral("memory after life %1").arg(at + 1)), figures.heap[at],
                    figures.resident[at]);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    TurnWatch application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addOption({QStringLiteral("seconds"), {}, QStringLiteral("N"), QStringLiteral("60")});
    parser.addOption({QStringLiteral("lives"), {}, QStringLiteral("N"), QStringLiteral("1000000")});
    parser.addOption({QStringLiteral("seed"), {}, QStringLiteral("N"), QStringLiteral("1")});
    parser.process(application);
    const int seconds = parser.value(QStringLiteral("seconds")).toInt();
    const quint32 seed = parser.value(QStringLiteral("seed")).toUInt();

    Report report(seed);
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    const QTemporaryDir home;
    QProcess companion;
    const quint16 port = start(companion, home.path(), seed, report);

    QThread thread;
    auto *proxy = new ChaosProxy(port);
    proxy->moveToThread(&thread);
    QObject::connect(&thread, &QThread::finished, proxy, &QObject::deleteLater);
    thread.start();
    quint16 proxyPort = 0;
    QMetaObject::invokeMethod(
        proxy, [&] { proxyPort = proxy->listen(); }, Qt::BlockingQueuedConnection);

    Soak soak(application, report, *proxy, proxyPort, companion, home.path(), seed);
    {
        const std::jthread watchdog([&](const std::stop_token &stop) { watch(stop, application, report); });
        soak.run(seconds, parser.value(QStringLiteral("lives")).toInt());
    }
    thread.quit();
    thread.wait();
    QObject::disconnect(&companion, &QProcess::finished, nullptr, nullptr);
    companion.write("quit\n");
    report.require(companion.waitForFinished(patience) && companion.exitCode() == 0,
                   QStringLiteral("the companion did not end well"));
    print(soak.figures(), application, report, seed);
    return 0;
}
