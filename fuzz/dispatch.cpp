// Whole messages into the room: a messenger of ill will at the other end of a real socket, the link with its
// queue and its dispatcher, and all that stands behind the room window. The input says how the room is to
// begin with, and then what comes, NUL by NUL: a message as it stands ("{key}" is the key of the request that
// came last), or, where the first byte is a control character, something that the user does. While the
// program waits for an answer, the next piece of the input is what comes. No input may leave anything behind
// for the next one.

#include "core/clsMyApp.h"
#include "core/command_line.h"
#include "core/options.h"
#include "core/shared_state.h"
#include "directory/directory_model.h"
#include "directory/room_entry.h"
#include "emotions/built_in_pictures.h"
#include "emotions/colEmotions.h"
#include "emotions/emoticon_file.h"
#include "link/frmComms.h"
#include "link/xml_codec.h"
#include "platform/image_list.h"
#include "platform/rich_edit.h"
#include "platform/settings_file.h"
#include "platform/skinnable.h"
#include "platform/tcp_listener.h"
#include "privmsg/privmsg_rtf.h"
#include "room/admission.h"
#include "room/colChatters.h"
#include "room/composing.h"
#include "room/member_list.h"
#include "room/member_menu.h"
#include "room/member_names.h"
#include "room/message_board.h"
#include "room/room_events.h"
#include "room/room_lifecycle.h"
#include "room/room_view.h"
#include "support/fake_clock.h"
#include "support/fake_prompts.h"
#include "user_file.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QTimer>
#include <QTreeWidget>

#include <algorithm>
#include <memory>

namespace {

/// What costs time to make and holds nothing of an input when the next one comes.
struct House
{
    House()
    {
        listener.listen(0);
        directory.show(); // rooms are entered from one that can be seen
        addBuiltInEmoticons(imgList);
        for (const auto &[file, page] : {std::pair{western, "windows-1252"}, {utf8, "utf-8"}}) {
            putFile(file, QByteArray(QByteArray("[Chat]\nCodePage=") + page +
                                     "\nPort=" + QByteArray::number(listener.port())));
        }
    }

    const QString western = scratchFile(QStringLiteral("western.ini"));
    const QString utf8 = scratchFile(QStringLiteral("utf8.ini"));
    TcpListener listener;
    clsMyApp myApp{scratchFile(QStringLiteral("home"))};
    EmoticonFile emoticons{myApp.Path()};
    ImageList imgList;
    QTreeWidget memberList;
    QWidget directory;
};

/// Nothing in it that would end a line or steer a terminal.
bool isOneParagraph(QStringView text)
{
    return std::ranges::none_of(text, [](QChar c) { return (c < u' ' && c != u'\t') || c == u'\u2029'; });
}

bool isClean(QStringView text)
{
    return isOneParagraph(text) && !text.contains(u'\u2028') && std::ranges::none_of(text, [](QChar c) {
               return c.category() == QChar::Other_Control && c != u'\t';
           });
}

/// None of its lines but the first begins where a message does.
bool isIndented(QStringView text)
{
    return isOneParagraph(text) && text.count(u'\u2028') == text.count(u"\u2028    ");
}

bool isCleanName(const QString &name)
{
    return name.size() <= 200 && isClean(name) && !name.contains(u'\u202E');
}

/// The key of a request, which must be one, whatever ids and names are in it.
QString keyOf(const QString &request)
{
    XMLDocument tree;
    qsizetype position = 1;
    require(ParseElement(request, tree.root, position) && position == request.size());
    require(tree.root.MsgName == u"MSG" && tree.root.XMLMessage.Count() == 2);
    require(tree.root.XMLMessage.Item(2)->XMLMessage.Count() == 0);
    return tree.root.XMLMessage.Item(1)->value(u"mk").value().toString();
}

/// The board of the room, looked at after every message.
class Board final : public RoomView
{
public:
    Board(House &house, const Options &options)
        : m_messages(m_rtfMsgs, options, m_skinColours, house.emoticons, house.imgList)
    {}

