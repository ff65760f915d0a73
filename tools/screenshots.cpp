// A picture of every window, as the documents and the help show it: an evening in the lobby is played against
// the companion, each window is opened as the user opens it, and painted into a file, cut to its shape.
//
// pylox-screenshots SKIN OUT [SUFFIX]: NAME-SKIN[SUFFIX].png in the folder OUT. The exit status is 1 when a
// window did not open.

#include "app/program.h"
#include "bench/no_prompts.h"
#include "platform/addresses.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>
#include <QWindow>

#include <cstdio>
#include <functional>

namespace {

constexpr int patienceMilliseconds = 20'000;
constexpr int settleMilliseconds = 500; // for what a window asks the messenger

template <typename Condition>
bool waitFor(const Condition &condition)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition() && !elapsed.hasExpired(patienceMilliseconds)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return condition();
}

QWidget *windowNamed(QStringView name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

class Photographer
{
public:
    Photographer(frmMain &room, QProcess &companion, const QString &skin, const QDir &out,
                 const QString &suffix)
        : m_room(room), m_companion(companion), m_end(u'-' + skin.toLower() + suffix + u".png"), m_out(out)
    {}

    /// True when every window was there.
    [[nodiscard]] bool run()
    {
        talk();
        take(u"room", u"frmMain");
        press(m_room, u"smdEmoticon");
        take(u"palette", u"frmEmotShow");
        whisper();
        inDialog([this] { directory(); }, [this] { Q_EMIT m_room.directoryRequested(); });
        inDialog([this] { options(); }, [this] { Q_EMIT m_room.optionsRequested(); });
        return m_allThere;
    }

private:
    void talk()
    {
        for (const char *line : {"Has anybody seen the lighthouse? They have painted it :D",
                                 "Red and white, like a stick of rock",
                                 "I walked out there this morning. http://example.org/walk"}) {
            say(line);
        }
        m_room.findChild<QLineEdit *>(QStringLiteral("rtfText"))
            ->setText(QStringLiteral("That sounds lovely :) Is the path open again?"));
        press(m_room, u"smdSend");
        say("It is, and there is coffee (c) at the end of it");
        const auto *board = m_room.findChild<RichEdit *>(QStringLiteral("rtfMsgs"));
        m_allThere = waitFor([&] { return board->toPlainText().contains(u"at the end of it"); });
    }

    /// By one of the guests.
    void say(const QByteArray &line) { m_companion.write("say 1 " + line + '\n'); }

    void whisper()
    {
        m_companion.write("whisper u1 Are you coming along on Sunday? :)\n");
        if (waitFor([] { return windowNamed(u"frmPrivMsg") != nullptr; })) {
            QWidget &conversation = *windowNamed(u"frmPrivMsg");
            settle();
            take(u"private", u"frmPrivMsg");
            conversation.close();
        }
    }

    void directory()
    {
        QWidget &window = *windowNamed(u"frmCategories");
        auto *tree = window.findChild<QTreeView *>(QStringLiteral("tvCats"));
        tree->setCurrentIndex(tree->model()->index(0, 0));
        settle();
        tree->expandAll();
        settle();
        take(u"directory", u"frmCategories");
        inDialog(
            [this] {
                windowNamed(u"frmNewChat")
                    ->findChild<QLineEdit *>(QStringLiteral("txtRoom"))
                    ->setText(QStringLiteral("Lighthouse walkers"));
                take(u"create", u"frmNewChat");
                windowNamed(u"frmNewChat")->close();
            },
            [&window] { press(window, u"smdCreate"); });
        window.close();
    }

    void options()
    {
        QWidget &window = *windowNamed(u"frmOptions");
        take(u"options", u"frmOptions");
        press(window, u"smcType_1");
        take(u"colours", u"frmOptions");
        inDialog(
            [this] {
                take(u"lists", u"frmIgnore");
                windowNamed(u"frmIgnore")->close();
            },
            [&window] { press(window, u"smdIgnore"); });
        window.close();
    }

    /// Opens a dialog and does something while it stands there.
    static void inDialog(const std::function<void()> &meanwhile, const std::function<void()> &open)
    {
        bool done = false;
        QTimer::singleShot(settleMilliseconds, [&] {
            meanwhile();
            done = true;
        });
        open();
        (void)waitFor([&] { return done; });
    }

    static void press(const QWidget &window, QStringView button)
    {
        window.findChild<QAbstractButton *>(button.toString())->click();
    }

    static void settle()
    {
        QEventLoop loop;
        QTimer::singleShot(settleMilliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    }

    void take(QStringView name, QStringView windowName)
    {
        QWidget *window = windowNamed(windowName);
        if (window == nullptr) {
            std::fprintf(stderr, "no window for %s\n", qPrintable(name.toString()));
            m_allThere = false;
            return;
        }
        const QPixmap face = window->grab();
        QPixmap picture(face.size());
        picture.setDevicePixelRatio(face.devicePixelRatio());
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        if (const QRegion shape = window->windowHandle()->mask(); !shape.isEmpty()) {
            painter.setClipRegion(shape);
        }
        painter.drawPixmap(0, 0, face);
        painter.end();
        m_allThere = picture.save(m_out.filePath(name + m_end)) && m_allThere;
    }

    frmMain &m_room;
    QProcess &m_companion;
    QString m_end;
    QDir m_out;
    bool m_allThere = true;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "Usage: pylox-screenshots SKIN OUT [SUFFIX]\n");
        return 2;
    }
    const QTemporaryDir home;
    QProcess companion;
    companion.start(QApplication::applicationDirPath() + u"/pylox-messenger",
                    {QStringLiteral("--home"), home.path(), QStringLiteral("--guests"), QStringLiteral("8"),
                     QStringLiteral("--skin"), arguments[1]});
    companion.waitForReadyRead();
    NoPrompts prompts;
    SystemClock clock;
    DesktopAddresses addresses{QString()};
    Program program(home.path(), CommandLine({QStringLiteral("-cid1"), QStringLiteral("-cnmLobby~")}),
                    prompts, clock, addresses);
    const bool taken =
        program.Main() && waitFor([&] { return program.state().InRoom; }) &&
        Photographer(*program.window(), companion, arguments[1], QDir(arguments[2]), arguments.value(3))
            .run();
    companion.kill();
    companion.waitForFinished();
    return taken ? 0 : 1;
}
