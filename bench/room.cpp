// How long the event loop of a whole client in its skin is busy at a stretch, in the worst moments of a room:
// a burst of messages while the user types and scrolls, a thousand people who come, ten thousand rooms in the
// directory, fifty strangers who whisper. And two works that are to be short: the member list, and a line
// that is nothing but emoticons.

#include "app/program.h"
#include "bench/figures.h"
#include "bench/no_prompts.h"
#include "platform/addresses.h"
#include "platform/image_list.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"
#include "room/member_list.h"
#include "support/eventually.h"
#include "support/scripted_messenger.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTreeView>
#include <QTreeWidget>

#include <algorithm>

namespace {

constexpr int runs = 5;
constexpr int patience = 60'000; // milliseconds
constexpr double limitOfATurn = 100;

double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The longest time, in milliseconds, between two ticks of a timer until it is done, with something done at
/// each tick. A timer ticks inside waits as well.
template <typename Done, typename Also>
double longestTurn(const Done &done, const Also &also)
{
    double longest = 0;
    QElapsedTimer since;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        also();
        longest = std::max(longest, milliseconds(since));
        since.restart();
    });
    timer.start(1);
    since.start();
    require(eventually(done, patience), "something did not arrive");
    return std::max(longest, milliseconds(since));
}

template <typename Done>
double longestTurn(const Done &done)
{
    return longestTurn(done, [] {});
}

QString element(const QString &payload)
{
    return u"<MSG><V mk=\"{key}\"/>" + payload + u"</MSG>";
}

QStringList numbered(int count, const QString &pattern)
{
    QStringList texts;
    for (int at = 1; at <= count; ++at) {
        texts += pattern.arg(at);
    }
    return texts;
}

/// A client in room 12, and the messenger that it talks to.
class Room
{
public:
    explicit Room(const QString &rooms)
        : m_program(m_home.path(), commandLine(), m_prompts, m_clock, m_addresses)
    {
        m_messenger.answersStartUp = false;
        const QString contacts =
            numbered(1000, QStringLiteral("<U id=\"m%1\" nick=\"Member %1\"/>")).join(QString());
        m_messenger.answerBy([rooms, contacts](const QString &request) {
            const std::pair<QString, QString> answers[] = {
                {QStringLiteral("<GETSKIN"), QString(u"<SKIN value=\"" + lightSkin() + u"\"/>")},
                {QStringLiteral("<GETMYDETAILS"),
                 QStringLiteral("<MYDETAILS id=\"u1\" nick=\"Ann\" s=\"11\" m=\"7\"/>")},
                {QStringLiteral("<REQUESTJOINCHANNEL"), QStringLiteral("<AJC r=\"0\"/>")},
                {QStringLiteral("<GETCHANNELCONTENTS"),
                 QStringLiteral("<KCC r=\"0\" t=\"1\" id=\"u9\"><E id=\"u9\" nm=\"Olga\" p=\"1\"/></KCC>")},
                {QStringLiteral("<GETPYLOXUSERS"), QString(u"<PYLOXUSERS>" + contacts + u"</PYLOXUSERS>")},
                {QStringLiteral("<GETCATEGORIES"), QStringLiteral("<CTL><C g=\"1\" nm=\"Lounge\"/></CTL>")},
                {QStringLiteral("<GETCHANNELS"), rooms},
            };
            for (const auto &[start, payload] : answers) {
                if (request.startsWith(start)) {
                    return QStringList{element(payload)};
                }
            }
            return QStringList{element(QStringLiteral("<KLC r=\"0\"/>"))};
        });
        QObject::connect(&m_joinPoll, &QTimer::timeout, [this] {
            if (m_messenger.requests.filter(QStringLiteral("<REQUESTJOINCHANNEL")).size() == 1) {
                m_messenger.send(QStringLiteral("<AJC cid=\"12\" r=\"0\" tid=\"u9\"/>"));
                m_joinPoll.stop();
            }
        });
        m_joinPoll.start(5);
        require(m_program.Main(), "the client does not start");
        require(eventually([this] { return m_program.state().InRoom; }), "the client is not let in");
        require(eventually([this] { return list().model()->rowCount() == 2; }), "nobody is in the room");
    }

    [[nodiscard]] frmMain &window() { return *m_program.window(); }
    [[nodiscard]] RichEdit &board() { return *window().findChild<RichEdit *>(QStringLiteral("rtfMsgs")); }
    [[nodiscard]] QTreeWidget &list()
    {
        return *window().findChild<QTreeWidget *>(QStringLiteral("grdUserList"));
    }
    [[nodiscard]] const SharedState &state() const { return m_program.state(); }

    void send(const QStringList &payloads)
    {
        QByteArray bytes;
        for (const QString &payload : payloads) {
            bytes += QString(u"<MSG><V mk=\"MSG\"/>" + payload + u"</MSG>").toLatin1() + '\0';
        }
        m_messenger.sendRaw(bytes);
    }

private:
    static QString lightSkin()
    {
        return QDir::cleanPath(QApplication::applicationDirPath() +
                               QStringLiteral("/../share/pylox-chat/skins/Light.skn"))
            .replace(u'/', QStringLiteral("\\/"));
    }

