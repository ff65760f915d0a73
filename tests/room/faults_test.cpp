#include "core/options.h"
#include "emotions/emoticon_file.h"
#include "link/xml_codec.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"
#include "room/saved_settings.h"
#include "skin/skin_in_use.h"
#include "support/link_fixture.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTreeWidget>

namespace {

const QString connectionClosed = u"SERVER: The connection to Pylox has been closed!"_s;

/// The whole room window, in a room or out of it, with a messenger that does what it should not.
struct Faults : LinkFixture
{
    void SetUp() override
    {
        ASSERT_TRUE(settings.WriteValue(u"CodePage"_s, u"utf-8"_s, u"Chat"_s));
        messenger.speaksUtf8 = true;
        connectLink();
        state.MyUserID = u"u1"_s;
        state.MyNickname = u"Ann"_s;
        answerWell();
        QObject::connect(&window, &frmMain::exited, [this] { exited = true; });
        window.show();
        ASSERT_TRUE(eventually([this] { return messenger.requests.contains(u"<GETPYLOXUSERS/>"_s); }));
    }

    static QString goodAnswer(const QString &request)
    {
        const std::pair<QString, QString> answers[] = {
            {u"<CMSG"_s, u"<ACKSM/>"_s},
            {u"<REQUESTJOINCHANNEL"_s, u"<AJC r=\"0\"/>"_s},
            {u"<GETCHANNELCONTENTS"_s, u"<KCC r=\"0\" t=\"1\" id=\"u9\"><E id=\"u9\" nm=\"Olga\"/></KCC>"_s},
        };
        for (const auto &[start, payload] : answers) {
            if (request.startsWith(start)) {
                return reply(payload);
            }
        }
        return reply(u"<KLC r=\"0\"/>"_s);
    }

    void answerWell()
    {
        messenger.answerBy([](const QString &request) { return QStringList{goodAnswer(request)}; });
    }

    /// Answers well but for requests that begin so; there it only does this.
    void answerBadly(const QString &start, const std::function<void()> &fault)
    {
        messenger.answerBy([=](const QString &request) {
            if (!request.startsWith(start)) {
                return QStringList{goodAnswer(request)};
            }
            QTimer::singleShot(0, fault);
            return QStringList();
        });
    }

    /// Into room 12 at once, in which there is nobody else yet.
    void enter(bool owner = false)
    {
        state.CurrentRoomID = 12;
        state.IsRoomOwner = owner;
        window.lifecycle().EnterRoom();
        state.InRoom = true;
    }

    /// Into room 12 by the long way; what comes after the request does not count for the result.
    bool join()
    {
        const bool asked =
            window.lifecycle().joinFrom(CommandLine(QStringList{u"-cid12"_s, u"-cnmLounge~"_s}));
        if (asked) {
            messenger.send(u"<AJC cid=\"12\" r=\"0\" tid=\"u9\"/>"_s);
        }
        return asked;
    }

    /// An unsolicited message, handled when this returns.
    void receive(const QString &payload)
    {
        const QString mark = u"mark %1"_s.arg(++marks);
        messenger.send(payload);
        messenger.send(u"<USERONLINE nick=\"" + mark + u"\"/>");
        ASSERT_TRUE(eventually([&] { return board->toPlainText().contains(mark); }));
    }

    void type(const QString &words)
    {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, words);
        QCoreApplication::sendEvent(text, &key);
    }

    /// What is in the box already, or these words. The box is empty afterwards if they were taken.
    void send(const QString &words = {})
    {
        if (!words.isEmpty()) {
            text->setText(words);
        }
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s);
        QCoreApplication::sendEvent(text, &key);
    }

    void press(const QString &button) { window.findChild<QAbstractButton *>(button)->click(); }

    /// Everything that can be seen of it says that there is no room.
    [[nodiscard]] bool isInNoRoom() const
    {
        return !state.InRoom && state.CurrentRoomID == 0 && window.windowTitle() == u"Pylox Chat" &&
               window.windowTitle() == u"Pylox Chat" &&
               eventually([this] { return rows() == QStringList{u"Owner"_s}; });
    }

    [[nodiscard]] qsizetype shown(const QString &line) const
    {
        return board->toPlainText().split(u'\n').count(line);
    }

    /// Of the member list, headings included.
    [[nodiscard]] QStringList rows() const
    {
        QStringList all;
        for (QTreeWidgetItemIterator row(list); *row != nullptr; ++row) {
            all += (*row)->text(0);
        }
        return all;
    }

    [[nodiscard]] qsizetype asked(const QString &start) const
    {
        return std::ranges::count_if(messenger.requests,
                                     [&](const QString &request) { return request.startsWith(start); });
    }

    Options options;
    CommandLine commandLine;
    EmoticonFile emoticons{QString(folder.path() + u"/"_s)};
    SkinInUse skin{myApp};
    SavedSettings saved{myApp, options, state.lists};
    frmMain window{state, options, link, prompts, commandLine, {skin, windows, emoticons, saved}};
    QLineEdit *text = window.findChild<QLineEdit *>(u"rtfText"_s);
    RichEdit *board = window.findChild<RichEdit *>(u"rtfMsgs"_s);
    QTreeWidget *list = window.findChild<QTreeWidget *>(u"grdUserList"_s);
    int marks = 0;
    bool exited = false;
};

