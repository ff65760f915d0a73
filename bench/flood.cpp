// A flood of room messages, from the companion over TCP to the last line on the board of a whole client with
// its window: wall time, CPU, memory, and how they grow with the number of messages.

#include "app/program.h"
#include "bench/figures.h"
#include "bench/no_prompts.h"
#include "platform/addresses.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <malloc.h>

namespace {

constexpr int few = 5'000;
constexpr int many = 50'000;
constexpr int patience = 60'000; // milliseconds
constexpr double microseconds = 1e6;

double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

template <typename Condition>
bool waitFor(const Condition &condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < patience) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    }
    return condition();
}

struct Cost
{
    double wall = 0;  ///< seconds from the first command to the last line
    double cpu = 0;   ///< seconds of this process
    double bytes = 0; ///< that the heap has grown by
};

/// A companion with guests in its lobby, and a client in there.
class Flood
{
public:
    Flood()
        : m_program(m_home.path(), CommandLine({QStringLiteral("-cid1"), QStringLiteral("-cnmLobby~")}),
                    m_prompts, m_clock, m_addresses)
    {
        m_companion.start(
            QCoreApplication::applicationDirPath() + u"/pylox-messenger",
            {QStringLiteral("--home"), m_home.path(), QStringLiteral("--guests"), QStringLiteral("1")});
        require(waitFor([this] { return m_companion.canReadLine(); }), "the companion does not start");
        require(m_program.Main(), "the client does not start");
        require(waitFor([this] { return m_program.state().InRoom; }), "the client is not let in");
        m_board = m_program.window()->findChild<RichEdit *>(QStringLiteral("rtfMsgs"));
        receive(500); // fonts and caches
    }

    ~Flood()
    {
        m_companion.kill();
        m_companion.waitForFinished();
    }
    Flood(const Flood &) = delete;
    Flood &operator=(const Flood &) = delete;

    Cost receive(int messages)
    {
        const qsizetype before = m_board->document().paragraphCount();
        const double bytes = heapBytes();
        const double cpu = cpuSeconds(); // with what it takes to tell the companion
        QElapsedTimer timer;
        timer.start();
        for (int at = 0; at < messages; ++at) {
            m_companion.write("say 1 this is line number " + QByteArray::number(at) +
                              " of a long evening and so on\n");
        }
        require(waitFor([&] { return m_board->document().paragraphCount() >= before + messages; }),
                "not every message arrives");
        return {static_cast<double>(timer.elapsed()) / 1000, cpuSeconds() - cpu, heapBytes() - bytes};
    }

private:
    QTemporaryDir m_home;
    NoPrompts m_prompts;
    SystemClock m_clock;
    DesktopAddresses m_addresses{QString()};
    QProcess m_companion;
    Program m_program;
    RichEdit *m_board = nullptr;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Flood flood;
    const Cost small = flood.receive(few);
    const Cost large = flood.receive(many);
    printFigure("flood_wall_50000", large.wall, "s");
    printFigure("flood_cpu_per_message", large.cpu / many * microseconds, "us", 20);
    printFigure("flood_memory_per_message", large.bytes / many, "bytes", 400);
    printFigure("flood_cpu_growth_5000_to_50000", (large.cpu / many) / (small.cpu / few), "times");
    return 0;
}
