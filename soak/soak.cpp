#include "soak/soak.h"

#include "app/program.h"
#include "link/frmComms.h"
#include "platform/rich_edit.h"
#include "privmsg/frmPrivMsg.h"
#include "room/frmMain.h"
#include "soak/report.h"

#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QPixmapCache>
#include <QPlainTextEdit>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // the compiler brings no header for it
#endif

namespace {

/// The same seeds took 97 ms with sanitizers and 12 ms without them; less of that factor is allowed than was
/// measured.
#if defined(__SANITIZE_ADDRESS__)
constexpr double sanitizerFactor = 3;
#else
constexpr double sanitizerFactor = 1;
#endif
constexpr double longestTurn = 100;     // milliseconds of CPU
constexpr int warmUp = 5;               // lives until the toolkit's caches are filled …
constexpr double mostKiB = 1024;        // … but for so much …
constexpr double mostKiBPerLife = 24;   // … what it never forgets: names of cached pictures
constexpr int arrival = 3'000;          // milliseconds that the user waits to be let in
constexpr int giveUp = 31'000;          // milliseconds a request waits: 30 whole seconds are over
constexpr int forget = 41'000;          // milliseconds it is remembered
constexpr int tolerance = 500;          // milliseconds, for timers and a machine that is shared
constexpr int patience = 2'000;         // milliseconds, where nothing but a loaded machine takes time
constexpr int longestSettling = 35'000; // milliseconds: a reply that never comes, and what waited behind
constexpr int longestExit = 4'000;      // milliseconds: a tick, three seconds for an answer, a tick

double heapKiB()
{
#if defined(__SANITIZE_ADDRESS__)
    return static_cast<double>(__sanitizer_get_current_allocated_bytes()) / 1024;
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024;
#endif
}

double residentKiB()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() * 4 : 0;
}

} // namespace

Soak::Soak(TurnWatch &watch, Report &report, ChaosProxy &proxy, quint16 proxyPort, QProcess &companion,
           const QString &home, quint32 seed)
    : m_watch(watch),
      m_report(report),
      m_proxy(proxy),
      m_proxyPort(proxyPort),
      m_companion(companion),
      m_home(home),
      m_storm(seed, weights()),
      m_prompts(seed, home, report)
{
    connect(&m_ending, &QTimer::timeout, this, &Soak::awaitEnd);
}

Soak::~Soak() = default;

double Soak::turnLimit()
{
    return longestTurn * sanitizerFactor;
}

void Soak::run(int seconds, int lives)
{
    QElapsedTimer elapsed;
    elapsed.start();
    for (; elapsed.elapsed() < seconds * 1000LL && m_figures.lives < lives; ++m_figures.lives) {
        live(m_storm.nextLife());
    }
    m_figures.seconds = static_cast<double>(elapsed.elapsed()) / 1000;
}

// A life.

QStringList Soak::arguments() const
{
    QStringList words{u"-port" + QString::number(m_proxyPort) + u'~'};
    if (m_now.life.number % 8 == 1) {
        words += QStringLiteral("-showcat");
    } else if (m_now.life.number % 8 != 0) {
        words += {QStringLiteral("-cid1"), QStringLiteral("-cnmLobby~")};
    }
    return words;
}

void Soak::live(const Life &life)
{
    m_report.step(QStringLiteral("life"), QString::number(m_figures.lives + 1));
    m_now.life = life;
    m_now.since.start();
    if (const int start = life.number >> 8; start % 16 == 0) {
        m_proxy.arm({start % 32 == 0 ? Fault::Kind::Broken : Fault::Kind::Late, 300});
    }
    m_program = std::make_unique<Program>(m_home, CommandLine(arguments()), m_prompts, m_clock, m_addresses);
    connect(m_program.get(), &Program::ended, this, [this] {
        m_now.hasEnded = true;
        m_now.sinceEnd.start();
        m_figures.longestExit =
            std::max(m_figures.longestExit, static_cast<double>(m_now.exit.elapsed()) / 1000);
    });
    if (m_program->Main()) {
        m_now.board = m_program->window()->findChild<RichEdit *>(QStringLiteral("rtfMsgs"));
        m_now.box = m_program->window()->findChild<QLineEdit *>(QStringLiteral("rtfText"));
        m_now.ledger = std::make_shared<Ledger>(*m_now.board, QStringLiteral("the room"), m_report);
        QTimer::singleShot(0, this, &Soak::next);
        while (!m_now.hasEnded) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        m_report.require(m_now.sinceEnd.elapsed() < patience,
                         QStringLiteral("the program has ended and something still waits"));
        m_figures.shown += m_now.ledger->linesHeard();
    } else {
        ++m_figures.unstarted;
    }
    m_ending.stop();
    m_proxy.calm();
    m_program.reset();
    m_now = {};
    (void)m_proxy.takeDelivered();
    measureMemory();
}

