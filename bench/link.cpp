// The real queue and the real socket against the companion, which runs as a program of its own.
//
// bench_link [--paced N]: with --paced only that many requests in a row at the send timer's own pace.

#include "bench/figures.h"
#include "bench/no_prompts.h"
#include "core/clock.h"
#include "core/clsMyApp.h"
#include "core/command_line.h"
#include "core/shared_state.h"
#include "link/frmComms.h"
#include "link/wait.h"
#include "platform/settings_file.h"
#include "platform/skinnable.h"
#include "platform/tcp_listener.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <chrono>

namespace {

constexpr int runs = 5;
constexpr int requests = 10'000;
constexpr int pacedRequests = 20;
constexpr int waitMilliseconds = 2000;

/// A link with all it needs, connected to the port.
struct Client
{
    explicit Client(quint16 port)
    {
        require(link.ConnectToClient(CommandLine(QStringList{u"-port" + QString::number(port) + u'~'})),
                "not connected");
    }

    SharedState state;
    clsMyApp myApp{QDir::tempPath()};
    SettingsFile settings;
    LoadedWindows windows;
    NoPrompts prompts;
    SystemClock clock;
    frmComms link{state, myApp, settings, windows, prompts, clock};
};

/// The companion as a person starts it; ends with this object.
class Companion
{
public:
    Companion()
    {
        m_program.start(QCoreApplication::applicationDirPath() + u"/pylox-messenger",
                        {QStringLiteral("--home"), m_home.path()});
        while (!m_program.canReadLine() && m_program.waitForReadyRead(5000)) {
        }
        const QByteArray line = m_program.readLine().trimmed();
        port = line.sliced(line.lastIndexOf(':') + 1).toUShort();
        require(port != 0, "the companion did not start");
    }
    ~Companion()
    {
        m_program.terminate();
        m_program.waitForFinished(5000);
    }
    Companion(const Companion &) = delete;
    Companion &operator=(const Companion &) = delete;

    quint16 port = 0;

private:
    QTemporaryDir m_home;
    QProcess m_program;
};

double wallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Milliseconds a request, with the send timer as it is.
double pacedRun(Client &client, int count)
{
    const double start = wallSeconds();
    for (int at = 0; at < count; ++at) {
        require(!client.link.RetrieveSkin().isEmpty(), "a request without its reply");
    }
    return (wallSeconds() - start) * 1000 / count;
}

struct RequestCost
{
    double cpuMicroseconds;
    double wallMicroseconds;
};

/// What a request costs by itself: the timer's tick comes as soon as the request is queued.
RequestCost unpacedRun(Client &client)
{
    const double cpu = cpuSeconds();
    const double wall = wallSeconds();
    for (int at = 0; at < requests; ++at) {
        QMetaObject::invokeMethod(&client.link, &frmComms::sendNext, Qt::QueuedConnection);
        require(!client.link.RetrieveSkin().isEmpty(), "a request without its reply");
    }
    return {(cpuSeconds() - cpu) * 1e6 / requests, (wallSeconds() - wall) * 1e6 / requests};
}

/// Percent of one core while a request waits for an answer that does not come.
double waitingRun()
{
    TcpListener silent;
    require(silent.listen(0), "no port");
    std::unique_ptr<TcpSocket> peer;
    QObject::connect(&silent, &TcpListener::arrived, [&] {
        peer = silent.accept();
        peer->setReading(false);
    });
    Client client(silent.port());
    QTimer::singleShot(waitMilliseconds, &client.link, [&client] { client.link.setShutDown(); });
    const double cpu = cpuSeconds();
    const double wall = wallSeconds();
    require(client.link.RetrieveSkin().isEmpty(), "an answer out of nowhere");
    return (cpuSeconds() - cpu) / (wallSeconds() - wall) * 100;
}

void paced(Client &client, int count)
{
    const double cpu = cpuSeconds();
    const double each = pacedRun(client, count);
    printFigure("link.paced-requests", count, "requests");
    printFigure("link.paced-request", each, "ms");
    printFigure("link.paced-cpu", (cpuSeconds() - cpu) * 1e6 / count, "us/request");
    printFigure("link.queue-left", static_cast<double>(client.link.queue().records().Count()), "records");
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const Companion companion;
    Client client(companion.port);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"--paced") {
        paced(client, arguments[2].toInt());
        return 0;
    }
    std::vector<double> pacedTimes, cpu, wall, waiting;
    for (int run = 0; run < runs; ++run) {
        pacedTimes.push_back(pacedRun(client, pacedRequests));
        const RequestCost cost = unpacedRun(client);
        cpu.push_back(cost.cpuMicroseconds);
        wall.push_back(cost.wallMicroseconds);
        waiting.push_back(waitingRun());
    }
    printFigure("link.paced-request", median(pacedTimes), "ms");
    printFigure("link.request-cpu", median(cpu), "us");
    printFigure("link.request-wall", median(wall), "us");
    printFigure("link.waiting-cpu", median(waiting), "percent", 2);
    return 0;
}
