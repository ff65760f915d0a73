#include "app/program.h"
#include "core/attribute_text.h"
#include "core/lists_text.h"
#include "core/options_text.h"
#include "link/xml_codec.h"
#include "platform/rich_edit.h"
#include "privmsg/private_windows.h"
#include "room/colChatters.h"
#include "support/fake_addresses.h"
#include "support/room_fixture.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <arpa/inet.h>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// What people in the same room send, and a messenger hands on as it came.
struct Strangers : RoomFixture
{
    void SetUp() override
    {
        RoomFixture::SetUp();
        enter();
        receive(u"<KCC cid=\"12\" r=\"0\"><E id=\"u2\" nm=\"Bob\" p=\"1\"/></KCC>"_s);
        window.clearBoard();
    }

    static QString said(const QString &items, const QString &more = {})
    {
        return u"<RCMSG cid=\"12\" id=\"u2\"" + more + u">" + EscapeXML(items) + u"</RCMSG>";
    }

    /// The first lines that a message brings to the board.
    QStringList linesOf(const QString &payload, qsizetype count = 1)
    {
        window.clearBoard();
        receive(payload);
        return paragraphs(0).sliced(0, std::min(count, board->document().paragraphCount()));
    }
};

/// Each is as much as goes into so many characters.
TEST_F(Strangers, AMessageFullOfAnythingIsSoonOver)
{
    constexpr qsizetype pieces = 200; // into which a very long line is cut
    constexpr qsizetype size = 300'000;
    const auto full = [](const QString &of) { return of.repeated(size / of.size()); };
    const QString room = u"<KCC cid=\"12\" r=\"0\">%1</KCC>"_s;
    QString come;
    QString go;
    for (int at = 0; go.size() < size; ++at) {
        come += u"<E id=\"m%1\"/>"_s.arg(at);
        go += u"<E id=\"m%1\" p=\"0\"/>"_s.arg(at);
    }
    const std::tuple<const char *, QString, qsizetype, qsizetype> cases[] = {
        // what it is full of, the message, how many lines it brings, how many characters at most
        {"elements", full(u"<b/>"_s), 0, 0},
        {"items", said(full(u"<SMSG>\1"_s)), 1000, 10'000},
        {"names", said(u"<EMOT>"_s + full(u"%U%"_s) + u"\2 user=" + QString(200, u'\u20AC') + u"\3\1"), 1,
         size + 20'000},
        {"lines", said(u"<SMSG>"_s + full(u"\n"_s) + u"\1"), 1, 6 * size},
        {"friends", full(u"<USERONLINE nick=\"a\"/>"_s), size / 22, 5 * size},
        {"joins", room.arg(come), come.count(u'/'), 5 * size},
        {"leaves", room.arg(go), go.count(u'/'), 5 * size},
    };
    for (const auto &[of, message, lines, most] : cases) {
        QElapsedTimer elapsed;
        elapsed.start();
        receive(message);
        EXPECT_TRUE(shown(u"PYLOX: Your friend 'mark %1' has just come online!"_s.arg(marks)) == 1) << of;
        EXPECT_GE(board->document().paragraphCount() - 1, lines) << of;
        EXPECT_LE(board->document().paragraphCount() - 1, lines + pieces) << of;
        EXPECT_LE(board->document().length(), most + 100) << of;
        RecordProperty(std::string(of) + "_ms", static_cast<int>(elapsed.elapsed()));
        window.clearBoard();
    }
    EXPECT_TRUE(eventually([this] { return rows().join(u' ') == u"Owner Online Bob Pending Ann"; }));
}

/// If each who goes moved all behind, this would not end.
TEST(People, HundredsOfThousandsComeAndGoInOneMessage)
{
    constexpr int count = 500'000;
    colChatters people;
    for (int at = 0; at < count; ++at) {
        (void)people.addUnknown(QString::number(at));
    }
    for (int at = 0; at < count - 1; ++at) {
        ASSERT_TRUE(people.Remove(colChatters::keyOf(QString::number(at))));
    }
    (void)people.addUnknown(u"late"_s);
    EXPECT_TRUE(people.Count() == 2 && people.Item(1)->ID == QString::number(count - 1));
    EXPECT_TRUE(people.Remove(1) && people.Item(1)->ID == u"late" && people.Item(2) == nullptr);
}

TEST(People, AListsFileOfAnyLengthIsSoonRead)
{
    constexpr int count = 500'000;
    QString file;
    for (int at = 0; at < count; ++at) {
        file += u"I-%1 Name\r\n"_s.arg(at, -11);
    }
    UserLists lists;
    AddToList(lists, u'I', u"7"_s, u"Seven"_s);
    EXPECT_TRUE(readLists(QString(file + file), lists).isEmpty());
    EXPECT_EQ(lists.IgnoreList.size(), 1 + count) << "each once";
}

/// Private conversations beside the room.
struct PrivateStrangers : Strangers
{
    void SetUp() override
    {
        Strangers::SetUp();
        QObject::connect(&window, &frmMain::privateMessageReceived, &all,
                         &PrivateWindows::ReceivePrivateMessage);
    }

    /// The one private window.
    static QWidget *privateWindow()
    {
        const QWidgetList all = QApplication::topLevelWidgets();
        const auto shown = std::ranges::find_if(all, [](const QWidget *widget) {
            return widget->objectName() == u"frmPrivMsg" && widget->isVisible();
        });
        return shown == all.end() ? nullptr : *shown;
    }

    PrivateWindows all{{skin, windows},
                       {state, options, link, settings, window.messages(), window.rtfText(), clock}};
};

TEST_F(PrivateStrangers, AMessageFullOfMessagesIsSoonOver)
{
    receive(u"<RCMSG cid=\"12\" id=\"u2\" tid=\"u1\">"_s + QString(1'000'000, itemEnd) + u"</RCMSG>");
    ASSERT_NE(privateWindow(), nullptr);
    const auto *conversation = privateWindow()->findChild<RichEdit *>(u"rtfConv"_s);
    EXPECT_EQ(conversation->document().plainText().count(u"Bob\t"_s), 1000);
}

/// Counts how often private windows are put above others.
struct Raises final : QObject
{
    Raises() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        count += watched->objectName() == u"frmPrivMsg" && event->type() == QEvent::ZOrderChange ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(PrivateStrangers, RaiseNothingOverAnotherProgram)
{
    const QString psst = said(u"<SMSG>psst\1"_s, u" tid=\"u1\""_s);
    receive(psst);
    const Raises raises;
    QApplication::setActiveWindow(nullptr); // the user is elsewhere
    receive(psst);
    EXPECT_EQ(raises.count, 0);
    QApplication::setActiveWindow(&window);
    receive(psst);
    EXPECT_GT(raises.count, 0);
    EXPECT_EQ(QApplication::activeWindow(), &window);
    EXPECT_NE(privateWindow(), nullptr);
}

TEST_F(Strangers, FiveThousandCodesInALineAreFiveThousandPictures)
{
    const QString line = linesOf(said(u"<SMSG>"_s + u":) "_s.repeated(5000) + u"\1")).first();
    EXPECT_TRUE(line.startsWith(u"Bob: "_s));
    EXPECT_EQ(line.count(u'\uFFFC'), 5000);
    EXPECT_EQ(board->toPlainText().count(u":)"_s), 5000) << "copied they are codes again";
    board->repaint();
}

TEST_F(Strangers, ControlCharactersAndEscapesAreNeverSeen)
{
    EXPECT_EQ(linesOf(said(u"<SMSG>a\x1b[2J\a\b\u0002b\u007f\u009b31m c{\\rtf1}\\par\1"_s)),
              QStringList{u"Bob: a[2Jb31m c{\\rtf1}\\par"_s});
}

TEST_F(Strangers, BytesThatAreNoTextAreReplacedAndTheLineStays)
{
    const QByteArray start = "<MSG><V mk=\"MSG\"/><RCMSG cid=\"12\" id=\"u2\">\\<SMSG\\>";
    messenger.sendRaw(start + "a\xFFz \xC3( \xF4\x90\x80\x80 \xED\xA0\x80 cut \xE4\xBD\1</RCMSG></MSG>" +
                      '\0');
    const QStringList lines = linesOf({}, 2);
    EXPECT_TRUE(lines.first().startsWith(u"Bob: a\uFFFDz \uFFFD( "_s) &&
                lines.first().contains(u" cut \uFFFD"_s))
        << lines.first().toStdString();
    const QString western = CodePage().decode("a\x80\x81\x8D\x8F\x90\x9Dz");
    EXPECT_TRUE(western.size() == 8 && western.startsWith(u"a\u20AC") && western.endsWith(u'z'))
        << western.toStdString();
}

TEST_F(Strangers, NothingInvisibleTurnsANameOrAnAddressRound)
{
    EXPECT_EQ(
        linesOf(said(
            u"<EMOT>\u202E \u2067%U% waves\u2066 at %O%\2 user=A\u202Enn\3 tuser=\u200BBo\u2069b\3\1"_s)),
        QStringList{u" Ann waves at Bob "_s});

    const std::pair<QString, QString> addresses[] = {
        {u"http://a.b/%E2%80%AEgpj.exe"_s, u"http://a.b/%E2%80%AEgpj.exe"_s},
        {u"http://a.b%E2%80%8B.c/"_s, u"http://a.b.c/"_s},
        {u"http://\u0430\u0440\u0440\u04CF\u0435.com/"_s, u"http://xn--80ak6aa92e.com/"_s},
        {u"http://bank.example@evil.example/"_s, u"http://bank.example@evil.example/"_s},
    };
    for (const auto &[written, told] : addresses) {
        (void)linesOf(said(u"<SMSG>"_s + written + u"\1"));
        const QPoint onLink = board->caretRectAt({0, 15}).center();
        QHelpEvent hover(QEvent::ToolTip, onLink, board->viewport()->mapToGlobal(onLink));
        QToolTip::hideText();
        QCoreApplication::sendEvent(board->viewport(), &hover);
        EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), told);
    }
}

TEST(FileNames, ASkinsNameLeadsNowhereElse)
{
    const QString home = u"/home/ann/"_s;
    for (const QString &skin : {u"/skins/../../etc/passwd"_s, u"..\\..\\up.skn"_s, u"/x/...skn"_s,
                                u"C:\\a/b.c.skn"_s, u"/x/\n[Chat].skn"_s, u"/"_s, u""_s}) {
        clsMyApp app(home);
        app.Skin = skin;
        const QString file = optionsFile(app.Path(), app.SkinName());
        EXPECT_EQ(QDir::cleanPath(QFileInfo(file).path()) + u'/', home) << skin.toStdString();
        EXPECT_TRUE(file.endsWith(u" ChatOpt.dat")) << skin.toStdString();
    }
}

/// The error of a connection to that address of this machine; 0 when it is taken.
int errorOfConnecting(in_addr_t host, quint16 port)
{
    const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(host);
    const int result = connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address);
    const int error = result == 0 ? 0 : errno;
    close(descriptor);
    return error;
}