/// Comes inside whatever waits at the moment, because the next step is arranged before one is taken.
void Soak::next()
{
    look();
    const bool isArriving =
        m_now.at == 0 && m_now.life.number % 8 > 1 && (!m_program->state().InRoom || isWaiting());
    if (isArriving && m_now.since.elapsed() < arrival) {
        QTimer::singleShot(20, this, &Soak::next);
        return;
    }
    if (m_now.settling.isValid() && !isSettled()) {
        m_report.require(
            m_now.settling.elapsed() < longestSettling + tolerance,
            QStringLiteral("it does not settle; lines missing: %1").arg(m_now.ledger->missing(m_stay)));
        QTimer::singleShot(20, this, &Soak::next);
        return;
    }
    if (m_now.at == m_now.life.steps.size()) {
        const bool inTheMidst = m_now.life.number % 4 == 0; // of what goes on
        if (inTheMidst || m_now.settling.isValid()) {
            wayOut();
            return;
        }
        m_now.settling.start();
        QTimer::singleShot(0, this, &Soak::next);
        return;
    }
    m_now.settling.invalidate();
    const Step step = m_now.life.steps[m_now.at++];
    QTimer::singleShot(step.pause, this, &Soak::next);
    take(step);
}

void Soak::wayOut()
{
    m_now.isEnding = true;
    m_now.exit.start();
    switch (m_now.life.number % 3) {
    case 0:
        m_program->window()->close();
        break;
    case 1:
        press(QStringLiteral("sysClose"));
        break;
    default:
        press(QStringLiteral("smdExit"));
    }
    m_ending.start(50);
}

void Soak::awaitEnd()
{
    if (m_prompts.takeStaying()) {
        m_now.exit.start();
        press(QStringLiteral("smdExit"));
    }
    m_report.require(m_now.exit.elapsed() < longestExit + patience,
                     QStringLiteral("the program does not end"));
}

// What is checked.

/// Acknowledged words are shown once, and are gone from the box; others stay in the box and are not shown.
/// Where it cannot be known whether the acknowledgement has arrived, they are in one of the two places.
void Soak::sendFrom(QWidget &box, const std::shared_ptr<Ledger> &ledger)
{
    const QPointer<QWidget> here(&box);
    const QString words = hands::textOf(box);
    const int room = roomId();
    const int stay = m_stay;
    if (words.isEmpty() || m_now.sending.contains(&box)) {
        hands::key(box, Qt::Key_Return, QStringLiteral("\r")); // which is refused
        return;
    }
    QElapsedTimer elapsed;
    elapsed.start();
    ++m_figures.sent;
    if (&box == m_now.box) {
        m_now.sent = words;
        m_now.sentRoom = room;
    }
    m_now.sending.insert(&box);
    hands::key(box, Qt::Key_Return, QStringLiteral("\r"));
    m_now.sending.remove(&box);
    look();
    if (here == nullptr || m_now.isEnding || !here->isVisible()) {
        return;
    }
    const int shown = ledger->shown(words);
    const bool kept = hands::textOf(box).startsWith(words);
    const bool sameRoom = roomId() == room && m_stay == stay;
    const QString what = u"the line \"" % words % u"\", shown " % QString::number(shown) % u" times, " %
                         (kept ? u"kept" : u"not kept") % u" in the box, ";
    if (sameRoom && !m_now.isBroken && elapsed.elapsed() < giveUp - 2 * tolerance) {
        const bool acknowledged = m_now.acknowledged.contains(words);
        m_figures.acknowledged += acknowledged ? 1 : 0;
        m_report.require(shown == (acknowledged ? 1 : 0) && acknowledged != kept,
                         what + (acknowledged ? u"was acknowledged" : u"was not acknowledged"));
    } else {
        m_report.require(shown <= 1 && (shown == 1 || kept || !sameRoom),
                         what + u"may have been acknowledged");
    }
}

/// The boxes are read first: what they show has been noted by the proxy before.
void Soak::look()
{
    const TurnWatch::Uncounted uncounted(m_watch);
    m_report.require(m_watch.longest().cpu < turnLimit(),
                     QStringLiteral("a turn of the event loop took %1 ms, most of them a %2")
                         .arg(m_watch.longest().cpu)
                         .arg(QString::fromLatin1(m_watch.longest().busiest)));
    if (m_now.board == nullptr || m_now.box == nullptr) {
        return;
    }
    lookAtPrivateWindows();
    m_now.ledger->look();
    for (const Conversation &conversation : m_now.conversations) {
        conversation.ledger->look();
    }
    sort(m_proxy.takeDelivered());
    m_now.ledger->judge();
    for (const Conversation &conversation : m_now.conversations) {
        conversation.ledger->judge();
    }
    checkBox();
    checkWaits();
}

