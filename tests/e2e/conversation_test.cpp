#include "app/program.h"
#include "messenger/messenger.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"
#include "support/eventually.h"
#include "support/fake_addresses.h"
#include "support/fake_prompts.h"
#include "support/text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTreeWidget>

namespace {

/// A client with its window, as a person has it.
struct Person
{
    explicit Person(const QString &home)
        : program(home, CommandLine({u"-cid1"_s, u"-cnmLobby~"_s}), prompts, clock, addresses)
    {}

    [[nodiscard]] bool enters()
    {
        return program.Main() && eventually([this] { return program.state().InRoom; });
    }
    void say(const QString &text)
    {
        program.window()->findChild<QLineEdit *>(u"rtfText"_s)->setText(text);
        program.window()->findChild<QAbstractButton *>(u"smdSend"_s)->click();
    }

    [[nodiscard]] bool reads(const QString &text) const
    {
        return eventually([&] { return board().contains(text); });
    }
    [[nodiscard]] QString board() const
    {
        return program.window()->findChild<RichEdit *>(u"rtfMsgs"_s)->toPlainText();
    }
    [[nodiscard]] bool seesMember(const QString &name) const
    {
        const auto *list = program.window()->findChild<QTreeWidget *>(u"grdUserList"_s);
        return eventually([&] { return !list->findItems(name, Qt::MatchRecursive).isEmpty(); });
    }

    FakePrompts prompts;
    SystemClock clock;
    FakeAddresses addresses;
    Program program;
};

/// What the one private window shows, whoever's it is; empty when there is none.
QString privateConversation()
{
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"frmPrivMsg") {
            return window->findChild<RichEdit *>(u"rtfConv"_s)->toPlainText();
        }
    }
    return {};
}

TEST(Conversation, TwoPeopleInTheLobby)
{
    const QTemporaryDir folder;
    MessengerOptions options;
    options.home = folder.path();
    Messenger messenger(options);
    ASSERT_TRUE(messenger.start());
    Person robin(folder.path()); // the port is in the settings file
    ASSERT_TRUE(robin.enters());
    Person sasha(folder.path());
    ASSERT_TRUE(sasha.enters());
    EXPECT_TRUE(robin.reads(u"SERVER: User Sasha has entered the room."_s));
    EXPECT_TRUE(sasha.seesMember(u"Robin"_s));

    robin.say(u"hello <all> \\ na\u00EFve \u20AC"_s);
    EXPECT_TRUE(sasha.reads(u"Robin: hello <all> \\ na\u00EFve \u20AC"_s));
    sasha.say(u"hello yourself"_s);
    EXPECT_TRUE(robin.reads(u"Sasha: hello yourself"_s));
    EXPECT_EQ(sasha.board().count(u"hello yourself"_s), 1) << "the own copy is the only one";

    messenger.command(u"whisper u1 psst"_s);
    EXPECT_TRUE(eventually([] { return privateConversation().contains(u"psst"); }));
    EXPECT_FALSE(QString(robin.board() + sasha.board()).contains(u"psst"));

    bool ended = false;
    QObject::connect(&sasha.program, &Program::ended, [&] { ended = true; });
    sasha.program.window()->close();
    EXPECT_TRUE(robin.reads(u"SERVER: User Sasha has left the room."_s));
    EXPECT_TRUE(eventually([&] { return ended; }));
    EXPECT_TRUE(sasha.board().contains(u"You have successfully left the Room!"_s));
}

} // namespace
