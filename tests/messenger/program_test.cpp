#include "support/text.h"

#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

namespace {

/// The program itself, as a person starts it.
struct MessengerProgram : testing::Test
{
    /// Starts it; the first line that it prints.
    QByteArray startWith(const QStringList &arguments)
    {
        program.start(QStringLiteral(PYLOX_BIN_DIR "/pylox-messenger"),
                      QStringList{u"--home"_s, folder.path()} + arguments);
        while (!program.canReadLine() && program.waitForReadyRead(10000)) {
        }
        return program.readLine();
    }

    /// Waits for the end; the code with which the program ended, -1 for a crash or none.
    int result()
    {
        const bool ended = program.state() == QProcess::NotRunning || program.waitForFinished(10000);
        return ended && program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }

    QTemporaryDir folder;
    QProcess program;
};

TEST_F(MessengerProgram, ReadsCommandsUntilQuit)
{
    EXPECT_TRUE(startWith({}).startsWith("listening on 127.0.0.1:"));
    program.write("bogus\nquit\n");
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().startsWith("unknown command \"bogus\""));
}

TEST_F(MessengerProgram, OutlivesItsInputAndEndsAtASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        startWith({});
        program.closeWriteChannel();
        EXPECT_FALSE(program.waitForFinished(100));
        ::kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_EQ(result(), 0);
    }
}

TEST_F(MessengerProgram, RefusesWrongArguments)
{
    EXPECT_EQ(startWith({u"--bogus"_s}), QByteArray());
    EXPECT_EQ(result(), 2);
    EXPECT_TRUE(program.readAllStandardError().startsWith("pylox-messenger: "));
}

} // namespace
