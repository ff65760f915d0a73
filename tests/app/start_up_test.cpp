#include "app/program.h"
#include "platform/text_file.h"
#include "room/frmMain.h"
#include "support/fake_addresses.h"
#include "support/fake_clock.h"
#include "support/fake_prompts.h"
#include "support/scripted_messenger.h"
#include "support/text.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

namespace {

struct StartUp : testing::Test
{
    [[nodiscard]] std::unique_ptr<Program> program(const QStringList &arguments)
    {
        return std::make_unique<Program>(folder.path(), CommandLine(arguments), prompts, clock, addresses);
    }

    [[nodiscard]] QString portOfMessenger() const { return u"-port%1~"_s.arg(messenger.port()); }

    /// Answers the two requests of start-up with these payloads; an empty one gives no answer at all.
    void answer(const QString &skin, const QString &details)
    {
        messenger.answersStartUp = false;
        messenger.answerBy([=](const QString &request) {
            const QString payload = request == u"<GETSKIN/>"_s ? skin : details;
            return payload.isEmpty() ? QStringList()
                                     : QStringList{QString(u"<MSG><V mk=\"{key}\"/>" + payload + u"</MSG>")};
        });
    }

    QTemporaryDir folder;
    FakePrompts prompts;
    FakeClock clock;
    FakeAddresses addresses;
    ScriptedMessenger messenger;
};

TEST_F(StartUp, AsksForSkinAndDetailsAndShowsTheWindow)
{
    SettingsFile settings;
    settings.FileName = folder.filePath(u"Pylox.ini"_s);
    settings.WriteValue(u"Port"_s, QString::number(messenger.port()), u"Chat"_s);
    const auto chat = program({});
    ASSERT_TRUE(chat->Main());
    EXPECT_EQ(messenger.requests.first(2), (QStringList{u"<GETSKIN/>"_s, u"<GETMYDETAILS/>"_s}));
    EXPECT_TRUE(chat->window()->isVisible());
    const SharedState &state = chat->state();
    EXPECT_EQ(std::tie(state.MyUserID, state.MyNickname), std::tuple(u"u1"_s, u"Ann"_s));
    EXPECT_TRUE(state.MyStatus == 11 && state.MyMood == 7);
    EXPECT_TRUE(prompts.boxes.isEmpty());
    Q_EMIT chat->window()->helpRequested(u"using_chat"_s);
    EXPECT_EQ(addresses.last.fragment(), u"using_chat"_s);
}

TEST_F(StartUp, EachFailureShowsItsBoxAndNothingElse)
{
    const QString noMessenger = u"Stop: Messenger not found: Could not connect to Pylox Messenger."_s;
    const QString noSkin = u"Stop: No skin found: Error loading skin for Pylox Chat Client."_s;
    const QString noDetails = u"Stop: No Details: Error retrieving your details from Pylox Messenger."_s;
    const QString skin = u"<SKIN value=\"Blue.skn\"/>"_s;
    const QString other = u"<ACKSM/>"_s; // the request's own text stands for the skin
    const std::tuple<QString, QString, QString> cases[] = {
        {u"-none"_s, skin, noMessenger},
        {u"-port1~"_s, skin, noMessenger},
        {u"-portnone~"_s, skin, noMessenger},
        {u"-port0~"_s, skin, noMessenger},
        {u"-port-5~"_s, skin, noMessenger},
        {u"-port70000~"_s, skin, noMessenger},
        {portOfMessenger(), u"<SKIN value=\"\"/>"_s, noSkin},
        {portOfMessenger(), u"<SKIN/>"_s, noSkin},
        {portOfMessenger(), other, noDetails},
        {portOfMessenger(), skin, noDetails},
    };
    for (const auto &[argument, skinReply, box] : cases) {
        prompts.boxes.clear();
        answer(skinReply, other);
        const auto chat = program({argument});
        EXPECT_FALSE(chat->Main());
        EXPECT_EQ(prompts.boxes, QStringList{box}) << argument.toStdString();
        EXPECT_EQ(chat->window(), nullptr);
    }
}

TEST_F(StartUp, AMessengerThatLeavesOrKeepsSilentInTheMiddle)
{
    answer({}, {});
    QTimer::singleShot(150, [this] { messenger.closeClient(); });
    EXPECT_FALSE(program({portOfMessenger()})->Main());
    QTimer::singleShot(150, [this] { clock.advance(31'000); });
    EXPECT_FALSE(program({portOfMessenger()})->Main());
    ASSERT_EQ(prompts.boxes.size(), 2);
    EXPECT_TRUE(prompts.boxes.join(u'|').startsWith(u"Stop: No skin found"_s));
    EXPECT_EQ(prompts.boxes[0], prompts.boxes[1]);
}

TEST_F(StartUp, DetailsOfAnotherNameLeaveTheUserUnknown)
{
    answer(u"<SKIN value=\"Blue.skn\"/>"_s, u"<CTL id=\"u1\" nick=\"Ann\"/>"_s);
    const auto chat = program({portOfMessenger()});
    ASSERT_TRUE(chat->Main());
    EXPECT_TRUE(chat->state().MyUserID.isEmpty());
    EXPECT_EQ(chat->state().MyStatus, 0);
    EXPECT_TRUE(chat->window()->isVisible());
}

TEST_F(StartUp, TheAnswerNamesTheSkinAndAChangeAfterItIsWornWhole)
{
    const auto write = [this](const QString &name, const QString &back) {
        const QString path = folder.filePath(name);
        QDir(folder.path()).mkpath(name);
        EXPECT_TRUE(writeTextFile(path + u"/skin.toml"_s, u"[Defaults]\nBackColour = \"%1\"\n"_s.arg(back)));
        return QString(path + u"/skin.toml"_s);
    };
    const QString first = write(u"first"_s, u"#102030"_s);
    const QString second = write(u"second"_s, u"#405060"_s);
    const QString change = u"<MSG><V mk=\"MSG\"/><SKINCHANGE value=\"%1\"/></MSG>"_s.arg(second);
    messenger.answersStartUp = false;
    for (const bool beforeTheSkin : {true, false}) { // else before the details
        SCOPED_TRACE(beforeTheSkin);
        messenger.answerBy([=](const QString &request) {
            const QString answer = u"<MSG><V mk=\"{key}\"/>%1</MSG>"_s;
            if (request == u"<GETSKIN/>") {
                const QString skin = answer.arg(u"<SKIN value=\"%1\"/>"_s.arg(first));
                return beforeTheSkin ? QStringList{change, skin} : QStringList{skin};
            }
            const QString details = answer.arg(u"<MYDETAILS id=\"u1\" nick=\"Ann\" s=\"11\" m=\"7\"/>"_s);
            return beforeTheSkin ? QStringList{details} : QStringList{change, details};
        });
        const auto chat = program({portOfMessenger()});
        ASSERT_TRUE(chat->Main());
        EXPECT_EQ(chat->window()->palette().color(QPalette::Window),
                  beforeTheSkin ? QColor(0x10, 0x20, 0x30) : QColor(0x40, 0x50, 0x60));
    }
}

QWidget *shown(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

/// A dialog may be opened at any moment, and stand there as long as the user likes.
TEST_F(StartUp, DialogsHoldUpNothing)
{
    messenger.answerBy([](const QString &request) {
        const QString answer = u"<MSG><V mk=\"{key}\"/>%1</MSG>"_s;
        if (request.startsWith(u"<REQUESTJOINCHANNEL")) {
            return QStringList{u"<MSG><V mk=\"MSG\"/><AJC cid=\"12\" r=\"0\" id=\"u1\" tid=\"u2\"/></MSG>"_s,
                               answer.arg(u"<AJC r=\"0\"/>"_s)};
        }
        const bool waits = request.startsWith(u"<GETC"); // for the test to answer
        return waits ? QStringList() : QStringList{answer.arg(u"<KLC r=\"0\"/>"_s)};
    });
    const auto chat = program({portOfMessenger(), u"-cid12"_s});
    ASSERT_TRUE(chat->Main());
    const auto isAsked = [this](QStringView start) {
        return [=, this] { return messenger.requests.last().startsWith(start); };
    };
    const auto *list = chat->window()->findChild<QTreeWidget *>(u"grdUserList"_s);
    QString key;
    QPointer<QWidget> dialog;

    // What waits for an answer keeps the loop that it was called from: a step is taken inside it.
    const std::pair<std::function<bool()>, std::function<void()>> steps[] = {
        {isAsked(u"<GETCHANNELCONTENTS"),
         [&] {
             key = messenger.lastKey;
             chat->window()->move(-500, 700); // a dialog over it would stand off the screen
             Q_EMIT chat->window()->optionsRequested();
             dialog = shown(u"frmOptions"_s);
         }},
        {[&] { return dialog != nullptr; },
         [&] {
             EXPECT_TRUE(dialog->screen()->availableGeometry().contains(dialog->geometry()));
             Q_EMIT chat->window()->directoryRequested();
             EXPECT_EQ(shown(u"frmCategories"_s), nullptr) << "one at a time";
             messenger.send(u"<KCC r=\"0\" t=\"1\"><U id=\"u3\" nm=\"Bob\" s=\"1\" m=\"0\"/></KCC>"_s, key);
         }},
        {[&] { return !list->findItems(u"Bob"_s, Qt::MatchRecursive).isEmpty(); },
         [&] {
             EXPECT_EQ(dialog, shown(u"frmOptions"_s)) << "and still open";
             QTimer::singleShot(20, dialog, &QWidget::close); // with the lists above it
             dialog->findChild<QAbstractButton *>(u"smdIgnore"_s)->click();
         }},
        {[&] { return dialog == nullptr; }, [&] { Q_EMIT chat->window()->directoryRequested(); }},
        {isAsked(u"<GETCATEGORIES"), [&] { (dialog = shown(u"frmCategories"_s))->close(); }},
        {[&] { return dialog == nullptr; }, [&] { clock.advance(31'000); }}, // though nobody has answered
    };
    std::size_t done = 0;
    QTimer clockwork;
    QObject::connect(&clockwork, &QTimer::timeout, [&] {
        if (done < std::size(steps) && steps[done].first()) {
            QMetaObject::invokeMethod(&clockwork, steps[done++].second, Qt::QueuedConnection);
        }
    });
    clockwork.start(20);
    QTimer::singleShot(5000, &clockwork, [&] { clock.advance(31'000); }); // a step that never comes
    EXPECT_TRUE(eventually([&] { return done == std::size(steps); })) << "step " << done;
}

} // namespace
