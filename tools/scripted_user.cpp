// The user of script/run where there is no display: joins the lobby, says two lines, gets answers and leaves.
// Every step is printed; the exit status is 1 when one of them did not happen.
//
// pylox-scripted-user OUT [the client's arguments]: screenshots and the conversation go to the folder OUT.

#include "app/program.h"
#include "core/application_folder.h"
#include "platform/addresses.h"
#include "platform/prompts.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

#include <cstdio>
#include <functional>

namespace {

constexpr int patienceMilliseconds = 20'000;

/// A box that nobody expected is a step that did not happen.
class PrintingPrompts final : public Prompts
{
public:
    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon, PromptButtons) override
    {
        std::printf("a box says: %s: %s\n", qPrintable(caption), qPrintable(text));
        return PromptAnswer::No;
    }
    QString ShowSave(const QString &, const QString &, const QString &) override { return {}; }
    std::optional<QFont> ShowFont(const QFont &, int, int) override { return {}; }
    std::optional<ColourValue> ShowColor(ColourValue) override { return {}; }
};

class ScriptedUser
{
public:
    ScriptedUser(Program &program, const QDir &out)
        : m_program(program),
          m_out(out),
          m_board(program.window()->findChild<RichEdit *>(QStringLiteral("rtfMsgs"))),
          m_text(program.window()->findChild<QLineEdit *>(QStringLiteral("rtfText")))
    {}

    /// True when every step happened.
    [[nodiscard]] bool play()
    {
        bool ended = false;
        QObject::connect(&m_program, &Program::ended, [&] { ended = true; });
        const bool played =
            step("the window is shown", [this] { return m_program.window()->isVisible(); }) &&
            step("let into the room", [this] { return m_program.state().InRoom; }) &&
            step("somebody is there and speaks", [this] { return wordsOfOthers() > 0; }) &&
            picture("1-joined.png") && exchange(QStringLiteral("Hello everybody! :) Who is here tonight?")) &&
            exchange(
                QStringLiteral("Nice to meet you ;) I wrote it all down on http://example.org/diary.")) &&
            picture("2-conversation.png") && leave() &&
            step("left the room",
                 [this] {
                     return m_board->toPlainText().contains(
                         QStringLiteral("You have successfully left the Room!"));
                 }) &&
            step("the program ended", [&] { return ended; });
        save();
        return played;
    }

private:
    [[nodiscard]] bool step(const char *what, const std::function<bool()> &happened)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        QTimer wakeUp;
        wakeUp.start(20);
        while (!happened() && !elapsed.hasExpired(patienceMilliseconds)) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        const bool did = happened();
        std::printf("%s  %s (%lld ms)\n", did ? "done  " : "FAILED", what,
                    static_cast<long long>(elapsed.elapsed()));
        return did;
    }

    /// Types a line, sees it on the board, and waits until somebody else says something.
    [[nodiscard]] bool exchange(const QString &line)
    {
        const qsizetype before = wordsOfOthers();
        for (const QChar c : line) {
            press(Qt::Key_unknown, c);
        }
        press(Qt::Key_Return, QStringLiteral("\r"));
        const QString shown = m_program.state().MyNickname + u": " + line;
        return step("my line is on the board",
                    [&] { return m_board->toPlainText().contains(shown) && m_text->text().isEmpty(); }) &&
               step("an answer is on the board", [&] { return wordsOfOthers() > before; });
    }

    void press(int key, const QString &text)
    {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(m_text, &down);
    }

    [[nodiscard]] bool leave()
    {
        m_program.window()->findChild<QAbstractButton *>(QStringLiteral("smdExit"))->click();
        return true;
    }

    /// Lines of the board that are neither the user's own nor a notice.
    [[nodiscard]] qsizetype wordsOfOthers() const
    {
        const QStringList lines = m_board->toPlainText().split(u'\n');
        return std::ranges::count_if(lines, [this](const QString &line) {
            return line.contains(u": ") && !line.startsWith(u"SERVER: ") && !line.startsWith(u"PYLOX: ") &&
                   !line.startsWith(m_program.state().MyNickname + u": ");
        });
    }

    [[nodiscard]] bool picture(const char *name)
    {
        return step(
            name, [&] { return m_program.window()->grab().save(m_out.filePath(QString::fromLatin1(name))); });
    }

    void save()
    {
        QFile file(m_out.filePath(QStringLiteral("conversation.txt")));
        if (file.open(QIODevice::WriteOnly)) {
            file.write(m_board->toPlainText().toUtf8() + '\n');
        }
    }

    Program &m_program;
    QDir m_out;
    RichEdit *m_board;
    QLineEdit *m_text;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "Usage: pylox-scripted-user OUT [arguments of PyloxChat]\n");
        return 2;
    }
    PrintingPrompts prompts;
    SystemClock clock;
    DesktopAddresses addresses(pagesFolder(QApplication::applicationDirPath()));
    Program program(applicationFolder(QApplication::applicationDirPath()), CommandLine(arguments.sliced(2)),
                    prompts, clock, addresses);
    return program.Main() && ScriptedUser(program, QDir(arguments[1])).play() ? 0 : 1;
}
