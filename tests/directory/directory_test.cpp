#include "directory_fixture.h"

namespace {

TEST_F(Directory, AsksForTheRoomsOfTheSelectedCategoryOnce)
{
    browse([this] {
        EXPECT_EQ(rows(), (QStringList{u"Lounge"_s, u"Games"_s, u" Chess"_s, u" Cards"_s, u"  Poker"_s}));
        EXPECT_EQ(messenger.requests, QStringList{u"<GETCATEGORIES/>"_s});
        EXPECT_EQ(enabled(), QString());
        click(u"Lounge"_s);
        const auto look = [this](const QString &text) {
            return std::pair(find(text).data(Qt::ForegroundRole).value<QColor>().name(),
                             find(text).data(Qt::FontRole).value<QFont>().bold());
        };
        EXPECT_EQ(look(u"Lounge (channels: 2)"_s), std::pair(u"#0000ff"_s, true));
        EXPECT_EQ(look(u"Attic (members: 0)"_s), std::pair(u"#ff0000"_s, true));
        EXPECT_FALSE(look(u"Chess"_s).second);
        for (const auto &row : {u"Lounge (channels: 2)"_s, u"Attic (members: 0)"_s, u"Poker"_s}) {
            click(row);
        }
        EXPECT_EQ(asked(u"GETCHANNELS"_s), (QStringList{u"<GETCHANNELS g=\"1\" st=\"1\"/>"_s,
                                                        u"<GETCHANNELS g=\"2-4-5\" st=\"1\"/>"_s}));
    });
}

TEST_F(Directory, WhatCanBeDoneWithARow)
{
    answer(u"<GETCHANNELS g=\"2-3\""_s, channels(room(u"2-3"_s, 9, u"Blitz"_s, 1)));
    browse([this] {
        click(u"Lounge"_s);
        const std::pair<QString, QString> cases[] = {
            {u"Lounge (channels: 2)"_s, u"create"_s},
            {u"Attic (members: 0)"_s, u"join"_s},
            {u"Games"_s, u"create"_s}, // topmost, whatever is below
            {u"Chess"_s, u"create"_s}, // nothing was below
            {u"Blitz (members: 1)"_s, u"join"_s},
            {u"Cards"_s, {}}, // holds categories only
        };
        for (const auto &[row, chosen] : cases) {
            click(row);
            EXPECT_EQ(enabled(), chosen) << row.toStdString();
        }
    });
}

TEST_F(Directory, ARoomStandsWhereItSaysItBelongs)
{
    answer(u"<GETCHANNELS g=\"2\""_s,
           channels(room(u"2"_s, 20, u"Dice"_s, 1) + room(u"1"_s, 9, u"Cellar"_s, 2) +
                    room(u"1"_s, 7, u"Stairs"_s, 3) + room(u"2-3"_s, 21, u"Open"_s, 5) +
                    room(u"99"_s, 22, u"Nowhere"_s, 1) + room(u"2"_s, 0, u"No number"_s, 1) +
                    u"<R g=\"2\" cid=\"23\" cnm=\"No count\"/>"_s));
    browse([this] {
        click(u"Lounge"_s);
        click(u"Games"_s);
        EXPECT_EQ(rows(), (QStringList{
                              u"Lounge (channels: 3)"_s, u" Stairs (members: 3)"_s, u" Attic (members: 0)"_s,
                              u" Cellar (members: 2)"_s, u"Games (channels: 1)"_s, u" Chess (channels: 1)"_s,
                              u"  Open (members: 5)"_s, u" Cards"_s, u"  Poker"_s, u" Dice (members: 1)"_s}));
        click(u"Chess (channels: 1)"_s);
        EXPECT_EQ(asked(u"GETCHANNELS"_s).size(), 2) << "its rooms are known";
    });
}

TEST_F(Directory, TellsWhatCouldNotBeHad)
{
    answer(u"<GETCHANNELS g=\"1\""_s, {});
    answer(u"<GETCHANNELS g=\"2-3\""_s, u"<PYLOXUSERS/>"_s);
    browse([this] {
        for (const auto &row : {u"Lounge"_s, u"Chess"_s, u"Lounge(ERR)"_s}) {
            click(row);
        }
        EXPECT_EQ(rows().first(3), (QStringList{u"Lounge(ERR)"_s, u"Games"_s, u" Chess"_s}));
        EXPECT_EQ(asked(u"GETCHANNELS"_s).size(), 2);
    });
    for (const auto &[reply, text] : {std::pair(u"<CHL/>"_s, u"Unable to get list from server!"_s),
                                      std::pair(QString(), u"Unable to contact server!"_s)}) {
        answer(u"<GETCATEGORIES"_s, reply);
        window = new frmCategories(dress, state, link, lifecycle, prompts, desk.get());
        tree = window->findChild<DirectoryTree *>();
        browse([&, error = text] {
            EXPECT_EQ(rows(), QStringList{error});
            click(error);
            EXPECT_EQ(enabled(), QString());
        });
    }
    EXPECT_EQ(asked(u"GETCHANNELS"_s).size(), 2);
}

TEST_F(Directory, Joins)
{
    const std::tuple<QString, QString, bool> cases[] = {
        {uR"(<AJC r="109"/>)"_s, u"The room you are trying to join is full!  Please try again."_s, true},
        {uR"(<AJC r="5"/>)"_s, u"Could not send request to join room!  Please try again."_s, false},
        {uR"(<AJC r="0"/>)"_s, {}, false},
    };
    browse([&] {
        click(u"Lounge"_s);
        click(u"Attic (members: 0)"_s);
        for (const auto &[payload, box, owner] : cases) {
            beInRoom(owner);
            answer(u"<REQUESTJOINCHANNEL"_s, payload);
            messenger.requests.clear();
            prompts.boxes.clear();
            button(u"smdOk"_s)->click();
            EXPECT_EQ(messenger.requests,
                      (QStringList{owner ? u"<DESTROYCHANNEL cid=\"5\"/>"_s : u"<LEAVECHANNEL cid=\"5\"/>"_s,
                                   uR"(<REQUESTJOINCHANNEL cid="8" id="" nm=""/>)"_s}));
            EXPECT_EQ(prompts.boxes, errorBox(box));
            EXPECT_EQ(window->isVisible(), !box.isEmpty());
            EXPECT_EQ(roomState(), QString((box.isEmpty() ? u"8" : u"0") + u" Lounge: Attic"_s));
        }
    });
}

TEST_F(Directory, StaysWhenTheRoomIsClosedBeforeTheAnswer)
{
    onRequest = [this](const QString &request) {
        if (request.startsWith(u"<REQUESTJOINCHANNEL")) {
            lifecycle.ResetRoom();
        }
    };
    browse([&] {
        click(u"Lounge"_s);
        click(u"Attic (members: 0)"_s);
        button(u"smdOk"_s)->click();
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(prompts.boxes, QStringList()) << "the board tells of it";
    });
}

TEST_F(Directory, DoubleClickAndEnterChoose)
{
    browse([this] {
        int dialogs = 0;
        QTimer answering;
        QObject::connect(&answering, &QTimer::timeout, window, [&] {
            auto *dialog = window->findChild<frmNewChat *>();
            dialogs += dialog != nullptr && dialog->close() ? 1 : 0;
        });
        answering.start(5);
        click(u"Lounge"_s, true);
        EXPECT_EQ(dialogs, 0) << "its rooms were not known yet";
        click(u"Lounge (channels: 2)"_s, true);
        EXPECT_TRUE(eventually([&] { return dialogs == 1; }));
        tree->collapseAll();
        pressKey(*tree, Qt::Key_Return);
        settle();
        EXPECT_TRUE(dialogs == 1 && tree->isExpanded(tree->currentIndex()));
        pressKey(*tree, Qt::Key_A, u"a"_s);
        EXPECT_EQ(tree->currentIndex().data().toString(), u"Attic (members: 0)"_s);
        pressKey(*tree, Qt::Key_Return);
        pressKey(*tree, Qt::Key_Return);
        EXPECT_TRUE(eventually([this] { return !window->isVisible(); }));
    });
    EXPECT_EQ(asked(u"REQUESTJOIN"_s).size(), 1);
    EXPECT_EQ(state.CurrentRoomID, 8);
}

TEST_F(Directory, AHeldArrowKeyAsksForWhereItEnds)
{
    onRequest = [this](const QString &request) {
        for (int i = 0; i < 3 && request.startsWith(u"<GETCHANNELS g=\"1\""); ++i) {
            pressKey(*tree, Qt::Key_Down);
        }
    };
    browse([this] {
        tree->expandAll();
        QFocusEvent focus(QEvent::FocusIn);
        QCoreApplication::sendEvent(tree, &focus);
        pressKey(*tree, Qt::Key_Down); // to the first row, not to the second
        settle();
        EXPECT_EQ(asked(u"GETCHANNELS"_s), (QStringList{u"<GETCHANNELS g=\"1\" st=\"1\"/>"_s,
                                                        u"<GETCHANNELS g=\"2-4\" st=\"1\"/>"_s}));
    });
}

TEST_F(Directory, NamesOfStrangers)
{
    const QString name = u"<b>x</b> (members: 9)\n & (channels: 1)"_s;
    answer(u"<GETCATEGORIES"_s, u"<CTL><C nm=\"No code\"/><C g=\"1\" nm=\"A (channels: 5)\"/>"
                                u"<C g=\"1\" nm=\"Taken\"/></CTL>"_s);
    answer(u"<GETCHANNELS"_s, channels(room(u"1"_s, 7, name, 3)));
    browse([this] {
        EXPECT_EQ(rows(), QStringList{u"A (channels: 5)"_s});
        click(rows().first());
        EXPECT_EQ(rows().last(), u" <b>x</b> (members: 9)  & (channels: 1) (members: 3)"_s);
        click(rows().last().sliced(1));
        EXPECT_TRUE(tree->currentIndex().data(Qt::ToolTipRole).toString().contains(u"&lt;b&gt;"_s));
        button(u"smdOk"_s)->click();
    });
    EXPECT_EQ(roomState(), QString(u"7 A (channels: 5): " + name));
}

TEST(DirectoryModel, ShowsWhatCanBeSeen)
{
    const QString text = u"<CTL><C g=\"7\" nm=\"\u202Eab\u200B\n\x01"
                         u"c\"/><C g=\"8\" nm=\"\u200B\"/></CTL>"_s;
    XMLDocument document;
    qsizetype position = 1;
    ASSERT_TRUE(ParseElement(text, document.root, position));
    DirectoryModel model;
    model.addCategories(document.root);
    EXPECT_EQ(model.index(0, 0).data().toString(), u"ab  c"_s);
    EXPECT_EQ(model.index(1, 0).data().toString(), u"8"_s);
    DirectoryModel::node(model.index(0, 0))->rooms = 1;
    for (const QColor &ground : {QColor(Qt::white), QColor(0x0f, 0x12, 0x17)}) {
        model.setGround(ground);
        const auto ink = model.index(0, 0).data(Qt::ForegroundRole).value<QColor>();
        EXPECT_EQ(ink == QColor(0, 0, 255), ground == QColor(Qt::white));
        EXPECT_TRUE(ink.blue() == 255 && qAbs(qGray(ink.rgb()) - qGray(ground.rgb())) > 100);
    }
}

} // namespace
