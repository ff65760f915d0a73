#include "controls/SkinButton.h"
#include "directory/directory_tree.h"
#include "directory/frmCategories.h"
#include "link/xml_codec.h"
#include "room/colChatters.h"
#include "room/room_lifecycle.h"
#include "skin/skin_in_use.h"
#include "support/composed.h"
#include "support/input.h"
#include "support/link_fixture.h"
#include "support/recording_view.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {

QString room(const QString &category, int id, const QString &name, int members)
{
    return uR"(<R g="%1" cid="%2" cnm="%3" mc="%4"/>)"_s.arg(category)
        .arg(id)
        .arg(EscapeXML(name))
        .arg(members);
}

QString channels(const QString &rooms)
{
    return QString(u"<CHL>" + rooms + u"</CHL>");
}

struct Directory : LinkFixture
{
    void SetUp() override
    {
        connectLink();
        messenger.answerBy([this](const QString &request) {
            onRequest(request);
            for (const auto &[start, payload] : answers) {
                if (request.startsWith(start)) {
                    clock.advance(payload.isEmpty() ? 31'000 : 0);
                    return payload.isEmpty() ? QStringList() : QStringList{reply(payload)};
                }
            }
            return QStringList{reply(uR"(<KLC r="0"/>)"_s)};
        });
        answer(u"<GETCATEGORIES"_s, uR"(<CTL><C g="1" nm="Lounge"/><C g="2" nm="Games"><C g="3" nm="Chess"/>)"
                                    uR"(<C g="4" nm="Cards"><C g="5" nm="Poker"/></C></C></CTL>)"_s);
        answer(u"<GETCHANNELS"_s, channels({}));
        answer(u"<GETCHANNELS g=\"1\""_s,
               channels(room(u"1"_s, 7, u"Stairs"_s, 3) + room(u"1"_s, 8, u"Attic"_s, 0)));
        answer(u"<REQUESTJOINCHANNEL"_s, uR"(<AJC r="0"/>)"_s);
    }

    /// What is asked with this start is answered so from now on; with nothing, only time goes by.
    void answer(const QString &start, const QString &payload) { answers.prepend({start, payload}); }

    /// Opens the directory, does the steps when it has its categories, and closes it.
    void browse(const std::function<void()> &steps)
    {
        constexpr auto onceLater =
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection);
        const auto standing = [&] {
            steps();
            if (window != nullptr) {
                window->close();
            }
        };
        QObject::connect(tree->model(), &QAbstractItemModel::modelReset, window, standing, onceLater);
        window->Browse();
    }

