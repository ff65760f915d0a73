#include "app/program.h"
#include "messenger/messenger.h"
#include "room/frmMain.h"
#include "support/eventually.h"
#include "support/fake_addresses.h"
#include "support/fake_prompts.h"
#include "support/text.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

/// A client with its window, as a person has it.
struct Person
{
    Person(const QString &home, const QStringList &arguments)
        : program(home, CommandLine(arguments), prompts, clock, addresses)
    {
        isUp = program.Main();
    }

    void say(const QString &text)
    {
        program.window()->findChild<QLineEdit *>(u"rtfText"_s)->setText(text);
        program.window()->findChild<QPushButton *>(u"smdSend"_s)->click();
    }

    [[nodiscard]] bool isInRoom() const { return program.state().InRoom; }
    [[nodiscard]] bool reads(const QString &text) const
    {
        return eventually([&] { return board().contains(text); });
    }
    [[nodiscard]] QString board() const
    {
        return program.window()->findChild<QPlainTextEdit *>(u"rtfMsgs"_s)->toPlainText();
    }
    [[nodiscard]] bool seesMember(const QString &name) const
    {
        const auto *list = program.window()->findChild<QTreeWidget *>(u"grdUserList"_s);
        return eventually(
            [&] { return !list->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).isEmpty(); });
    }

    FakePrompts prompts;
    SystemClock clock;
    FakeAddresses addresses;
    Program program;
    bool isUp = false;
};

struct Conversation : testing::Test
{
    Conversation() : messenger(options()) {}
    void SetUp() override { ASSERT_TRUE(messenger.start()); }

    MessengerOptions options() const
    {
        MessengerOptions chosen;
        chosen.home = folder.path();
        return chosen;
    }

    [[nodiscard]] std::unique_ptr<Person> person(const QString &roomArguments)
    {
        return std::make_unique<Person>(folder.path(), roomArguments.split(u' '));
    }

    QTemporaryDir folder;
    Messenger messenger;
};

TEST_F(Conversation, TwoPeopleInTheLobby)
{
    const auto robin = person(u"-cid1 -cnmLobby~"_s);
    ASSERT_TRUE(robin->isUp) << "the port is in the settings file";
    ASSERT_TRUE(eventually([&] { return robin->isInRoom(); }));
    const auto sasha = person(u"-cid1 -cnmLobby~"_s);
    ASSERT_TRUE(eventually([&] { return sasha->isInRoom(); }));
    EXPECT_TRUE(robin->reads(u"SERVER: User Sasha has entered the room."_s));
    EXPECT_TRUE(sasha->seesMember(u"Robin"_s));

    robin->say(u"hello <all> \\ na\u00EFve \u20AC"_s);
    EXPECT_TRUE(sasha->reads(u"Robin: hello <all> \\ na\u00EFve \u20AC"_s));
    sasha->say(u"hello yourself"_s);
    EXPECT_TRUE(robin->reads(u"Sasha: hello yourself"_s));
    EXPECT_EQ(sasha->board().count(u"hello yourself"_s), 1) << "the own copy is the only one";

    messenger.command(u"whisper u1 psst"_s);
    EXPECT_TRUE(robin->reads(u"(private): psst"_s));
    EXPECT_FALSE(sasha->board().contains(u"psst"_s));

    bool ended = false;
    QObject::connect(&sasha->program, &Program::ended, [&] { ended = true; });
    sasha->program.window()->close();
    EXPECT_TRUE(robin->reads(u"SERVER: User Sasha has left the room."_s));
    EXPECT_TRUE(eventually([&] { return ended; }));
    EXPECT_TRUE(sasha->board().contains(u"You have successfully left the Room!"_s));
}

TEST_F(Conversation, DoorsThatOpenLaterOrNot)
{
    const auto accepted = person(u"-cid2 -cnmReading Circle~"_s);
    const auto rejected = person(u"-cid3 -cnmMembers Only~"_s);
    EXPECT_TRUE(accepted->reads(u"Waiting for server response...."_s));
    EXPECT_TRUE(accepted->reads(u"You are allowed to join the chat room!"_s));
    EXPECT_TRUE(rejected->reads(u"Rejected from joining room: 200"_s));
    EXPECT_FALSE(rejected->isInRoom());
    const auto full = person(u"-cid4 -cnmCrowded Stairs~"_s);
    EXPECT_TRUE(eventually([&] { return full->prompts.boxes.size() == 1; }));
    EXPECT_EQ(full->prompts.boxes[0].caption, u"Room Error"_s);
}

TEST_F(Conversation, TheMessengersServerComesAndGoes)
{
    const auto robin = person(u"-cid1 -cnmLobby~"_s);
    ASSERT_TRUE(eventually([&] { return robin->isInRoom(); }));
    messenger.command(u"offline"_s);
    EXPECT_TRUE(robin->reads(u"SERVER: Currently Pylox is offline!"_s));
    EXPECT_FALSE(robin->isInRoom());
    messenger.command(u"online"_s);
    EXPECT_TRUE(robin->reads(u"PYLOX: Pylox is now online!"_s));
}

} // namespace
