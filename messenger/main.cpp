#include "messenger/ending_signals.h"
#include "messenger/messenger.h"
#include "messenger/standard_input.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

void print(std::FILE *file, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), file);
    std::fflush(file);
}

void complain(const QString &text)
{
    print(stderr, u"pylox-messenger: " % text % u'\n');
}

/// A program started without standard descriptors would get them for its sockets.
void holdStandardDescriptors()
{
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    close(descriptor);
}

int run(QCoreApplication &application, const MessengerOptions &options)
{
    Messenger messenger(options);
    const bool started = messenger.start();
    for (const QString &problem : messenger.problems()) {
        complain(problem);
    }
    if (!started) {
        return 1;
    }
    messenger::EndingSignals signalled;
    messenger::StandardInput input(STDIN_FILENO);
    const auto end = [] { QCoreApplication::quit(); };
    QObject::connect(&messenger, &Messenger::quitRequested, &application, end, Qt::QueuedConnection);
    QObject::connect(&signalled, &messenger::EndingSignals::received, &application, end);
    QObject::connect(&input, &messenger::StandardInput::lineTooLong, &application,
                     [] { complain(QStringLiteral("a line that is too long was left out")); });
    QObject::connect(&input, &messenger::StandardInput::lineRead, &application, [&](const QString &line) {
        if (const QString output = messenger.command(line); !output.isEmpty()) {
            print(stdout, output % u'\n');
        }
    });
    print(stdout, QStringLiteral("listening on 127.0.0.1:%1\n").arg(messenger.port()));
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    holdStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(PYLOX_VERSION));
    const ParsedArguments arguments = parseArguments(QCoreApplication::arguments().sliced(1));
    if (!arguments.error.isEmpty()) {
        complain(arguments.error);
        complain(QStringLiteral("--help lists the options"));
        return 2;
    }
    if (arguments.help || arguments.version) {
        print(stdout, arguments.help ? usageText() : QStringLiteral("pylox-messenger " PYLOX_VERSION "\n"));
        return 0;
    }
    return run(application, arguments.options);
}
