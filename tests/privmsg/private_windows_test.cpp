#include "controls/SkinButton.h"
#include "core/options.h"
#include "emotions/emoticon_file.h"
#include "platform/image_list.h"
#include "platform/rich_edit.h"
#include "platform/text_looks.h"
#include "privmsg/message_edit.h"
#include "privmsg/private_windows.h"
#include "privmsg/split_strip.h"
#include "room/message_board.h"
#include "skin/caption_look.h"
#include "skin/skin_in_use.h"
#include "support/composed.h"
#include "support/input.h"
#include "support/link_fixture.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

namespace {

const QString sentAt = u"\t05 Mar, 2026 12:16:40 PM\n"_s; // by the clock of the tests

/// A private window and its controls by their names.
struct Shown
{
    explicit Shown(QWidget *shown) : window(shown) {}

    [[nodiscard]] SkinButton *button(const QString &name) const
    {
        return window->findChild<SkinButton *>(name);
    }
    [[nodiscard]] QString detail(int index) const
    {
        return window->findChild<QLabel *>(u"lblDetails_%1"_s.arg(index))->text();
    }
    [[nodiscard]] QString conversation() const { return rtfConv->toPlainText(); }
    void enter(Qt::KeyboardModifiers modifiers = {}) const
    {
        pressKey(*txtMsg, Qt::Key_Return, u"\r"_s, modifiers);
    }

    QPointer<QWidget> window;
    RichEdit *rtfConv = window->findChild<RichEdit *>(u"rtfConv"_s);
    MessageEdit *txtMsg = window->findChild<MessageEdit *>(u"txtMsg"_s);
    SplitStrip *lblSplit = window->findChild<SplitStrip *>(u"lblSplit"_s);
    SplitStrip *picSplit = window->findChild<SplitStrip *>(u"picSplit"_s);
    SkinButton *smdSend = button(u"smdSend"_s);
    SkinButton *smdClose = button(u"smdClose"_s);
};

struct PrivateWindowsTest : LinkFixture
{
    void SetUp() override
    {
        connectLink();
        state.MyUserID = u"u1"_s;
        state.MyNickname = u"Ann"_s;
        state.InRoom = true;
        state.CurrentRoomID = 12;
        rtfText.setFont(QFont(u"DejaVu Sans"_s, 10, QFont::Bold, true));
        messages.setInputBox(rtfText.font(), {});
        messenger.answerBy([this](const QString &request) {
            const bool answered = request.startsWith(u"<USERDETAILS"_s) || acknowledges;
            return answered ? QStringList{reply(u"<ACKSM/>"_s)} : QStringList();
        });
    }

    /// The windows on the screen, by their titles.
    static QStringList titles()
    {
        QStringList titles;
        for (const QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"frmPrivMsg" && window->isVisible()) {
                titles += window->windowTitle();
            }
        }
        titles.sort();
        return titles;
    }

    static Shown shown(const QString &name)
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->windowTitle() == QString(name + u" - Private Message")) {
                return Shown(window);
            }
        }
        throw std::runtime_error("no such window");
    }

    /// The user writes to Bob.
    Shown writeToBob()
    {
        all.ReceivePrivateMessage(u"u2"_s, u"Bob"_s, {});
        return shown(u"Bob"_s);
    }

    QString stored(const QString &key) { return settings.ReadValue(key, u"none"_s, u"ChatPrivMsg-u2"_s); }
    void store(const QString &key, const QString &value)
    {
        settings.WriteValue(key, value, u"ChatPrivMsg-u2"_s);
    }

    bool acknowledges = true;
    Options options{.UNTC = 1, .MMTC = 3, .CNTC = 5, .CMTC = 7, .SNORMAL = 11};
    ChatColours skinColours;
    EmoticonFile emoticons{u"/nowhere/"_s};
    ImageList imgList;
    RichEdit board;
    MessageBoard messages{board, options, skinColours, emoticons, imgList};
    QLineEdit rtfText;
    SkinInUse skin{myApp};
    PrivateWindows all{{skin, windows}, {state, options, link, settings, messages, rtfText, clock}};
};

/// The colour of the characters with these words.
ColourValue colourOf(const RichEdit &box, const QString &words)
{
    const qsizetype at = box.toPlainText().indexOf(words);
    const RichDocument part = box.document().copy(at, at + words.size());
    return part.format(part.paragraph(0).runs().front().format).colour;
}

