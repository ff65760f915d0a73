#pragma once

#include "controls/SkinButton.h"
#include "directory/directory_tree.h"
#include "directory/frmCategories.h"
#include "link/xml_codec.h"
#include "room/colChatters.h"
#include "room/room_lifecycle.h"
#include "skin/skin_in_use.h"
#include "support/input.h"
#include "support/link_fixture.h"
#include "support/recording_view.h"

#include <QCheckBox>
#include <QLineEdit>

/// The directory over a messenger that has a few categories, and rooms in one of them.
struct Directory : LinkFixture
{
    void SetUp() override
    {
        connectLink();
        QObject::connect(window, &frmCategories::left, [this] { roomsWhenLeft += state.CurrentRoomID; });
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

    static QString room(const QString &category, int id, const QString &name, int members)
    {
        return uR"(<R g="%1" cid="%2" cnm="%3" mc="%4"/>)"_s.arg(category, QString::number(id),
                                                                 EscapeXML(name), QString::number(members));
    }
    static QString channels(const QString &rooms) { return QString(u"<CHL>" + rooms + u"</CHL>"); }

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
        EXPECT_TRUE(eventually([this] { return window == nullptr || window->isHidden(); }));
        QCoreApplication::sendPostedEvents();
    }

    [[nodiscard]] QModelIndex find(const QString &text) const
    {
        const QAbstractItemModel &model = *tree->model();
        constexpr auto whole = Qt::MatchExactly | Qt::MatchRecursive;
        return model.match(model.index(0, 0), Qt::DisplayRole, text, 1, whole).value(0);
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
    QList<qint32> roomsWhenLeft;
    RecordingView view;
    colChatters chatters;
    RoomLifecycle lifecycle{state, chatters, link, view, prompts};
    SkinInUse skin{myApp};
    WindowDress dress{skin, windows};
    std::unique_ptr<QWidget> desk = std::make_unique<QWidget>();
    QPointer<frmCategories> window = new frmCategories(dress, state, link, lifecycle, prompts, desk.get());
    QPointer<DirectoryTree> tree = window->findChild<DirectoryTree *>(u"tvCats"_s);
};
