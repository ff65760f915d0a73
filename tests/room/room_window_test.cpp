#include "core/options.h"
#include "room/frmMain.h"
#include "support/link_fixture.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

struct RoomWindow : LinkFixture
{
    void SetUp() override
    {
        connectLink();
        state.MyUserID = u"u1"_s;
        state.MyNickname = u"Ann"_s;
        messenger.answerBy([](const QString &request) {
            return QStringList{reply(request.startsWith(u"<CMSG"_s) ? u"<ACKSM/>"_s : u"<KLC r=\"0\"/>"_s)};
        });
        window.show();
        ASSERT_TRUE(eventually([this] { return messenger.requests.contains(u"<GETPYLOXUSERS/>"_s); }));
    }

    template <typename Widget>
    Widget *child(const char16_t *name)
    {
        return window.findChild<Widget *>(QStringView(name).toString());
    }

    void press(QWidget *widget, int key, const QString &text)
    {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &down);
    }

    void beOwner()
    {
        state.CurrentRoomID = 12;
        state.InRoom = state.IsRoomOwner = true;
    }

    Options options;
    CommandLine commandLine;
    frmMain window{state, options, link, prompts, commandLine};
};

TEST_F(RoomWindow, EnterSendsAndEmptiesTheBox)
{
    auto *text = child<QLineEdit>(u"rtfText");
    text->setText(u"hello"_s);
    press(text, Qt::Key_Return, u"\r"_s);
    EXPECT_EQ(text->text(), u"hello"_s) << "no room, nothing sent";

    beOwner();
    press(text, Qt::Key_Return, u"\r"_s);
    EXPECT_TRUE(text->text().isEmpty());
    EXPECT_EQ(child<QPlainTextEdit>(u"rtfMsgs")->toPlainText(), u"Ann: hello"_s);

    text->setText(u"sent"_s);
    QTimer::singleShot(0, [&] { text->insert(u" and more"_s); });
    child<QPushButton>(u"smdSend")->click();
    EXPECT_EQ(text->text(), u"sent and more"_s) << "nothing that was typed is lost";
}

TEST_F(RoomWindow, ClosingAsksAnOwnerWithGuestsAndTakesTheWayOut)
{
    beOwner();
    window.AddMessage(u"x"_s, MessageKind::Normal);
    messenger.send(u"<QJC id=\"u1\" nm=\"Ann\"/><QJC id=\"u2\" nm=\"Bob\"/>"_s);
    ASSERT_TRUE(
        eventually([this] { return child<QPlainTextEdit>(u"rtfMsgs")->toPlainText().contains(u"Bob"_s); }));
    prompts.answer = PromptAnswer::No;
    EXPECT_FALSE(window.close());
    ASSERT_EQ(prompts.boxes.size(), 1);
    EXPECT_EQ(prompts.boxes[0],
              (FakePrompts::Box{u"Leave Chat"_s,
                                u"You still have people in your chat room!  Do you still wish to leave?"_s,
                                PromptIcon::Warning}));
    EXPECT_FALSE(link.isShutDown());

    prompts.answer = PromptAnswer::Yes;
    bool exited = false;
    QObject::connect(&window, &frmMain::exited, [&] { exited = true; });
    EXPECT_FALSE(window.close()) << "it closes when the room has been left";
    EXPECT_FALSE(window.close());
    EXPECT_EQ(prompts.boxes.size(), 2) << "the question is asked once";
    EXPECT_TRUE(eventually([&] { return exited && !window.isVisible(); }));
}

TEST_F(RoomWindow, EveryControlHasItsName)
{
    const std::pair<const char16_t *, QString> names[] = {
        {u"rtfMsgs", u"Message board"_s}, {u"rtfText", u"Message"_s}, {u"grdUserList", u"Members"_s},
        {u"smdSend", u"Send"_s},          {u"smdMenu", u"Menu"_s},    {u"smdExit", u"Exit"_s}};
    for (const auto &[name, accessibleName] : names) {
        ASSERT_NE(child<QWidget>(name), nullptr);
        EXPECT_EQ(child<QWidget>(name)->accessibleName(), accessibleName);
    }
}

} // namespace
