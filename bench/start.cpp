// The start of the client, from exec to its first window on the screen, against the companion under a display
// without a screen; beside a bare window of the toolkit in the same run: time, CPU, and memory afterwards.

#include "bench/figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

constexpr int runs = 7;
constexpr int patience = 20'000; // milliseconds
constexpr int idle = 5'000;      // milliseconds until the memory is looked at
constexpr int smallestWindow = 200;
constexpr double nanoseconds = 1e9;

template <typename Type>
struct Free
{
    void operator()(Type *what) const { std::free(what); }
};

/// A display without a screen, and an eye on the windows that appear on it.
class Display
{
public:
    Display()
    {
        m_server.setStandardErrorFile(QProcess::nullDevice());
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                        QStringLiteral("0"), QStringLiteral("1280x900x24"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp")});
        require(m_server.waitForReadyRead(patience), "Xvfb does not start");
        m_name = ":" + m_server.readLine().trimmed();
        m_connection = xcb_connect(m_name.constData(), nullptr);
        require(xcb_connection_has_error(m_connection) == 0, "there is no display");
        const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, screen->root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_connection);
    }
    ~Display()
    {
        xcb_disconnect(m_connection);
        m_server.kill();
        m_server.waitForFinished();
    }
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    [[nodiscard]] QByteArray name() const { return m_name; }

    /// Forgets what has appeared so far.
    void clear() const
    {
        while (nextEvent() != nullptr) {
        }
    }

    /// True when a window has appeared before the time was over.
    [[nodiscard]] bool waitForWindow() const
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < patience) {
            const auto event = nextEvent();
            if (event == nullptr) {
                usleep(200);
            } else if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY &&
                       isLarge(reinterpret_cast<const xcb_map_notify_event_t *>(event.get())->window)) {
                return true;
            }
        }
        return false;
    }

private:
    using Event = std::unique_ptr<xcb_generic_event_t, Free<xcb_generic_event_t>>;

    [[nodiscard]] Event nextEvent() const { return Event(xcb_poll_for_event(m_connection)); }

    [[nodiscard]] bool isLarge(xcb_window_t window) const
    {
        const std::unique_ptr<xcb_get_geometry_reply_t, Free<xcb_get_geometry_reply_t>> geometry(
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
        return geometry != nullptr && geometry->width >= smallestWindow;
    }

    QProcess m_server;
    QByteArray m_name;
    xcb_connection_t *m_connection = nullptr;
};

/// The sum over all threads of a process.
double cpuSecondsOf(qint64 process)
{
    double sum = 0;
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(threads.filePath(thread + u"/schedstat"));
        if (file.open(QIODevice::ReadOnly)) {
            sum += file.readAll().split(' ').value(0).toDouble() / nanoseconds;
        }
    }
    return sum;
}

/// In MB; the share of what several processes use is counted by their number.
double memoryOf(qint64 process, const QByteArray &field)
{
    QFile file(QStringLiteral("/proc/%1/smaps_rollup").arg(process));
    require(file.open(QIODevice::ReadOnly), "the memory of a process cannot be read");
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(QByteArray(field + ':'))) {
            return line.mid(field.size() + 1).trimmed().split(' ').value(0).toDouble() / 1024;
        }
    }
    return 0;
}

struct Start
{
    std::vector<double> milliseconds;
    std::vector<double> cpu;          ///< milliseconds
    std::vector<double> proportional; ///< MB
    std::vector<double> resident;     ///< MB
};

void measure(const Display &display, const QString &program, const QStringList &arguments, Start &start,
             bool withMemory)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    display.clear();
    QElapsedTimer timer;
    timer.start();
    process.start(QCoreApplication::applicationDirPath() + u'/' + program, arguments);
    require(display.waitForWindow(), "no window appears");
    start.milliseconds.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    start.cpu.push_back(cpuSecondsOf(process.processId()) * 1000);
    if (withMemory) {
        usleep(idle * 1000);
        start.proportional.push_back(memoryOf(process.processId(), "Pss"));
        start.resident.push_back(memoryOf(process.processId(), "Rss"));
    }
    process.kill();
    process.waitForFinished();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const Display display;
    qputenv("DISPLAY", display.name());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const QTemporaryDir home;
    qputenv("PYLOX_HOME", home.path().toLocal8Bit());
    QProcess companion;
    companion.start(QCoreApplication::applicationDirPath() + u"/pylox-messenger",
                    {QStringLiteral("--home"), home.path(), QStringLiteral("--guests"), QStringLiteral("8")});
    require(companion.waitForReadyRead(patience), "the companion does not start");

    Start bare;
    Start client;
    for (int run = 0; run < runs; ++run) { // in turns, so that both see the same machine
        const bool withMemory = run >= runs - 3;
        measure(display, QStringLiteral("bench_bare_window"), {}, bare, withMemory);
        measure(display, QStringLiteral("PyloxChat"), {QStringLiteral("-cid1"), QStringLiteral("-cnmLobby~")},
                client, withMemory);
    }
    companion.kill();
    companion.waitForFinished();

    const double bareCpu = median(bare.cpu);
    printFigure("start_bare_window", median(bare.milliseconds), "ms");
    printFigure("start_client_window", median(client.milliseconds), "ms");
    printFigure("start_client_more", median(client.milliseconds) - median(bare.milliseconds), "ms", 350);
    printFigure("start_bare_cpu", bareCpu, "ms");
    printFigure("start_client_cpu", median(client.cpu) / bareCpu, "times", 4);
    printFigure("start_bare_resident", median(bare.resident), "MB");
    printFigure("start_client_resident_more", median(client.resident) - median(bare.resident), "MB");
    printFigure("start_bare_memory", median(bare.proportional), "MB");
    printFigure("start_client_memory_more", median(client.proportional) - median(bare.proportional), "MB",
                18);
    return 0;
}