TEST_F(PrivateWindowsTest, EachPersonHasAWindow)
{
    QImage image(1, 1, QImage::Format_RGB32);
    imgList.add(u"eHappy"_s, image);
    all.ReceivePrivateMessage(u"u2"_s, u"Bob"_s, u"<SMSG>hi :)\1{\\rtf1 \\b raw}\1plain\1lost"_s);
    all.ReceivePrivateMessage(u"u3"_s, u"Cat\nDog"_s, u"<SMSG><b>psst\1"_s);
    all.ReceivePrivateMessage(u"u3"_s, u"Cat\nDog"_s, u"<SMSG>come\1"_s);
    EXPECT_EQ(titles(), QStringList{u"Bob - Private Message"_s}) << "a turn of events has one window";
    EXPECT_TRUE(eventually([] { return titles().size() == 2; }));
    EXPECT_TRUE(shown(u"Cat Dog"_s).conversation().contains(QRegularExpression(u"psst\n \n.*\n.*come"_s)));
    const Shown bob = shown(u"Bob"_s);
    const QString before = u"Bob%1hi :)\n \nBob%1raw\n \nBob%1plain\n "_s.arg(sentAt);
    EXPECT_EQ(bob.conversation(), before);
    EXPECT_EQ(bob.rtfConv->document().picture(1).code, u":)"_s);
    EXPECT_TRUE(colourOf(*bob.rtfConv, u"Bob"_s) == 5 && colourOf(*bob.rtfConv, u"05 "_s) == 11 &&
                colourOf(*bob.rtfConv, u"hi"_s) == 7);

    all.ReceivePrivateMessage(u"u2"_s, u"Rob"_s, u"<SMSG>again\1"_s);
    EXPECT_EQ(titles().size(), 2);
    EXPECT_EQ(bob.conversation(), QString(before + u"\nRob" + sentAt + u"again\n "));
    EXPECT_EQ(bob.window->windowTitle(), u"Bob - Private Message"_s) << "as it was when it was loaded";
    EXPECT_TRUE(bob.detail(0) == u"u2" && bob.detail(1) == u"Rob");

    bob.window->close();
    EXPECT_EQ(titles(), QStringList{u"Cat Dog - Private Message"_s});
    EXPECT_TRUE(eventually([&] { return bob.window == nullptr; })) << "it goes by itself";
    all.ReceivePrivateMessage(u"u2"_s, u"Bob"_s, u"<SMSG>new\1"_s);
    EXPECT_EQ(shown(u"Bob"_s).conversation(), QString(u"Bob" + sentAt + u"new\n "));
}

TEST_F(PrivateWindowsTest, ATitleIsTheNameAsItIs)
{
    all.ReceivePrivateMessage(u"u2"_s, u"[*]x [*][*]"_s, {});
    ASSERT_TRUE(eventually([] { return QApplication::activeWindow() != nullptr; }));
    const QWidget *window = QApplication::activeWindow();
    EXPECT_EQ(window->windowHandle()->title(), u"[*]x [*][*] - Private Message"_s);
    EXPECT_EQ(captionOf(window->windowTitle()), u"[*]x [*][*] - Private Message"_s);
}

TEST_F(PrivateWindowsTest, WhatIsTypedStaysUntilItHasArrived)
{
    const Shown bob = writeToBob();
    EXPECT_FALSE(bob.smdSend->isEnabled());
    bob.enter();
    EXPECT_TRUE(messenger.requests.isEmpty());

    bob.txtMsg->setPlainText(u"x<u>\x02y"_s);
    EXPECT_TRUE(bob.smdSend->isEnabled());
    state.InRoom = false;
    bob.enter();
    EXPECT_EQ(bob.txtMsg->text(), u"x<u>\x02y"_s) << "no room, nothing sent";
    state.InRoom = true;
    QTimer::singleShot(0, [&] { bob.smdSend->click(); }); // while the first is on its way
    bob.enter(Qt::ShiftModifier);
    EXPECT_EQ(
        messenger.requests,
        QStringList{u"<CMSG cid=\"12\" id=\"u1\" tid=\"u2\">\\<SMSG\\>\\<b\\>\\<i\\>x\\<u\\>y\1</CMSG>"_s});
    EXPECT_EQ(bob.conversation(), QString(u"Ann" + sentAt + u"xy\n "));
    EXPECT_TRUE(colourOf(*bob.rtfConv, u"Ann"_s) == 1 && colourOf(*bob.rtfConv, u"xy"_s) == 3);
    EXPECT_TRUE(bob.txtMsg->isEmpty() && !bob.smdSend->isEnabled());

    bob.txtMsg->setPlainText(u"sent"_s);
    QTimer::singleShot(0, [&] { bob.txtMsg->appendPlainText(u"and more"_s); });
    bob.smdSend->click();
    EXPECT_EQ(bob.txtMsg->text(), u" and more"_s);
    messenger.closeClient();
    bob.smdSend->click();
    EXPECT_EQ(bob.txtMsg->text(), u" and more"_s);
    EXPECT_FALSE(bob.conversation().contains(u"more"));
}