    void AddMessage(const QString &text, MessageKind kind, const QString &name, const QString &otherName,
                    bool highlight) override
    {
        const RichDocument &document = m_rtfMsgs.document();
        const qsizetype before = document.length() == 0 ? 0 : document.paragraphCount();
        m_messages.AddMessage(text, kind, name, otherName, highlight);
        require(document.paragraphCount() == before + 1);
        const QStringView shown = document.paragraph(before).text();
        require(isIndented(shown));
        if (kind >= MessageKind::Normal) {
            require(isClean(shown) &&
                    shown.startsWith(kind <= MessageKind::Error ? u"SERVER: " : u"PYLOX: "));
        }
        connectionClosed = connectionClosed || text == u"The connection to Pylox has been closed!";
    }
    void clearBoard() override { m_messages.clear(); }
    void DrawUserList() override {}
    void setRoomCaption(const QString &caption) override { require(isClean(caption)); }
    void ReceivePrivateMessage(const QString &id, const QString &name, const QString &body) override
    {
        require(isCleanName(name) && (userActs || !body.isEmpty()));
        require(isClean(shownPeerName(name, id)));
        for (const QString &text : {body, m_messages.GeneratePrivateMsg(body)}) {
            const RichDocument shown = privateBody(text, {});
            require(shown.paragraphCount() == 1 && isIndented(shown.paragraph(0).text()));
        }
    }

    bool connectionClosed = false;
    bool userActs = false; ///< what happens now is what the user wants

private:
    RichEdit m_rtfMsgs;
    ChatColours m_skinColours;
    MessageBoard m_messages;
};

class Evening
{
public:
    Evening(House &house, Input input);
    void run();

private:
    void begin(unsigned char how, unsigned char acceptMode);
    void turn();
    void goOn();
    void end();
    void readRequests();
    void receive(QByteArrayView message);
    void act(unsigned char what, QByteArrayView detail);
    void actOnMember(QByteArrayView detail);
    void actInRoom(unsigned char what, QByteArrayView detail);
    void browse(const QString &name);
    void check();
    void checkMemberList();
    static void checkRows(const DirectoryModel &model, const QModelIndex &parent);

    House &m_house;
    Input m_input;
    SharedState m_state;
    Options m_options;
    SettingsFile m_settings;
    LoadedWindows m_windows;
    FakePrompts m_prompts;
    FakeClock m_clock;
    frmComms m_link{m_state, m_house.myApp, m_settings, m_windows, m_prompts, m_clock};
    Board m_board{m_house, m_options};
    colChatters m_chatters;
    RoomLifecycle m_lifecycle{m_state, m_chatters, m_link, m_board, m_prompts};
    RoomEvents m_events{m_state, m_options, m_chatters, m_link, m_lifecycle, m_board};
    Admission m_admission{m_state, m_chatters, m_link, m_board};
    MemberActions m_memberActions{m_state, m_chatters, m_link, m_board};
    Composing m_composing{m_state, m_link, m_board};