    [[nodiscard]] QModelIndex find(const QString &text) const
    {
        const QModelIndex first = tree->model()->index(0, 0);
        return tree->model()
            ->match(first, Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }

    void click(const QString &text, bool twice = false)
    {
        const QModelIndex index = find(text);
        ASSERT_TRUE(index.isValid()) << text.toStdString();
        tree->scrollTo(index);
        const QPointF place = tree->visualRect(index).center();
        clickAt(*tree->viewport(), place);
        if (twice) {
            sendMouse(*tree->viewport(), QEvent::MouseButtonDblClick, place);
            sendMouse(*tree->viewport(), QEvent::MouseButtonRelease, place);
        }
        settle();
    }

    /// Until nothing is asked any more.
    void settle()
    {
        QCoreApplication::sendPostedEvents();
        ASSERT_TRUE(eventually(
            [this] { return tree == nullptr || tree->viewport()->cursor().shape() != Qt::BusyCursor; }));
    }

    /// Every row, children indented.
    [[nodiscard]] QStringList rows(const QModelIndex &parent = {}, const QString &indent = {}) const
    {
        QStringList all;
        for (int row = 0; row < tree->model()->rowCount(parent); ++row) {
            const QModelIndex index = tree->model()->index(row, 0, parent);
            all += indent + index.data().toString();
            all += rows(index, indent + u' ');
        }
        return all;
    }

    [[nodiscard]] QStringList asked(const QString &name) const { return messenger.requests.filter(name); }
    [[nodiscard]] SkinButton *button(const QString &name) const
    {
        return window->findChild<SkinButton *>(name, Qt::FindDirectChildrenOnly);
    }
    /// Which of the two that lead into a room can be pressed.
    [[nodiscard]] QString enabled() const
    {
        return QString(button(u"smdOk"_s)->isEnabled() ? u"join"_s : QString()) +
               (button(u"smdCreate"_s)->isEnabled() ? u"create"_s : QString());
    }

    /// Presses Create and does the steps with the dialog that comes.
    void createWith(const std::function<void(frmNewChat &)> &steps)
    {
        QTimer::singleShot(0, window, [this, &steps] {
            auto *dialog = window->findChild<frmNewChat *>();
            ASSERT_NE(dialog, nullptr);
            steps(*dialog);
            dialog->close();
        });
        button(u"smdCreate"_s)->click();
    }
    static void create(frmNewChat &dialog, const QString &name)
    {
        dialog.findChild<QCheckBox *>(u"chkPrivate"_s)->setChecked(true);
        dialog.findChild<QLineEdit *>(u"txtRoom"_s)->insert(name);
        dialog.findChild<SkinButton *>(u"smdOk"_s)->click();
    }

    void beInRoom(bool owner)
    {
        state = {};
        state.CurrentRoomID = 5;
        state.InRoom = true;
        state.IsRoomOwner = owner;
        lifecycle.EnterRoom();
    }
    [[nodiscard]] QString roomState() const
    {
        return QString::number(state.CurrentRoomID) + (state.IsRoomOwner ? u" own "_s : u" "_s) +
               (state.InRoom ? u"in "_s : QString()) + state.RoomCategory + u": "_s + state.RoomName;
    }
    static QStringList errorBox(const QString &text)
    {
        return text.isEmpty() ? QStringList() : QStringList{u"Stop: Room Error: "_s + text};
    }

    QList<QPair<QString, QString>> answers;
    std::function<void(const QString &)> onRequest = [](const QString &) {};
    RecordingView view;
    colChatters chatters;
    RoomLifecycle lifecycle{state, chatters, link, view, prompts};
    SkinInUse skin{myApp};
    WindowDress dress{skin, windows};
    std::unique_ptr<QWidget> desk = std::make_unique<QWidget>();
    QPointer<frmCategories> window = new frmCategories(dress, state, link, lifecycle, prompts, desk.get());
    QPointer<DirectoryTree> tree = window->findChild<DirectoryTree *>(u"tvCats"_s);
};

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

TEST_F(Directory, Creates)
{
    const std::tuple<QString, QString, bool> cases[] = {
        // the answer, the box that comes, and whether the window closes
        {uR"(<ACC r="109"/>)"_s, {}, false},
        {u"<CHL/>"_s, {}, false},
        {uR"(<ACC r="7"/>)"_s, u"Trouble creating room!  Please try again. R=7"_s, false},
        {{}, u"Trouble creating room!  Please try again."_s, false},
        {uR"(<ACC r="0" cid="31"/>)"_s, {}, true},
    };
    browse([&] {
        click(u"Lounge"_s);
        for (const auto &[payload, box, closes] : cases) {
            answer(u"<CREATECHANNEL"_s, payload);
            prompts.boxes.clear();
            createWith([](frmNewChat &dialog) { create(dialog, u"  my \"den\" "_s); });
            EXPECT_EQ(messenger.requests.last(), uR"(<CREATECHANNEL g="1" nm="  my "den" " ty="2"/>)"_s);
            EXPECT_EQ(prompts.boxes, errorBox(box));
            EXPECT_EQ(window->isVisible(), !closes);
        }
    });
    EXPECT_EQ(roomState(), u"31 own in Lounge:   my \"den\" "_s);
}

TEST_F(Directory, ControlsHaveNamesAndPlacesOfTheirOwn)
{
    browse([&] {
        click(u"Lounge"_s);
        expectComposed(*window);
        createWith([](frmNewChat &dialog) { expectComposed(dialog); });
    });
}

TEST_F(Directory, CreatesNothingForOneWhoStays)
{
    beInRoom(true);
    prompts.answer = PromptAnswer::No;
    browse([this] {
        click(u"Lounge"_s);
        createWith([](frmNewChat & /*dialog*/) {});
        EXPECT_TRUE(prompts.boxes.isEmpty()) << "cancelled";
        createWith([](frmNewChat &dialog) { create(dialog, u"den"_s); });
        EXPECT_EQ(prompts.boxes,
                  QStringList{u"Question: Close Room: Do you really wish to close your room?"_s});
        EXPECT_TRUE(asked(u"CREATE"_s).isEmpty() && state.CurrentRoomID == 5);
    });
}

TEST_F(Directory, DoubleClickAndEnterChoose)
{
    browse([this] {
        int dialogs = 0;
        QTimer answering;
        QObject::connect(&answering, &QTimer::timeout, window, [&] {
            if (auto *dialog = window->findChild<frmNewChat *>()) {
                ++dialogs;
                dialog->close();
            }
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

struct TenThousand : Directory
{
    void SetUp() override
    {
        Directory::SetUp();
        QString rooms;
        for (int i = 1; i <= 10'000; ++i) {
            rooms += room(u"1"_s, i, u"Room %1"_s.arg(i), i);
        }
        answer(u"<GETCHANNELS g=\"1\""_s, channels(rooms));
    }
};

TEST_F(TenThousand, AreFiltered)
{
    browse([this] {
        auto *filter = window->findChild<QLineEdit *>(u"txtFilter"_s);
        click(u"Lounge"_s);
        EXPECT_EQ(tree->model()->rowCount(find(u"Lounge (channels: 10000)"_s)), 10'000);
        filter->setText(u"rOOM 999"_s); // and 9990 to 9999
        EXPECT_EQ(rows().size(), 12);
        EXPECT_EQ(enabled(), u"create"_s) << "what is still shown is still selected";
        filter->setText(u"loung"_s);
        EXPECT_EQ(rows().size(), 10'001) << "with all that is in it";
        filter->setText(u"poker"_s);
        EXPECT_EQ(rows(), (QStringList{u"Games"_s, u" Cards"_s, u"  Poker"_s}));
        EXPECT_TRUE(tree->isExpanded(find(u"Cards"_s)) && enabled().isEmpty());
        pressKey(*filter, Qt::Key_Escape);
        EXPECT_EQ(rows().size(), 10'005);
        EXPECT_TRUE(tree->isExpanded(tree->model()->index(0, 0)) && !tree->isExpanded(find(u"Cards"_s)));
        EXPECT_TRUE(window->isVisible());
    });
}

TEST_F(TenThousand, LetEventsRunBetweenTheirBatches)
{
    browse([this] {
        QObject::connect(tree->model(), &QAbstractItemModel::rowsInserted, window,
                         [this] { QTimer::singleShot(0, window, &QWidget::close); });
        click(u"Lounge"_s);
        EXPECT_LT(rows().size(), 10'005) << "a closed window takes no more";
    });
}

/// Whatever is waited for, the directory, or the program, may end: by closing, shutting down, deleting.
struct DirectoryEnds : Directory, testing::WithParamInterface<std::tuple<QString, int>>
{};

TEST_P(DirectoryEnds, InAnyWait)
{
    const auto &[awaited, way] = GetParam();
    const bool creates = awaited == u"<CREATECHANNEL";
    answer(u"<REQUESTJOINCHANNEL"_s, uR"(<AJC r="5"/>)"_s);
    answer(u"<CREATECHANNEL"_s, uR"(<ACC r="0" cid="31"/>)"_s);
    beInRoom(false);
    onRequest = [this, &awaited = awaited, way = way](const QString &request) {
        if (request.startsWith(awaited)) {
            pressKey(*tree, Qt::Key_Down); // what would be next
            const std::function<void()> ways[] = {[this] { window->close(); }, [this] { link.setShutDown(); },
                                                  [this] { desk.reset(); }};
            ways[way]();
        }
    };
    const auto isOpen = [this] { return window != nullptr && window->isVisible() && !link.isShutDown(); };
    browse([&] {
        if (isOpen()) {
            click(u"Lounge"_s);
        }
        if (isOpen() && creates) {
            createWith([](frmNewChat &dialog) { create(dialog, u"den"_s); });
        } else if (isOpen()) {
            click(u"Attic (members: 0)"_s);
            button(u"smdOk"_s)->click();
        }
    });
    EXPECT_EQ(messenger.requests.filter(awaited).size(), 1);
    EXPECT_EQ(messenger.requests.last().startsWith(awaited), true) << "nothing is asked after it";
    EXPECT_EQ(prompts.boxes.filter(u"Room Error"_s), QStringList());
    const bool stays = awaited.startsWith(u"<GET");
    EXPECT_EQ(state.CurrentRoomID, stays ? 5 : creates && way == 0 ? 31 : 0) << "a room is never orphaned";
}

INSTANTIATE_TEST_SUITE_P(Waits, DirectoryEnds,
                         testing::Combine(testing::Values(u"<GETCATEGORIES"_s, u"<GETCHANNELS"_s,
                                                          u"<LEAVECHANNEL"_s, u"<REQUESTJOINCHANNEL"_s,
                                                          u"<CREATECHANNEL"_s),
                                          testing::Values(0, 1, 2)));

TEST_F(Directory, AsksForTheDetailsOfARoom)
{
    browse([this] {
        QStringList help;
        QObject::connect(window, &TitledWindow::helpRequested,
                         [&](const QString &anchor) { help += anchor; });
        click(u"Lounge"_s);
        createWith([this](frmNewChat &dialog) {
            auto *name = dialog.findChild<QLineEdit *>(u"txtRoom"_s);
            auto *isPrivate = dialog.findChild<QCheckBox *>(u"chkPrivate"_s);
            auto *ok = dialog.findChild<SkinButton *>(u"smdOk"_s);
            EXPECT_FALSE(ok->isEnabled());
            pressKey(dialog, Qt::Key_F1);
            name->insert(u"a\x03"_s + QString(100, u'c'));
            EXPECT_EQ(name->text(), QString(u'a' + QString(48, u'c')));
            name->setFocus();
            pressKey(*name, Qt::Key_Return, u"\r"_s);
            EXPECT_EQ(dialog.focusWidget(), isPrivate);
            pressKey(*isPrivate, Qt::Key_Enter, u"\r"_s);
            EXPECT_EQ(dialog.focusWidget(), ok);
            name->clear();
            EXPECT_FALSE(ok->isEnabled());
            ok->setEnabled(true); // no way leads here but this one
            ok->click();
            EXPECT_EQ(prompts.boxes, QStringList{u"Stop: Room name: Please enter a room name!"_s});
            EXPECT_TRUE(dialog.isVisible() && dialog.focusWidget() == name);
        });
        EXPECT_EQ(help, QStringList{u"chat_new"_s});
        createWith([this](const frmNewChat &dialog) {
            window->close();
            EXPECT_FALSE(dialog.isVisible()) << "it goes with the directory";
        });
        EXPECT_TRUE(asked(u"CREATE"_s).isEmpty()) << "closing it is cancelling it";
    });
}

} // namespace
