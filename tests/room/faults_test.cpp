#include "link/xml_codec.h"
#include "support/room_fixture.h"

#include <QLabel>
#include <QMenu>
#include <QScrollBar>

namespace {

const QString connectionClosed = u"SERVER: The connection to Pylox has been closed!"_s;

using Faults = RoomFixture;

struct Breakdown
{
    const char *name;
    QString during; ///< the request that the messenger goes at
    bool reset;     ///< and not closed
    std::function<void(Faults &)> act;
    std::optional<bool> asOwner = {}; ///< of the room that the user is in; none: the user is in no room
};

struct ConnectionEnds : Faults, testing::WithParamInterface<Breakdown>
{};

TEST_P(ConnectionEnds, EveryWaitEndsAndTheWayOutStaysOpen)
{
    answerBadly(GetParam().during,
                [this] { GetParam().reset ? messenger.resetClient() : messenger.closeClient(); });
    text->setText(u"typed"_s);
    if (const auto owner = GetParam().asOwner) {
        enter(*owner);
    }
    GetParam().act(*this);
    EXPECT_TRUE(eventually([this] { return shown(connectionClosed) == 1; }));
    EXPECT_TRUE(isInNoRoom());
    EXPECT_FALSE(shown(u"Ann: typed"_s) > 0 || board->toPlainText().contains(u"contents"_s));
    send();
    EXPECT_EQ(text->text(), u"typed"_s) << "there is nowhere to send it to";
    press(u"smdExit"_s);
    EXPECT_TRUE(eventually([this] { return exited && !window.isVisible(); }));
    EXPECT_EQ(paragraphs(board->document().paragraphCount() - 1), QStringList{connectionClosed})
        << "and nothing more is said";
}

const Breakdown breakdowns[] = {
    {"Joining", u"<REQUESTJOINCHANNEL"_s, false, [](Faults &room) { EXPECT_FALSE(room.join()); }},
    {"TellingOfTheJoin", u"<NOTIFYJOINCHANNEL"_s, true, [](Faults &room) { EXPECT_TRUE(room.join()); }},
    {"FetchingTheContents", u"<GETCHANNELCONTENTS"_s, false, [](Faults &room) { EXPECT_TRUE(room.join()); }},
    {"Sending", u"<CMSG"_s, true, [](Faults &room) { room.send(); }, false},
    {"Leaving", u"<LEAVECHANNEL"_s, false, [](Faults &room) { room.window.lifecycle().LeaveRoom(true); },
     false},
    {"GoingOut", u"<DESTROYCHANNEL"_s, false, [](Faults &room) { room.press(u"smdExit"_s); }, true},
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
            EXPECT_TRUE(failure.isEmpty() ||
                        eventually([&, notice = failure] { return shown(notice) == 1; }, 3000));
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
    QString message; ///< none: the connection ends
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
        message.isEmpty() ? messenger.closeClient() : messenger.send(message);
        EXPECT_TRUE(eventually([this] { return isInNoRoom(); }, 3000));
    };
    box.open(*this);
    EXPECT_EQ(prompts.boxes.size(), 1);
    EXPECT_TRUE(prompts.boxes.first().contains(box.caption));
    EXPECT_TRUE(isInNoRoom());
    EXPECT_EQ(shown(u"SERVER: " + happens.notice), 1);
    EXPECT_EQ(shown(u"SERVER: You have successfully left the Room!"_s), happens.leaves ? 1 : 0);
    EXPECT_FALSE(board->toPlainText().contains(u"server error"_s));
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
    {"Alone", {}, u"The connection to Pylox has been closed!"_s, false},
};

INSTANTIATE_TEST_SUITE_P(Room, WhileABoxStands,
                         testing::Combine(testing::ValuesIn(boxes), testing::ValuesIn(happenings),
                                          testing::Values(PromptAnswer::Yes, PromptAnswer::No)),
                         [](const auto &instance) {
                             const bool yes = std::get<2>(instance.param) == PromptAnswer::Yes;
                             return std::string(std::get<0>(instance.param).name) +
                                    std::get<1>(instance.param).name + (yes ? "Yes" : "No");
                         });

TEST_F(Faults, TheWayOutDoesNotWaitForAQuestion)
{
    enter();
    press(u"smdExit"_s);
    prompts.whileOpen = [this] { EXPECT_TRUE(eventually([this] { return exited; })); };
    window.lifecycle().LeaveRoom(true);
    EXPECT_TRUE(exited && asked(u"<LEAVECHANNEL"_s) == 1);
}