TEST(Loopback, OneAddressIsListenedTo)
{
    TcpListener listener;
    ASSERT_TRUE(listener.listen(0));
    EXPECT_EQ(errorOfConnecting(INADDR_LOOPBACK, listener.port()), 0);
    EXPECT_EQ(errorOfConnecting(INADDR_LOOPBACK + 1, listener.port()), ECONNREFUSED);
}

TEST(Loopback, AnotherProgramOnThePortLearnsNothing)
{
    const QByteArray answers[] = {"HTTP/1.1 400 Bad Request\r\n\r\n<html></html>",
                                  QByteArray(6'000'000, '<'),
                                  QByteArray(1000, '\0'),
                                  "<MSG><V mk=\"C1\"/><SKIN value=\"\"/></MSG>" + QByteArray(1, '\0'),
                                  {}};
    for (const QByteArray &answer : answers) {
        const QTemporaryDir folder;
        FakePrompts prompts;
        FakeClock clock;
        FakeAddresses addresses;
        ScriptedMessenger other;
        other.answersStartUp = false;
        other.answerBy([&](const QString &) {
            other.sendRaw(answer);
            QTimer::singleShot(100, &other, [&] { clock.advance(31'000); });
            return QStringList();
        });
        Program program(folder.path(), CommandLine({u"-port%1~"_s.arg(other.port())}), prompts, clock,
                        addresses);
        EXPECT_FALSE(program.Main());
        EXPECT_EQ(other.requests, QStringList{u"<GETSKIN/>"_s});
        EXPECT_EQ(prompts.boxes,
                  QStringList{u"Stop: No skin found: Error loading skin for Pylox Chat Client."_s});
    }
}

} // namespace