struct Breakdown
{
    const char *name;
    QString during; ///< the request that the messenger goes at
    bool reset;     ///< and not closed
    std::function<void(Faults &)> act;
};

struct ConnectionEnds : Faults, testing::WithParamInterface<Breakdown>
{};

TEST_P(ConnectionEnds, EveryWaitEndsAndTheWayOutStaysOpen)
{
    answerBadly(GetParam().during,
                [this] { GetParam().reset ? messenger.resetClient() : messenger.closeClient(); });
    text->setText(u"typed"_s);
    GetParam().act(*this);
    EXPECT_TRUE(eventually([this] { return shown(connectionClosed) == 1; }));
    EXPECT_TRUE(isInNoRoom());
    EXPECT_FALSE(shown(u"Ann: typed"_s) > 0 || board->toPlainText().contains(u"contents"_s));
    send();
    EXPECT_EQ(text->text(), u"typed"_s) << "there is nowhere to send it to";
    press(u"smdExit"_s);
    EXPECT_TRUE(eventually([this] { return exited && !window.isVisible(); }));
    EXPECT_EQ(shown(connectionClosed), 1);
}

const Breakdown breakdowns[] = {
    {"Joining", u"<REQUESTJOINCHANNEL"_s, false, [](Faults &room) { EXPECT_FALSE(room.join()); }},
    {"TellingOfTheJoin", u"<NOTIFYJOINCHANNEL"_s, true, [](Faults &room) { EXPECT_TRUE(room.join()); }},
    {"FetchingTheContents", u"<GETCHANNELCONTENTS"_s, false, [](Faults &room) { EXPECT_TRUE(room.join()); }},
    {"Sending", u"<CMSG"_s, true,
     [](Faults &room) {
         room.enter();
         room.send();
     }},
    {"Leaving", u"<LEAVECHANNEL"_s, false,
     [](Faults &room) {
         room.enter();
         room.window.lifecycle().LeaveRoom(true);
     }},
    {"GoingOut", u"<DESTROYCHANNEL"_s, false,
     [](Faults &room) {
         room.enter(true);
         room.press(u"smdExit"_s);
     }},
};

INSTANTIATE_TEST_SUITE_P(Room, ConnectionEnds, testing::ValuesIn(breakdowns),
                         [](const auto &instance) { return std::string(instance.param.name); });

/// What the user asks for, and what is said when it fails.
struct Operation
{
    QString request;
    std::function<void(Faults &)> act;
    QString failure; ///< a line of the board; empty for none
    bool staysIn;    ///< the room
};