TEST_F(Faults, NamesAndIdsOfStrangersAreShownAndNeverObeyed)
{
    const std::tuple<QString, QString, QString> strangers[] = {
        // id, name, how the name is to be seen
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
    state.RoomName = u"a\u202E\nSERVER: b"_s;
    enter();
    EXPECT_EQ(window.windowTitle(), u" - a SERVER: b"_s);
    QStringList members{u"Owner"_s, u"Online"_s};
    for (const auto &[id, name, seen] : strangers) {
        SCOPED_TRACE(id.left(20).toStdString());
        const QString xid = EscapeXML(id);
        const QString xname = EscapeXML(name);
        const qsizetype before = board->document().paragraphCount();
        receive(u"<KCC cid=\"12\" r=\"0\"><E id=\""_s + xid + u"\" nm=\"" + xname + u"\" p=\"1\"/></KCC>" +
                u"<RCMSG cid=\"12\" id=\"" + xid + u"\">" +
                EscapeXML(u"<SMSG>a\u2028SERVER: b\nSERVER: c\u0001"_s) +
                EscapeXML(QString(u"<EMOT>%U% waves\u0002 user=" + name + u"\u0003\u0001")) + u"</RCMSG>" +
                u"<RCCMD cid=\"12\" id=\"" + xid + u"\">" +
                EscapeXML(QString(u"DROPUSER userid=x\u0003 nick=" + name + u"\u0003")) + u"</RCCMD>" +
                u"<USERONLINE nick=\"" + xname + u"\"/>");
        const QString alone = seen == u"unseen" ? u""_s : seen; // where there is no id to show instead
        EXPECT_EQ(paragraphs(before).first(5),
                  (QStringList{QString(u"SERVER: User " + seen + u" has entered the room."),
                               QString(seen + u": a\u2028    SERVER: b\u2028    SERVER: c"),
                               QString(alone + u" waves"),
                               QString(u"SERVER: User '" + alone + u"' has been kicked from the room!"),
                               QString(u"PYLOX: Your friend '" + alone + u"' has just come online!")}));
        members += seen;
        EXPECT_TRUE(eventually([&] { return rows().sliced(0, members.size()) == members; }, 1000))
            << rows().join(u'|').toStdString();
    }
}

/// The right button on the member whose row has this name; the title of the menu that opens.
QString titleOfMenuOn(frmMain &window, QTreeWidget &list, const QString &name)
{
    const QTreeWidgetItem *row = list.findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    const QPointF place = list.visualItemRect(row).center();
    sendMouse(*list.viewport(), QEvent::MouseButtonRelease, place, Qt::RightButton, {});
    QMenu *menu = window.findChild<QMenu *>();
    QString title = menu == nullptr ? QString() : menu->findChild<QLabel *>()->text();
    delete menu;
    return title;
}

TEST_F(Faults, TheMenuIsThatOfTheMemberWhoseRowIsSeen)
{
    enter();
    receive(u"<KCC cid=\"12\" r=\"0\"><E id=\"u2\" nm=\"Bob\"/><E id=\"u3\" nm=\"Cid\"/>"
            "<E id=\"\u202E&\\<b\\>\n4\" nm=\"Dora\"/></KCC>"_s);
    EXPECT_TRUE(eventually([this] { return rows().contains(u"Dora"_s); }));
    EXPECT_EQ(titleOfMenuOn(window, *list, u"Dora"_s), u"User #&<b> 4"_s);
    QStringList titles;
    const QObject here;
    QObject::connect(&window, &frmMain::privateMessageReceived, &here, [&, this] { // before the next frame
        titles += {titleOfMenuOn(window, *list, u"Bob"_s), titleOfMenuOn(window, *list, u"Cid"_s)};
    });
    receive(u"<KCC cid=\"12\" r=\"0\"><E id=\"u2\" p=\"0\"/></KCC><RCMSG id=\"u9\" tid=\"u1\">x</RCMSG>"_s);
    EXPECT_EQ(titles, (QStringList{u""_s, u"User #u3"_s})) << "Bob has gone";
}

TEST_F(Faults, EveryPrivateMessageOfAFloodArrivesOnceAndInOrder)
{
    QStringList sent;
    QStringList received;
    QByteArray flood;
    for (int at = 0; at < 3000; ++at) {
        sent += u"<SMSG>%1\u0001<EMOT>%1\u0001"_s.arg(at);
        flood += framed(u"<RCMSG cid=\"99\" id=\"u5\" tid=\"u1\">" + EscapeXML(sent.last()) + u"</RCMSG>");
    }
    const QObject here;
    QObject::connect(&window, &frmMain::privateMessageReceived, &here,
                     [&](const QString &, const QString &, const QString &body) { received += body; });
    enter();
    const QString before = board->toPlainText();
    messenger.sendRaw(flood);
    EXPECT_TRUE(eventually([&] { return received.size() >= sent.size(); }));
    receive({});
    EXPECT_EQ(received, sent);
    EXPECT_TRUE(board->toPlainText().startsWith(before + u"\nPYLOX: "_s)) << "no word of them in the room";
}

TEST_F(Faults, ABurstOfMessagesWhileTheUserWritesAndReads)
{
    constexpr int count = 50'000;
    enter();
    receive(u"<KCC cid=\"12\" r=\"0\"><E id=\"u2\" nm=\"Bob\"/></KCC>"_s);
    const qsizetype first = board->document().paragraphCount();
    QByteArray burst;
    QStringList lines;
    for (int at = 0; at < count; ++at) {
        const QString words = u"line %1 of a long evening and so on"_s.arg(at);
        lines += u"Bob: " + words;
        burst += framed(u"<RCMSG cid=\"12\" id=\"u2\">\\<SMSG\\>" + words + u"\u0001</RCMSG>");
    }
    messenger.sendRaw(burst);
    QString typed;
    std::optional<qsizetype> held; // the paragraph at the top once the user has scrolled back
    qsizetype moved = 0;
    QTimer often;
    QObject::connect(&often, &QTimer::timeout, [&, this] {
        const qsizetype arrived = board->document().paragraphCount() - first;
        typed += QChar(static_cast<char16_t>(u'a' + arrived % 26));
        type(typed.last(1));
        if (arrived < count / 2) {
            QScrollBar *bar = board->verticalScrollBar();
            bar->setValue(typed.size() % 2 == 0 ? bar->maximum() : bar->maximum() / 2);
        } else if (!held) {
            board->verticalScrollBar()->setValue(board->verticalScrollBar()->maximum() / 3);
            held = board->placeAt({9, 9}).paragraph;
        } else if (board->placeAt({9, 9}).paragraph != *held) {
            ++moved;
        }
    });
    often.start(1);
    EXPECT_TRUE(eventually([&] { return board->document().paragraphCount() - first >= count; }, 50'000));
    often.stop();
    EXPECT_EQ(paragraphs(first), lines);
    EXPECT_EQ(text->text(), typed);
    EXPECT_TRUE(typed.size() > 20 && held && *held > 1000 && moved == 0 && !board->isAtEnd());
}

TEST_F(Faults, AThousandJoinsAreDrawnOnceAFrame)
{
    enter();
    QByteArray joins;
    for (int at = 0; at < 1000; ++at) {
        joins += framed(u"<KCC cid=\"12\" r=\"0\"><E id=\"m%1\" nm=\"Member %1\" p=\"1\"/></KCC>"_s.arg(at));
    }
    int draws = 0;
    const QObject here;
    QObject::connect(list->model(), &QAbstractItemModel::modelReset, &here, [&] { ++draws; });
    QElapsedTimer elapsed;
    elapsed.start();
    messenger.sendRaw(joins);
    EXPECT_TRUE(eventually([this] { return rows().size() == 1004; }));
    EXPECT_LE(draws, elapsed.elapsed() / 16 + 2);

    // Where the user is in the list, the next redraw leaves the user.
    QTreeWidgetItem *chosen = list->findItems(u"Member 700"_s, Qt::MatchRecursive).value(0);
    list->setCurrentItem(chosen);
    list->verticalScrollBar()->setValue(400);
    const QString top = list->itemAt(QPoint(40, 5))->text(0);
    draws = 0;
    window.DrawUserList();
    EXPECT_TRUE(eventually([&] { return draws == 1; }));
    EXPECT_EQ(list->itemAt(QPoint(40, 5))->text(0), top);
    EXPECT_EQ(list->findItems(u"Member 700"_s, Qt::MatchRecursive).first(), list->currentItem());
}

} // namespace