TEST_F(PrivateWindowsTest, AWindowMayBeClosedWhileItWaits)
{
    acknowledges = false;
    for (const bool arrives : {true, false}) {
        const Shown bob = writeToBob();
        bob.txtMsg->setPlainText(u"hello"_s);
        QTimer::singleShot(0, [&] { bob.smdClose->click(); });
        QTimer::singleShot(300, [&] {
            EXPECT_TRUE(bob.window != nullptr && titles().isEmpty());
            arrives ? messenger.send(u"<ACKSM/>"_s, u"C1"_s) : messenger.closeClient();
        });
        bob.enter();
        EXPECT_TRUE(eventually([&] { return bob.window == nullptr; }));
        EXPECT_TRUE(titles().isEmpty());
        const Shown again = writeToBob();
        EXPECT_EQ(again.txtMsg->text(), arrives ? u""_s : u"hello"_s) << "what did not arrive is not lost";
        pressKey(*again.txtMsg, Qt::Key_Escape);
        EXPECT_TRUE(titles().isEmpty());
    }
    EXPECT_EQ(writeToBob().txtMsg->text(), u"hello"_s);
}

/// Notes how the last private window came to be shown: this platform activates each of them.
struct ShowWatcher final : QObject
{
    ShowWatcher() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && watched->objectName() == u"frmPrivMsg") {
            quietly = static_cast<QWidget *>(watched)->testAttribute(Qt::WA_ShowWithoutActivating);
        }
        return false;
    }
    bool quietly = false;
};

TEST_F(PrivateWindowsTest, OnlyTheUserGivesAWindowTheKeyboard)
{
    const ShowWatcher watcher;
    QWidget other;
    other.show();
    const auto activeAfter = [&](const QString &body) {
        other.activateWindow();
        (void)eventually([&] { return QApplication::activeWindow() == &other; });
        all.ReceivePrivateMessage(u"u2"_s, u"Bob"_s, body);
        (void)eventually([] { return false; }, 100);
        return QApplication::activeWindow();
    };
    (void)activeAfter(u"<SMSG>hi\1"_s);
    EXPECT_TRUE(watcher.quietly);
    EXPECT_EQ(activeAfter(u"<SMSG>hi\1"_s), &other);
    const Shown bob = shown(u"Bob"_s);
    bob.window->showMinimized();
    EXPECT_EQ(activeAfter(u"<SMSG>hi\1"_s), &other);
    EXPECT_TRUE(bob.window->isMinimized());
    EXPECT_EQ(activeAfter({}), bob.window);
    EXPECT_TRUE(!bob.window->isMinimized() && bob.txtMsg->hasFocus());
    bob.window->close();
    (void)activeAfter({});
    EXPECT_FALSE(watcher.quietly);
}

TEST_F(PrivateWindowsTest, ManyStrangersOpenAFewWindowsAndLoseNothing)
{
    for (int stranger = 1; stranger <= 60; ++stranger) {
        all.ReceivePrivateMessage(u"s%1"_s.arg(stranger), u"S%1"_s.arg(stranger), u"<SMSG><b>hi\1x\1"_s);
    }
    all.ReceivePrivateMessage(u"s9"_s, u"S9"_s, {});
    EXPECT_EQ(shown(u"S9"_s).conversation().count(u"hi"_s), 1)
        << "what waited is there when the user comes first";
    EXPECT_TRUE(eventually([] { return titles().size() == 50; }));
    EXPECT_EQ(board.toPlainText().count(u"SERVER: Private message from 'S"_s), 20);
    EXPECT_TRUE(board.toPlainText().startsWith(u"SERVER: Private message from 'S51': hi\n"_s));
    writeToBob();
    EXPECT_EQ(titles().size(), 51) << "the user may";
    all.UnloadAll();
    for (const QString &id : {u""_s, u"u2\" cid=\"1"_s, u"u2\\"_s}) {
        all.ReceivePrivateMessage(id, u"X"_s, u"<SMSG>hi\1"_s);
        EXPECT_TRUE(board.toPlainText().endsWith(u"SERVER: Private message from 'X': hi"_s));
    }
    EXPECT_TRUE(titles().isEmpty()) << "an answer would go elsewhere";
}