void Soak::lookAtPrivateWindows()
{
    std::erase_if(m_now.conversations, [this](const Conversation &conversation) {
        const bool isOver = conversation.window == nullptr || !conversation.window->isVisible();
        m_figures.shown += isOver ? conversation.ledger->linesHeard() : 0;
        return isOver;
    });
    for (QWidget *window : hands::windows(u"frmPrivMsg")) {
        if (conversationIn(window) != nullptr) {
            continue;
        }
        const QString peer = static_cast<const frmPrivMsg *>(window)->PeerID();
        const QString box = hands::textOf(*hands::control<QPlainTextEdit>(*window, QStringLiteral("txtMsg")));
        m_report.require(box == m_now.drafts.value(peer, box),
                         u"what was written to " % peer % u" is not in the box again: " % box);
        m_now.drafts.remove(peer);
        const auto *shown = hands::control<RichEdit>(*window, QStringLiteral("rtfConv"));
        m_now.conversations.push_back(
            {window, peer, std::make_shared<Ledger>(*shown, u"the window of " + peer, m_report)});
    }
}

const Soak::Conversation *Soak::conversationIn(const QWidget *window) const
{
    const auto found = std::ranges::find_if(
        m_now.conversations, [&](const Conversation &conversation) { return conversation.window == window; });
    return found == m_now.conversations.end() ? nullptr : &*found;
}

void Soak::sort(const QList<Delivered> &delivered)
{
    for (const Delivered &one : delivered) {
        m_stay = one.stay;
        switch (one.kind) {
        case Delivered::Kind::Acknowledgement:
            m_now.acknowledged.insert(one.words);
            break;
        case Delivered::Kind::RoomMessage:
            ++m_figures.told;
            m_now.ledger->expect(one.serial, one.stay);
            break;
        case Delivered::Kind::PrivateMessage:
            ++m_figures.told;
            for (const Conversation &conversation : m_now.conversations) {
                if (conversation.peer == one.senderId) {
                    conversation.ledger->expect(one.serial, 0);
                }
            }
            break;
        }
    }
}

/// What was acknowledged goes from the front of the box; where the room was left meanwhile it is not shown.
void Soak::checkBox()
{
    const QString text = m_now.box->text();
    const bool isThere = m_now.ledger->shown(m_now.sent) == 1 || roomId() != m_now.sentRoom;
    if (m_now.typed == m_now.sent % text && isThere) {
        m_now.typed = text;
    }
    m_report.require(text == m_now.typed || m_now.isEnding,
                     u"in the box stands \"" % text % u"\", typed was \"" % m_now.typed % u'"');
}

void Soak::checkWaits()
{
    const qint64 now = m_clock.steadyMilliseconds();
    const colCommMsg &records = m_program->link()->queue().records();
    for (qsizetype at = 1; at <= records.Count(); ++at) {
        const clsCommMsg &record = *records.Item(at);
        const qint64 age = now - record.DateTime;
        const bool waits = !record.Processed && !record.Terminate;
        m_report.require(age < (waits ? giveUp : forget) + tolerance, u"a request is still there after " %
                                                                          QString::number(age) % u" ms: " %
                                                                          record.MessageToSend);
        if (waits) {
            m_figures.longestWait = std::max(m_figures.longestWait, static_cast<double>(age) / 1000);
        }
    }
}

bool Soak::isWaiting() const
{
    const colCommMsg &records = m_program->link()->queue().records();
    for (qsizetype at = 1; at <= records.Count(); ++at) {
        if (!records.Item(at)->Processed && !records.Item(at)->Terminate) {
            return true;
        }
    }
    return false;
}

bool Soak::isSettled() const
{
    const bool isComplete = !m_now.isBroken && m_now.ledger->missing(m_stay) == 0;
    return !isWaiting() && (isComplete || !m_program->state().InRoom);
}

/// What the toolkit keeps of the life on purpose goes first: pictures, and what was copied.
void Soak::measureMemory()
{
    QPixmapCache::clear();
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->clear(QClipboard::Selection);
    for (int turn = 0; turn < 20; ++turn) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    m_figures.heap.push_back(heapKiB());
    const std::vector<double> &heap = m_figures.heap;
    if (std::ssize(heap) > warmUp + 2) { // without sanitizers now and then one is far too high
        const double now = *std::min_element(heap.end() - 3, heap.end());
        const double more = now - *std::min_element(heap.begin(), heap.begin() + warmUp);
        m_report.require(more < mostKiB + mostKiBPerLife * static_cast<double>(std::ssize(heap) - warmUp),
                         QStringLiteral("memory grows: %1 KiB more than at first").arg(more));
    }
    m_figures.resident.push_back(residentKiB());
}