    [[nodiscard]] CommandLine commandLine() const
    {
        return CommandLine({u"-port" + QString::number(m_messenger.port()) + u'~', QStringLiteral("-cid12"),
                            QStringLiteral("-cnmLounge~")});
    }

    QTemporaryDir m_home;
    NoPrompts m_prompts;
    SystemClock m_clock;
    DesktopAddresses m_addresses{QString()};
    ScriptedMessenger m_messenger;
    QTimer m_joinPoll;
    Program m_program;
};

void benchBurst(Room &room)
{
    constexpr int count = 50'000;
    RichEdit &board = room.board();
    auto *box = room.window().findChild<QLineEdit *>(QStringLiteral("rtfText"));
    const qsizetype before = board.document().paragraphCount();
    qsizetype typed = 0;
    room.send(numbered(
        count,
        QStringLiteral("<RCMSG cid=\"12\" id=\"u9\">\\<SMSG\\>line %1 of a long evening\u0001</RCMSG>")));
    const double longest =
        longestTurn([&] { return board.document().paragraphCount() >= before + count; },
                    [&] {
                        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("a"));
                        QCoreApplication::sendEvent(box, &key);
                        QScrollBar *bar = board.verticalScrollBar();
                        bar->setValue(++typed % 2 == 0 ? bar->maximum() : bar->maximum() / 2);
                    });
    require(box->text().size() == typed, "typed text was lost");
    box->clear();
    printFigure("room_turn_50000_messages", longest, "ms", limitOfATurn);
}

void benchJoins(Room &room)
{
    room.send(numbered(
        1000, QStringLiteral("<KCC cid=\"12\" r=\"0\"><E id=\"m%1\" nm=\"Member %1\" p=\"1\"/></KCC>")));
    const auto shown = [&] {
        return room.list()
            .findItems(QStringLiteral("Member 1000"), Qt::MatchRecursive | Qt::MatchStartsWith)
            .size();
    };
    printFigure("room_turn_1000_joins", longestTurn([&] { return shown() == 1; }), "ms", limitOfATurn);
}

void benchMemberList(Room &room, int members, double limit)
{
    colChatters chatters;
    for (int at = 0; at < members; ++at) {
        const QString number = QString::number(at);
        chatters.Add(u'm' + number, u"Member " + number, 11, 7, false, {}, {}, false, {});
    }
    const ImageList pictures;
    std::vector<double> rebuilds;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        drawMemberList(room.list(), chatters, room.state(), {pictures, {}, {}, {}, {}});
        room.list().viewport()->repaint();
        rebuilds.push_back(milliseconds(timer));
    }
    printFigure("room_member_list_" + std::to_string(members), median(rebuilds), "ms", limit);
    room.window().DrawUserList();
}

void benchEmoticons(Room &room)
{
    const QString line = QStringLiteral(":) ").repeated(5000);
    std::vector<double> lines;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        room.board().verticalScrollBar()->setValue(room.board().verticalScrollBar()->maximum());
        QCoreApplication::processEvents();
        timer.start();
        room.window().AddMessage(line, MessageKind::Member, QStringLiteral("Olga"));
        room.board().viewport()->repaint();
        lines.push_back(milliseconds(timer));
        require(room.board().isAtEnd(), "the line of emoticons is not in view");
    }
    printFigure("room_line_of_5000_emoticons", median(lines), "ms", 50);
}

qsizetype privateWindows()
{
    return std::ranges::count_if(QApplication::topLevelWidgets(), [](const QWidget *window) {
        return window->isVisible() && window->objectName() == u"frmPrivMsg";
    });
}

void benchStrangers(Room &room)
{
    room.send(
        numbered(50, QStringLiteral("<RCMSG cid=\"12\" id=\"m%1\" tid=\"u1\">\\<SMSG\\>psst\u0001</RCMSG>")));
    printFigure("room_turn_50_private_windows", longestTurn([] { return privateWindows() == 50; }), "ms",
                limitOfATurn);
}

void benchDirectory(Room &room, int rooms)
{
    Q_EMIT room.window().directoryRequested();
    QWidget *directory = QApplication::activeModalWidget();
    require(directory != nullptr, "the directory does not open");
    auto *tree = directory->findChild<QTreeView *>(QStringLiteral("tvCats"));
    require(eventually([&] { return tree->model()->rowCount() == 1; }), "there are no categories");
    const QModelIndex category = tree->model()->index(0, 0);
    QTimer::singleShot(0, tree, [=] { tree->setCurrentIndex(category); });
    const double longest = longestTurn([&] { return tree->model()->rowCount(category) == rooms; });
    directory->close();
    printFigure("directory_turn_10000_rooms", longest, "ms", limitOfATurn);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    constexpr int rooms = 10'000;
    Room room(
        u"<CHL>" +
        numbered(rooms, QStringLiteral("<R g=\"1\" cid=\"%1\" cnm=\"Room %1\" mc=\"3\"/>")).join(QString()) +
        u"</CHL>");
    benchBurst(room);
    benchJoins(room);
    benchMemberList(room, 1000, 5);
    benchMemberList(room, 10'000, limitOfATurn);
    benchEmoticons(room);
    benchStrangers(room);
    benchDirectory(room, rooms);
    return 0;
}