TEST_F(PrivateWindowsTest, PlacementIsKept)
{
    const QSize designed = writeToBob().window->size();
    QWidget *bob = shown(u"Bob"_s).window;
    bob->move(30, 40);
    bob->resize(designed + QSize(60, 20));
    const int conversation = shown(u"Bob"_s).rtfConv->height();
    bob->close();
    EXPECT_EQ((QStringList{stored(u"Left"_s), stored(u"Top"_s), stored(u"Width"_s), stored(u"Height"_s),
                           stored(u"ConvHeight"_s)}),
              (QStringList{u"450"_s, u"600"_s, QString::number(15 * (designed.width() + 60)),
                           QString::number(15 * (designed.height() + 20)), QString::number(conversation)}));

    Shown again = writeToBob();
    EXPECT_EQ(QRect(again.window->pos(), again.window->size()),
              QRect(QPoint(30, 40), designed + QSize(60, 20)));
    again.window->resize(designed);
    const QString lower = QString::number(again.rtfConv->height());
    again.window->showMinimized();
    again.window->close();
    EXPECT_TRUE(stored(u"ConvHeight"_s) == lower && stored(u"Left"_s) == u"450" &&
                stored(u"Width"_s) == QString::number(15 * (designed.width() + 60)));

    store(u"Left"_s, u"-99999999"_s);
    store(u"Width"_s, u"wide"_s);
    again = writeToBob();
    EXPECT_EQ(again.window->x(), again.window->screen()->availableGeometry().x());
    EXPECT_EQ(again.window->width(), again.window->minimumWidth());
    all.ReceivePrivateMessage(u"x"_s.repeated(100), u"Long"_s, {});
    all.UnloadAll();
    QFile file(settings.FileName);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("xxx"));
}

TEST_F(PrivateWindowsTest, TheSplitterStopsBeforeTheEdges)
{
    const Shown bob = writeToBob();
    const auto splitAfter = [&](int top) {
        sendMouse(*bob.lblSplit, QEvent::MouseButtonPress, {5, 2});
        sendMouse(*bob.lblSplit, QEvent::MouseMove, QPointF(5, top - bob.lblSplit->y()));
        EXPECT_TRUE(bob.picSplit->isVisible() && bob.picSplit->y() == top);
        sendMouse(*bob.lblSplit, QEvent::MouseButtonRelease, {5, 0});
        EXPECT_FALSE(bob.picSplit->isVisible());
        EXPECT_EQ(bob.rtfConv->geometry().bottom() + 1 + 6, bob.lblSplit->y());
        EXPECT_EQ(bob.txtMsg->y(), bob.lblSplit->y() + 10);
        EXPECT_EQ(bob.txtMsg->geometry().bottom() + 1 + 8, bob.smdClose->y());
        return bob.lblSplit->y();
    };
    EXPECT_EQ(splitAfter(150), 150);
    EXPECT_EQ(splitAfter(-500), 100);
    const int lowest = splitAfter(5000);
    EXPECT_LE(lowest, bob.window->height() - 100);
    EXPECT_GE(bob.txtMsg->height(), bob.txtMsg->heightOf(1));
    pressKey(*bob.lblSplit, Qt::Key_Up);
    EXPECT_EQ(bob.lblSplit->y(), lowest - 10);
    bob.window->resize(bob.window->minimumSize());
    EXPECT_GE(bob.rtfConv->height(), 40);
}

TEST_F(PrivateWindowsTest, AViewThatTheUserHasMovedBackStays)
{
    const Shown bob = writeToBob();
    QScrollBar *bar = bob.rtfConv->verticalScrollBar();
    const auto valueAfter = [&](int count) {
        for (int message = 0; message < count; ++message) {
            all.ReceivePrivateMessage(u"u2"_s, u"Bob"_s, u"<SMSG>hi\1"_s);
        }
        (void)eventually([] { return false; }, 100);
        return bar->value();
    };
    const int end = valueAfter(30);
    EXPECT_TRUE(0 < end && end < valueAfter(1));
    bob.txtMsg->setPlainText(u"being typed"_s);
    windows.changeSkin();
    EXPECT_TRUE(end < valueAfter(0) && bob.txtMsg->text() == u"being typed");
    bar->setValue(10);
    EXPECT_EQ(valueAfter(1), 10);
}

TEST_F(PrivateWindowsTest, ButtonsLinksAndHelp)
{
    const Shown bob = writeToBob();
    bob.button(u"smdInfo"_s)->click();
    EXPECT_EQ(messenger.requests, QStringList{u"<USERDETAILS id=\"u2\"/>"_s});
    QString anchor;
    QObject::connect(&all, &PrivateWindows::helpRequested, [&](const QString &asked) { anchor = asked; });
    pressKey(*bob.txtMsg, Qt::Key_F1);
    EXPECT_EQ(anchor, u"chat_privmsg"_s);
    QUrl opened;
    QObject::connect(&all, &PrivateWindows::addressActivated, [&](const QUrl &address) { opened = address; });
    Q_EMIT bob.rtfConv->linkActivated(QUrl(u"http://a.example"_s));
    EXPECT_EQ(opened.host(), u"a.example"_s);
    QApplication::clipboard()->setText(u"two\r\nlines\u2028here"_s);
    bob.txtMsg->paste();
    EXPECT_EQ(bob.txtMsg->toPlainText(), u"two lines here"_s);
    expectNames(*bob.window);
}

} // namespace
