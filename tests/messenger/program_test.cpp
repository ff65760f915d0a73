#include "support/text.h"

#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>

namespace {

/// The program itself, as a person starts it.
class MessengerProgramTest : public testing::Test
{
protected:
    void startWith(const QStringList &arguments)
    {
        const QStringList home{u"--home"_s, folder.path()};
        program.start(QStringLiteral(PYLOX_BIN_DIR "/pylox-messenger"), home + arguments);
        ASSERT_TRUE(program.waitForStarted());
    }

    /// Waits for the end; the code with which the program ended, -1 for a crash or none.
    int result()
    {
        const bool ended = program.waitForFinished(10000) && program.exitStatus() == QProcess::NormalExit;
        return ended ? program.exitCode() : -1;
    }

    QByteArray firstLine()
    {
        while (!program.canReadLine() && program.waitForReadyRead(10000)) {
        }
        return program.readLine();
    }

    QTemporaryDir folder;
    QProcess program;
};

} // namespace

TEST_F(MessengerProgramTest, ReadsCommandsUntilQuit)
{
    startWith({});
    EXPECT_TRUE(firstLine().startsWith("listening on 127.0.0.1:"));
    program.write("bogus\nquit\n");
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().startsWith("unknown command \"bogus\""));
}

TEST_F(MessengerProgramTest, OutlivesItsInputAndEndsAtASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        startWith({});
        firstLine();
        program.closeWriteChannel();
        EXPECT_FALSE(program.waitForFinished(100));
        ::kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_EQ(result(), 0);
    }
}

TEST_F(MessengerProgramTest, RefusesWrongArguments)
{
    for (const QStringList &arguments : {QStringList(u"--port=x"_s), QStringList(u"--bogus"_s)}) {
        startWith(arguments);
        EXPECT_EQ(result(), 2);
        EXPECT_EQ(program.readAllStandardOutput(), QByteArray());
        EXPECT_TRUE(program.readAllStandardError().startsWith("pylox-messenger: "));
    }
}
