#pragma once

#include "core/options.h"
#include "emotions/emoticon_file.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"
#include "room/saved_settings.h"
#include "skin/skin_in_use.h"
#include "support/input.h"
#include "support/link_fixture.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QTreeWidget>

#include <algorithm>

/// The whole room window, in a room or out of it, with a messenger that does well until it is told otherwise.
struct RoomFixture : LinkFixture
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

    /// An unsolicited message as it is on the wire, for many at once.
    static QByteArray framed(const QString &payload) { return event(payload).toUtf8() + '\0'; }

    /// An unsolicited message, handled when this returns.
    void receive(const QString &payload)
    {
        const QString mark = u"mark %1"_s.arg(++marks);
        messenger.send(payload);
        messenger.send(u"<USERONLINE nick=\"" + mark + u"\"/>");
        ASSERT_TRUE(eventually([&] { return board->toPlainText().contains(mark); }));
    }

    void type(const QString &words) { pressKey(*text, 0, words); }

    /// What is in the box already, or these words. The box is empty afterwards if they were taken.
    void send(const QString &words = {})
    {
        if (!words.isEmpty()) {
            text->setText(words);
        }
        pressKey(*text, Qt::Key_Return, u"\r"_s);
    }

    void press(const QString &button) { window.findChild<QAbstractButton *>(button)->click(); }

    /// Everything that can be seen of it says that there is no room.
    [[nodiscard]] bool isInNoRoom()
    {
        return !state.InRoom && state.CurrentRoomID == 0 && window.lifecycle().ShownRoomID() == 0 &&
               window.windowTitle() == u"Pylox Chat" &&
               eventually([this] { return rows() == QStringList{u"Owner"_s}; });
    }

    [[nodiscard]] qsizetype shown(const QString &line) const
    {
        return board->toPlainText().split(u'\n').count(line);
    }

    /// Of the board, from this one on.
    [[nodiscard]] QStringList paragraphs(qsizetype first) const
    {
        QStringList all;
        for (qsizetype at = first; at < board->document().paragraphCount(); ++at) {
            all += board->document().paragraph(at).text().toString();
        }
        return all;
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
