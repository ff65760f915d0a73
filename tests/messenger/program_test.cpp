#include "support/text.h"

#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

namespace {

/// The program itself, as a person starts it.
struct MessengerProgram : testing::Test
{
    /// Starts it; the first line that it prints.
    QByteArray startWith(const QStringList &arguments = {})
    {
        program.start(QStringLiteral(PYLOX_BIN_DIR "/pylox-messenger"),
                      QStringList{u"--home"_s, folder.path()} + arguments);
        while (!program.canReadLine() && program.waitForReadyRead(10000)) {
        }
        return program.readLine();
    }

    void expectEnd(int code)
    {
        EXPECT_TRUE(program.state() == QProcess::NotRunning || program.waitForFinished(10000));
        EXPECT_TRUE(program.exitStatus() == QProcess::NormalExit && program.exitCode() == code);
    }

    QTemporaryDir folder;
    QProcess program;
};

TEST_F(MessengerProgram, ReadsLinesUntilQuitAndLeavesOutEndlessOnes)
{
    EXPECT_TRUE(startWith().startsWith("listening on 127.0.0.1:"));
    program.write("bo");
    EXPECT_FALSE(program.waitForReadyRead(100));
    program.write("gus\n" + QByteArray(20'000, 'x') + "\nstrange\nquit\n");
    expectEnd(0);
    const QByteArray said = program.readAllStandardOutput();
    EXPECT_TRUE(said.startsWith("unknown command \"bogus\"") && said.contains("\"strange\""))
        << said.constData();
    EXPECT_EQ(said.count('\n'), 2) << "and no part of the long line is a command";
    EXPECT_EQ(program.readAllStandardError(), "pylox-messenger: a line that is too long was left out\n");
}

TEST_F(MessengerProgram, OutlivesItsInputAndEndsAtASignal)
{
    for (const int signal : {SIGTERM, SIGINT}) {
        startWith();
        program.write("quit"); // half a line
        program.closeWriteChannel();
        EXPECT_FALSE(program.waitForFinished(100));
        ::kill(static_cast<pid_t>(program.processId()), signal);
        expectEnd(0);
    }
}

TEST_F(MessengerProgram, RefusesWrongArguments)
{
    EXPECT_EQ(startWith({u"--bogus"_s}), QByteArray());
    expectEnd(2);
    EXPECT_TRUE(program.readAllStandardError().startsWith("pylox-messenger: "));
}

} // namespace