    std::unique_ptr<TcpSocket> m_messenger;
    MessageFramer m_requests;
    QByteArray m_key;      ///< of the request that came last
    QByteArray m_together; ///< messages that go out with the next one
    QTimer m_pump;
    int m_turnsAfterEnd = 0;
    unsigned char m_ending = 0;
    int m_nesting = 0; ///< things that the user does inside others
    bool m_acted = false;
    bool m_browsing = false;
};

Evening::Evening(House &house, Input input) : m_house(house), m_input(input)
{
    const unsigned char how = m_input.byte();
    const unsigned char acceptMode = m_input.byte();
    m_ending = acceptMode / 8 % 4;
    m_settings.FileName = (how & 1) != 0 ? m_house.utf8 : m_house.western;
    require(m_link.ConnectToClient(CommandLine()));
    m_messenger = m_house.listener.accept();
    require(m_messenger != nullptr);
    m_messenger->setReading(false); // it is read when its turn comes
    m_link.setRoomEvents(&m_events);
    begin(how, acceptMode);
    QObject::connect(&m_pump, &QTimer::timeout, &m_link, [this] { turn(); });
}

void Evening::begin(unsigned char how, unsigned char acceptMode)
{
    m_state.MyUserID = QStringLiteral("u1");
    m_state.MyNickname = QStringLiteral("Ann");
    AddToList(m_state.lists, u'A', QStringLiteral("u5"), QStringLiteral("Eve"));
    AddToList(m_state.lists, u'I', QStringLiteral("u6"), QStringLiteral("Max"));
    AddToList(m_state.lists, u'P', QStringLiteral("u7"), QStringLiteral("Kim"));
    m_options.AcceptMode = static_cast<AcceptMode>(acceptMode % 5);
    m_options.EMOTICONS = (how & 2) != 0;
    m_options.ShowEnterLeave = (how & 4) != 0;
    m_options.ShowFriendOnline = (how & 8) != 0;
    m_prompts.answer = (how & 16) != 0 ? PromptAnswer::Yes : PromptAnswer::No;
    if ((how & 32) != 0) {
        m_state.CurrentRoomID = 12;
        m_state.IsRoomOwner = (how & 64) != 0;
        m_state.InRoom = (how & 128) != 0;
        m_lifecycle.EnterRoom();
    }
}

/// Until the connection is over, which is the last thing that happens, and nobody waits any more.
void Evening::run()
{
    m_pump.start(0);
    for (int turns = 0; !m_board.connectionClosed; ++turns) {
        require(turns < 100'000);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    m_pump.stop();
    m_link.cleanUp();
    require(m_link.queue().records().Count() == 0 && m_nesting == 0);
    check();
    require(m_lifecycle.ShownRoomID() == 0 && m_chatters.Count() == 0);
    checkMemberList();
    m_house.memberList.clear();
    m_house.myApp.Skin.clear();
    m_messenger->reset(); // leaves no port behind
}

void Evening::turn()
{
    m_pump.start(0); // for whatever waits inside this one
    m_link.cleanUp();
    m_link.sendNext();
    readRequests();
    check();
    if (m_input.atEnd()) {
        end();
    } else {
        goOn();
    }
}

void Evening::goOn()
{
    const QByteArrayView piece = m_input.part();
    if (piece.isEmpty() || static_cast<unsigned char>(piece.front()) >= ' ') {
        receive(piece);
        return;
    }
    constexpr int deepest = 12; // as deep as nobody gets who clicks
    if (m_nesting < deepest) {
        ++m_nesting;
        m_acted = true;
        act(static_cast<unsigned char>(piece.front()), piece.sliced(1));
        --m_nesting;
        check();
    }
}

/// The messenger says nothing more, or the user leaves; then it goes.
void Evening::end()
{
    ++m_turnsAfterEnd;
    if (m_ending == 1) {
        m_clock.advance(41'000);
    } else if (m_ending == 2) {
        m_link.setShutDown();
    }
    if (m_turnsAfterEnd == 4) {
        m_ending == 3 ? m_messenger->reset() : m_messenger->close();
    }
}

void Evening::readRequests()
{
    while (m_messenger->state() == TcpSocket::State::Connected) {
        const auto result = m_messenger->read(m_requests.tail());
        if (result.status != TcpSocket::ReadStatus::Data) {
            return;
        }
        m_requests.commit(result.count);
        while (const auto request = m_requests.next()) {
            m_key = keyOf(QString::fromUtf8(*request)).toUtf8();
        }
    }
}

void Evening::receive(QByteArrayView message)
{
    m_together += message.toByteArray().replace("{key}", m_key) + '\0';
    m_messenger->write(std::exchange(m_together, {}));
}

void Evening::act(unsigned char what, QByteArrayView detail)
{
    const QScopedValueRollback guard(m_board.userActs, true);
    const QString text = QString::fromUtf8(detail);
    switch (what) {
    case 1:
        m_together += detail.toByteArray().replace("{key}", m_key) + '\0';
        break;
    case 2:
        m_admission.check();
        break;
    case 3:
        m_clock.advance(detail.isEmpty() ? 1000 : 500 * detail.front());
        break;
    case 4:
        m_link.GetPyloxUsers();
        break;
    case 5:
        actOnMember(detail);
        break;
    case 6:
        m_options.AcceptMode = static_cast<AcceptMode>(text.size() % 5);
        break;
    case 7:
        m_prompts.answer = text.isEmpty() ? PromptAnswer::No : PromptAnswer::Yes;
        break;
    case 8:
        checkMemberList();
        break;
    default:
        actInRoom(what, detail);
        break;
    }
}

void Evening::actOnMember(QByteArrayView detail)
{
    if (detail.size() < 2) {
        return;
    }
    const MemberMenu menu = memberMenu(m_chatters, detail[0] - '0', m_state);
    const auto wanted = static_cast<MemberAction>(detail[1] - '0');
    if (std::ranges::any_of(menu.entries,
                            [&](const auto &entry) { return entry.action == wanted && entry.enabled; })) {
        require(isClean(menu.title));
        m_memberActions.perform(wanted, menu);
    }
}

void Evening::actInRoom(unsigned char what, QByteArrayView detail)
{
    const QString text = QString::fromUtf8(detail);
    switch (what) {
    case 11:
        m_lifecycle.LeaveRoom(text.isEmpty());
        break;
    case 12:
        m_lifecycle.CloseRoom(text.isEmpty());
        break;
    case 14:
        browse(text);
        break;
    case 15:
        m_lifecycle.EnterRoom();
        break;
    case 16:
        if (m_state.CurrentRoomID == 0) {
            m_lifecycle.joinFrom(CommandLine({QString(u"-cid12-cnm" + text + u'~')}));
        }
        break;
    case 17:
        (void)m_composing.send(text, QFont());
        break;
    case 18:
        m_composing.sendEmotion(
            {QStringLiteral("Wave"), QStringLiteral("%U% waves"), QStringLiteral("%U% waves at %O%")},
            m_chatters.Item(m_chatters.Count()).get());
        break;
    default:
        break;
    }
}

/// What the directory does: the lists, and into a room. It is one dialog.
void Evening::browse(const QString &name)
{
    if (m_browsing) {
        return;
    }
    const QScopedValueRollback guard(m_browsing, true);
    DirectoryModel model;
    if (const Reply categories = m_link.GetCategories(); categories.element() != nullptr) {
        model.addCategories(*categories.element());
    }
    for (int row = 0; row < model.rowCount(); ++row) {
        DirectoryNode &category = *DirectoryModel::node(model.index(row, 0));
        if (const Reply rooms = m_link.GetChannels(category.key); row == 0 && rooms.element() != nullptr) {
            (void)model.addRooms(rooms.element()->XMLMessage.begin(), {});
        }
    }
    model.setFilter(name.left(1));
    checkRows(model, {});
    RoomEntry entry(m_house.directory, m_state, m_link, m_lifecycle, m_prompts);
    QString typed = name; // which goes out as it is, and breaks the request when it holds one of these
    typed.remove(u'"').remove(u'\\');
    const bool entered = name.startsWith(u'o')
                             ? entry.create({QStringLiteral("1"), QStringLiteral("A"), typed, false})
                             : entry.join({12, QStringLiteral("A"), name});
    require(!entered || m_state.CurrentRoomID != 0);
    m_lifecycle.EnterRoom();
}

void Evening::checkRows(const DirectoryModel &model, const QModelIndex &parent)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        require(index.isValid() && index.parent() == parent);
        require(isClean(index.data().toString()));
        checkRows(model, index);
    }
}

void Evening::check()
{
    require(m_acted || m_prompts.boxes.isEmpty());
    require(m_state.CurrentRoomID != 0 || (!m_state.InRoom && m_lifecycle.ShownRoomID() == 0));
    require(m_state.CurrentRoomID != 0 || m_chatters.Count() == 0);
    for (qsizetype at = 1; at <= m_chatters.Count(); ++at) {
        const auto member = m_chatters.Item(at);
        require(m_chatters.withId(member->ID) == member);
        require(isCleanName(displayName(*member, m_state)));
        require(!member->Owner || !member->Pending);
    }
}

/// Every member has one row, and every row is its member's.
void Evening::checkMemberList()
{
    QTreeWidget &list = m_house.memberList;
    drawMemberList(list, m_chatters, m_state, {m_house.imgList, {}, {}, {}, {}});
    qsizetype rows = 0;
    for (QTreeWidgetItemIterator row(&list); *row != nullptr; ++row) {
        if ((*row)->parent() != nullptr) {
            const auto member = m_chatters.Item(positionOf(**row, m_chatters));
            require(member != nullptr && (*row)->text(0) == displayName(*member, m_state));
            ++rows;
        }
    }
    require(rows == m_chatters.Count());
}

} // namespace

/// The font library keeps what it has found out, and nobody may ask it to let go.
extern "C" const char *__lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    static int count = 1;
    static char name[] = "dispatch";
    static char *arguments[] = {name, nullptr};
    static auto *application = new QApplication(count, arguments); // it must outlive everything
    static auto *house = new House;
    Q_UNUSED(application)
    {
        Evening evening(*house, Input(data, size));
        evening.run();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