TEST_F(Faults, AnswersThatAreNone)
{
    const Operation operations[] = {
        {u"<CMSG"_s, [](Faults &room) { room.send(u"lost"_s); }, {}, true},
        {u"<GETCHANNELCONTENTS"_s, [](Faults &room) { EXPECT_TRUE(room.join()); },
         u"SERVER: Error in getting channel contents: no reply"_s, true},
        {u"<LEAVECHANNEL"_s, [](Faults &room) { room.window.lifecycle().LeaveRoom(false); },
         u"SERVER: You have left the room but there was a server error!"_s, false},
        {u"<REQUESTJOINCHANNEL"_s, [](Faults &room) { EXPECT_FALSE(room.join()); }, {}, false},
    };
    const QString all = u"<ACKSM/><KLC r=\"0\"/><NJC r=\"0\"/><AJC r=\"0\"/><KCC r=\"0\" t=\"0\"/>"_s;
    const std::pair<const char *, std::function<void()>> faults[] = {
        {"nothing in time", [this] { clock.advance(31'000); }},
        {"another name", [this] { messenger.send(u"<NACKSM r=\"0\"/>"_s, messenger.lastKey); }},
        {"nothing but the mark", [this] { messenger.send({}, messenger.lastKey); }},
        {"for a key that is finished with, and for nobody",
         [&, this] {
             messenger.send(all, u"C1"_s);
             messenger.send(u"<ACKSM/><KLC r=\"0\"/><NJC r=\"0\"/>"_s);
             QTimer::singleShot(60, [this] { clock.advance(31'000); });
         }},
    };
    for (const auto &[request, act, failure, staysIn] : operations) {
        for (const auto &[name, fault] : faults) {
            SCOPED_TRACE(request.toStdString() + ": " + name);
            const bool joins = request == u"<REQUESTJOINCHANNEL" || request == u"<GETCHANNELCONTENTS";
            if (!joins) {
                enter();
            }
            answerBadly(request, fault);
            act(*this);
            EXPECT_TRUE(failure.isEmpty() || eventually([&] { return shown(failure) == 1; }, 3000));
            EXPECT_EQ(text->text(), request == u"<CMSG" ? u"lost"_s : u""_s);
            EXPECT_EQ(prompts.boxes.size(), request == u"<REQUESTJOINCHANNEL" ? 1 : 0);
            messenger.send(all, messenger.lastKey); // too late
            receive({});
            EXPECT_TRUE(shown(u"Ann: lost"_s) == 0 && state.InRoom == staysIn);

            answerWell();
            clock.advance(2000);
            state.CurrentRoomID == 0 ? enter() : void();
            send(u"later"_s);
            EXPECT_TRUE(shown(u"Ann: later"_s) == 1 && text->text().isEmpty());
            window.lifecycle().ResetRoom();
            window.clearBoard();
            prompts.boxes.clear();
        }
    }
}

TEST_F(Faults, AnswersThatComeTwiceOrTooSoon)
{
    enter();
    messenger.answerBy([](const QString &) { return QStringList(2, reply(u"<ACKSM/>"_s)); });
    for (const QString &words : {u"one"_s, u"two"_s}) {
        send(words);
        EXPECT_TRUE(shown(u"Ann: "_s + words) == 1 && text->text().isEmpty());
    }
    EXPECT_EQ(asked(u"<CMSG"_s), 2);

    // Behind another request that is not answered yet, its own answer comes before it was sent.
    answerBadly(u"<USERDETAILS"_s, [this] {
        const int number = messenger.lastKey.mid(1).toInt();
        messenger.send(u"<ACKSM/>"_s, u'C' + QString::number(number + 1));
        QTimer::singleShot(150, &messenger,
                           [=, this] { messenger.send({}, u'C' + QString::number(number)); });
    });
    QTimer::singleShot(20, [this] { send(u"three"_s); });
    clock.advance(2000);
    link.UserDetails(u"u9"_s);
    EXPECT_TRUE(shown(u"Ann: three"_s) == 0 && text->text() == u"three"_s) << "it never left";
    EXPECT_EQ(asked(u"<CMSG"_s), 2);
    send();
    EXPECT_TRUE(shown(u"Ann: three"_s) == 1 && asked(u"<CMSG"_s) == 3);
}

/// A box, what brings it up, and whether it stands in a room of the user's own.
struct Box
{
    const char *name;
    QString caption;
    bool owner;
    std::function<void(Faults &)> open;
};

struct Event
{
    const char *name;
    QString message;
    QString notice;
    bool leaves; ///< the messenger is told that the room is left
};

struct WhileABoxStands : Faults, testing::WithParamInterface<std::tuple<Box, Event, PromptAnswer>>
{};

TEST_P(WhileABoxStands, TheRoomGoesOnceAndForAll)
{
    const auto &[box, happens, answer] = GetParam();
    enter(box.owner);
    prompts.answer = answer;
    prompts.whileOpen = [&, this, message = happens.message] {
        messenger.send(message);
        EXPECT_TRUE(eventually([this] { return isInNoRoom(); }, 3000));
    };
    box.open(*this);
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().contains(box.caption));
    EXPECT_TRUE(isInNoRoom());
    EXPECT_EQ(shown(u"SERVER: " + happens.notice), 1);
    EXPECT_EQ(shown(u"SERVER: You have successfully left the Room!"_s), happens.leaves ? 1 : 0);
    EXPECT_EQ(asked(u"<LEAVECHANNEL"_s) + asked(u"<DESTROYCHANNEL"_s), happens.leaves ? 1 : 0);
    const bool goesOut = box.caption == u"Leave Chat" && answer == PromptAnswer::Yes;
    const bool floods = box.caption == u"Lock up";
    EXPECT_TRUE(eventually([&, this] { return exited == goesOut; }));
    EXPECT_EQ(window.isVisible(), !goesOut);
    EXPECT_TRUE(asked(u"<CMSG"_s) == (floods ? 2 : 0) && text->text() == (floods ? u"three"_s : u""_s));
}

const Box boxes[] = {
    {"LeaveRoom", u"Leave Room"_s, false, [](Faults &room) { room.window.lifecycle().LeaveRoom(true); }},
    {"CloseRoom", u"Close Room"_s, true, [](Faults &room) { room.window.lifecycle().CloseRoom(true); }},
    {"LeaveChat", u"Leave Chat"_s, true,
     [](Faults &room) {
         room.receive(u"<QJC id=\"u2\" nm=\"Bob\"/>"_s);
         room.window.close();
     }},
    {"LockUp", u"Lock up"_s, false,
     [](Faults &room) {
         room.send(u"one"_s);
         room.send(u"two"_s);
         room.send(u"three"_s);
     }},
};

const Event happenings[] = {
    {"Closed", u"<CLD cid=\"12\"/>"_s, u"The room you are in has been closed!"_s, false},
    {"Kicked", u"<RCCMD cid=\"12\" id=\"u1\">DROPUSER userid\\=u1\u0003 nick\\=Ann\u0003</RCCMD>"_s,
     u"User 'Ann' has been kicked from the room!"_s, true},
    {"Offline", u"<OFFLINE/>"_s, u"Currently Pylox is offline!"_s, false},
};

INSTANTIATE_TEST_SUITE_P(Room, WhileABoxStands,
                         testing::Combine(testing::ValuesIn(boxes), testing::ValuesIn(happenings),
                                          testing::Values(PromptAnswer::Yes, PromptAnswer::No)),
                         [](const auto &instance) {
                             const bool yes = std::get<2>(instance.param) == PromptAnswer::Yes;
                             return std::string(std::get<0>(instance.param).name) +
                                    std::get<1>(instance.param).name + (yes ? "Yes" : "No");
                         });

/// A stranger's id and name, and how the name is to be seen.
struct Stranger
{
    QString id;
    QString name;
    QString seen;
};

TEST_F(Faults, NamesAndIdsOfStrangersAreShownAndNeverObeyed)
{
    const Stranger strangers[] = {
        {u"u2"_s, u"Bob"_s, u"Bob"_s},
        {u"u3"_s, u"Bob"_s, u"Bob"_s},
        {u"with a space"_s, u"<b>"_s, u"<b>"_s},
        {u"quoted\"id"_s, u"&lt;<img src=x>"_s, u"&lt;<img src=x>"_s},
        {u"]"_s, u"{\\b x}"_s, u"{\\b x}"_s},
        {u"=~\\"_s, u"\\par }"_s, u"\\par }"_s},
        {u"<b>"_s, u"a\u202Eb\u2066c\u200B"_s, u"abc"_s},
        {u"\u00DCn\u00EF\u4E2D"_s, u"Eve\nSERVER: You may go\r!"_s, u"Eve SERVER: You may go !"_s},
        {u"separators"_s, u"Eve\u2028SERVER:\u2029You\u0085may\u000Bgo"_s, u"Eve SERVER: You may go"_s},
        {u"\u202Eunseen"_s, u"\u202E\u200B"_s, u"unseen"_s},
        {u"%U%%O%"_s, u"%O% %1 [*]"_s, u"%O% %1 [*]"_s},
        {QString(5000, u'i'), QString(300'000, u'n'), QString(199, u'n') + u"\u2026"},
    };
    enter();
    QStringList members = rows();
    for (const auto &[id, name, seen] : strangers) {
        SCOPED_TRACE(id.left(20).toStdString());
        const QString xid = EscapeXML(id);
        const QString xname = EscapeXML(name);
        const QString me = u"u1"_s;
        const QStringList before = board->toPlainText().split(u'\n');
        receive(u"<KCC cid=\"12\" r=\"0\"><E id=\""_s + xid + u"\" nm=\"" + xname + u"\" p=\"1\"/></KCC>" +
                u"<RCMSG cid=\"12\" id=\"" + xid + u"\">" + EscapeXML(u"<SMSG>hi"_s) + u"\u0001" +
                EscapeXML(u"<SMSG>a\u2028SERVER: b\nSERVER: c"_s) + u"\u0001" +
                EscapeXML(QString(u"<EMOT>%U% waves\u0002 user=" + name + u"\u0003")) + u"\u0001</RCMSG>" +
                u"<RCCMD cid=\"12\" id=\"" + xid + u"\">" +
                EscapeXML(QString(u"DROPUSER userid=x\u0003 nick=" + name + u"\u0003")) + u"</RCCMD>" +
                u"<USERONLINE nick=\"" + xname + u"\"/>");
        const QString named = name.size() > 200 || !seen.contains(u"unseen"_s) ? seen : u""_s;
        const QStringList lines = board->toPlainText().split(u'\n').sliced(before.size() - 1);
        EXPECT_EQ(lines.join(u'|').left(5000),
                  (QStringList{u"SERVER: User "_s + seen + u" has entered the room.", seen + u": hi",
                               seen + u": a\u2028    SERVER: b\u2028    SERVER: c", named + u" waves",
                               u"SERVER: User '"_s + named + u"' has been kicked from the room!",
                               u"PYLOX: Your friend '"_s + named + u"' has just come online!"})
                      .join(u'|')
                      .left(5000));
        members += seen;
    }
}

} // namespace
