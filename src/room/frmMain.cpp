#include "room/frmMain.h"

#include "controls/SkinButton.h"
#include "controls/dressing.h"
#include "core/attribute_text.h"
#include "core/clsMyApp.h"
#include "core/command_line.h"
#include "core/options.h"
#include "core/shared_state.h"
#include "emotions/built_in_pictures.h"
#include "emotions/emoticon_file.h"
#include "emotions/frmEmotShow.h"
#include "link/frmComms.h"
#include "platform/addresses.h"
#include "platform/prompts.h"
#include "platform/rich_edit.h"
#include "room/member_names.h"
#include "room/message_text.h"
#include "room/room_layout.h"
#include "room/saved_settings.h"
#include "skin/caption_look.h"
#include "skin/icon_list.h"
#include "skin/skin_chat_colours.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QShortcut>
#include <QTextDocument>
#include <QTreeWidget>

#include <optional>

namespace {

constexpr QSize designedSize(760, 540);

} // namespace

frmMain::frmMain(SharedState &state, Options &options, frmComms &link, Prompts &prompts,
                 const CommandLine &commandLine, const RoomLooks &looks)
    : SkinnedWindow(looks.skin, looks.windows, WindowDragging::Room, Qt::Window),
      m_state(state),
      m_options(options),
      m_link(link),
      m_prompts(prompts),
      m_commandLine(commandLine),
      m_looks(looks),
      m_controls(*this),
      m_banner(looks.banner, *this),
      m_composeBox(m_controls, prompts),
      m_messages(*m_controls.rtfMsgs, options, m_skinColours, looks.emoticons, imgList),
      m_session(*m_controls.rtfMsgs, prompts, this),
      m_lifecycle(state, m_chatters, link, *this, prompts),
      m_events(state, options, m_chatters, link, m_lifecycle, *this),
      m_admission(state, m_chatters, link, *this),
      m_memberActions(state, m_chatters, link, *this),
      m_composing(state, link, *this),
      m_exitRoad(state, m_lifecycle, link)
{
    setObjectName(QStringLiteral("frmMain"));
    setMinimumSize(roomMinimumSize);
    setRoomCaption({});
    m_controls.imgBanner = m_banner.imgBanner();
    connectControls();
    resize(designedSize);
    frmMain::SetupFormSkin();
    m_composeBox.setFont(m_looks.saved.font()); // and with it the rest of the look
    fillEmotions();
    m_controls.rtfText->setFocus();
    m_link.setRoomEvents(&m_events);
}

frmMain::~frmMain()
{
    m_link.setRoomEvents(nullptr);
}

void frmMain::connectControls()
{
    const RoomControls &c = m_controls;
    c.grdUserList->viewport()->installEventFilter(this); // the mouse
    c.grdUserList->installEventFilter(this);             // the menu key
    connect(c.rtfMsgs, &RichEdit::linkActivated, this, &frmMain::addressActivated);
    connect(&m_banner, &Banner::linkActivated, this, &frmMain::addressActivated);
    connect(c.smdSend, &QAbstractButton::clicked, this, &frmMain::send);
    connect(c.rtfText, &QLineEdit::returnPressed, this, &frmMain::send);
    connect(c.smdMenu, &QAbstractButton::clicked, this, &frmMain::showMenu);
    connect(c.smdEmoticon, &QAbstractButton::clicked, this, &frmMain::showEmoticons);
    connect(c.smdEmotions, &QAbstractButton::clicked, this, &frmMain::switchEmotions);
    connect(c.lstEmotions, &QListWidget::itemDoubleClicked, this, &frmMain::sendChosenEmotion);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *enter = new QShortcut(key, c.lstEmotions);
        enter->setContext(Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, &frmMain::sendChosenEmotion);
    }
    connect(c.lstEmotions, &QListWidget::itemEntered, this,
            [this](const QListWidgetItem *item) { describeEmotion(item->text()); });
    c.lstEmotions->setMouseTracking(true);
    connect(c.smdExit, &QAbstractButton::clicked, &m_exitRoad, &ExitRoad::start);
    connect(c.sysClose, &QAbstractButton::clicked, &m_exitRoad, &ExitRoad::start);
    connect(c.sysMin, &QAbstractButton::clicked, this, &QWidget::showMinimized);
    const auto help = [this] { Q_EMIT helpRequested(QStringLiteral("using_chat")); };
    connect(c.sysHelp, &QAbstractButton::clicked, this, help);
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, help);
    m_composeBox.setNames([this] {
        const DisplayNames shown(m_state);
        QStringList names;
        for (qsizetype at = 1; at <= m_chatters.Count(); ++at) {
            names += shown.of(*m_chatters.Item(at));
        }
        return names;
    });
    connect(&m_composeBox, &ComposeBox::fontChanged, this, [this] {
        takeComposeLook();
        Form_Resize();
    });
    connect(&m_exitRoad, &ExitRoad::ended, this, [this] {
        delete m_palette;
        m_exited = true;
        close();
        Q_EMIT exited();
    });
}

void frmMain::DoSkinChange()
{
    if (m_looks.skin.change()) {
        SkinnedWindow::DoSkinChange();
    }
}

void frmMain::SetupFormSkin()
{
    startSkin();
    m_skinColours = chatColoursOf(skin());
    fillIcons();
    dressRoom(m_controls, m_face, skin());
    skin().FormDefaults(FormItem::ReleaseSystemButtons);
    DrawUserList();
}

void frmMain::layOut()
{
    layOutRoom(m_controls, m_face, size(), m_options.SHOWEMOTIONS);
}

/// The input box has the colours of the user's own words, the board the font that they are written in.
void frmMain::takeComposeLook()
{
    const SystemColours systemColours(QGuiApplication::palette());
    const ColourPair own{systemColours.resolve(m_options.MMTC), systemColours.resolve(m_options.MMBC)};
    QPalette palette = m_controls.rtfText->palette();
    palette.setColor(QPalette::Text, toColor(own.text));
    palette.setColor(QPalette::Base, toColor(own.background));
    m_controls.rtfText->setPalette(palette);
    m_controls.rtfMsgs->setTextColour(toColor(systemColours.resolve(m_options.CMTC)));
    m_controls.rtfMsgs->setBackgroundColour(toColor(systemColours.resolve(m_options.CMBC)));
    m_messages.setInputBox(m_controls.rtfText->font(), own);
}

void frmMain::takeOptions()
{
    takeComposeLook();
}

void frmMain::fillEmotions()
{
    LoadEmotions(Emotions, pagesFolder(QCoreApplication::applicationDirPath()) + u'/'); // those that ship
    LoadEmotions(Emotions, m_looks.skin.myApp().Path());                                // the user's own
    for (qsizetype at = 1; at <= Emotions.Count(); ++at) {
        m_controls.lstEmotions->addItem(Emotions.Item(at)->Emotion);
    }
}

/// Icons that the skin lacks are the program's own.
void frmMain::fillIcons()
{
    imgList.clear();
    imgList.setMaskColour({});
    addBuiltInEmoticons(imgList);
    addProgramIcons(imgList, skin(), devicePixelRatioF());
}

/// The first showing: what needs the messenger waits until the window is on the screen.
void frmMain::showEvent(QShowEvent *event)
{
    SkinnedWindow::showEvent(event);
    if (!m_shownBefore) {
        m_shownBefore = true;
        QMetaObject::invokeMethod(this, &frmMain::activateFirst, Qt::QueuedConnection);
    }
}

void frmMain::activateFirst()
{
    DrawUserList();
    m_link.GetPyloxUsers();
    if (m_exitRoad.isStarted()) {
        return;
    }
    if (m_lifecycle.joinFrom(m_commandLine) && m_commandLine.showCategories()) {
        Q_EMIT directoryRequested();
    }
}

void frmMain::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_exited);
    if (!m_exited && !m_exitRoad.isStarted() && mayClose()) {
        m_exitRoad.start();
    }
}

bool frmMain::mayClose() const
{
    if (!m_state.InRoom || !m_state.IsRoomOwner || m_chatters.Count() < 2) {
        return true;
    }
    return m_prompts.ask(tr("You still have people in your chat room!  Do you still wish to leave?"),
                         tr("Leave Chat"), PromptIcon::Warning, PromptButtons::YesNo) == PromptAnswer::Yes;
}

/// What is typed while the message is on its way stays.
void frmMain::send()
{
    const QString text = m_controls.rtfText->text();
    if (m_composing.send(text, m_controls.rtfText->font())) {
        m_composeBox.sent(text);
    }
}

/// Shown at once, and for the next start.
void frmMain::switchEmotions()
{
    m_options.SHOWEMOTIONS = !m_options.SHOWEMOTIONS;
    m_looks.saved.SaveOptions(m_composeBox.font());
    Form_Resize();
}

/// The member whose row is selected, unless that is the user's own.
const clsChatters *frmMain::selectedMember() const
{
    const QList<QTreeWidgetItem *> rows = m_controls.grdUserList->selectedItems();
    if (rows.isEmpty()) {
        return nullptr;
    }
    const auto member = m_chatters.Item(positionOf(*rows.first(), m_chatters));
    return member == nullptr || member->ID == m_state.MyUserID ? nullptr : member.get();
}

void frmMain::sendChosenEmotion()
{
    if (const QListWidgetItem *emotion = m_controls.lstEmotions->currentItem()) {
        sendEmotion(emotion->text());
    }
}

void frmMain::sendEmotion(const QString &name)
{
    if (const auto emotion = Emotions.Item(name)) {
        // A copy: the member may go while the messenger is waited for.
        const clsChatters *selected = selectedMember();
        const std::optional<clsChatters> member =
            selected == nullptr ? std::nullopt : std::optional(*selected);
        m_composing.sendEmotion(*emotion, member ? &*member : nullptr);
    }
}

/// What the room would read, as the tooltip of the list.
void frmMain::describeEmotion(const QString &name)
{
    const auto emotion = Emotions.Item(name);
    if (emotion == nullptr) {
        return;
    }
    const clsChatters *member = selectedMember();
    const QString text = filledIn(emotionText(*emotion, member), m_state.MyNickname,
                                  member == nullptr ? QString() : member->Nickname);
    m_controls.lstEmotions->setToolTip(
        Qt::mightBeRichText(text) ? QString(u"<qt>" % text.toHtmlEscaped() % u"</qt>") : text);
}

void frmMain::showMenu()
{
    QMenu *menu = makeMenu(tr("Main Menu"));
    addEntry(*menu, tr("Join/Create Room"), &frmMain::directoryRequested);
    addEntry(*menu, tr("Leave Room"), [](frmMain &self) {
        self.m_lifecycle.LeaveRoom(true);
    })->setEnabled(m_state.InRoom && !m_state.IsRoomOwner);
    addEntry(*menu, tr("Close Room"), [](frmMain &self) {
        self.m_lifecycle.CloseRoom(true);
    })->setEnabled(m_state.InRoom && m_state.IsRoomOwner);
    menu->addSeparator();
    addEntry(*menu, tr("Program Options"), &frmMain::optionsRequested);
    menu->addSeparator();
    addEntry(*menu, tr("Save Session"), [](frmMain &self) { self.m_session.save(); });
    addEntry(*menu, tr("Print Session"), [](frmMain &self) { self.m_session.print(); });
    menu->addSeparator();
    addEntry(*menu, tr("Help"),
             [](frmMain &self) { Q_EMIT self.helpRequested(QStringLiteral("using_chat")); });
    menu->popup(m_controls.smdMenu->mapToGlobal(QPoint(0, -menu->sizeHint().height())));
}

/// A pop-up menu in the skin's colours; it goes when it is closed.
QMenu *frmMain::makeMenu(const QString &title)
{
    auto *menu = new QMenu(title, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(title);
    dressMenu(*menu, skin());
    return menu;
}

/// The entry acts when the menu is done with the key or the click: what waits for the messenger would outlive
/// the menu inside the menu's own handler.
QAction *frmMain::addEntry(QMenu &menu, const QString &text, const std::function<void(frmMain &)> &act)
{
    QAction *action = menu.addAction(text);
    connect(
        action, &QAction::triggered, this, [this, act] { act(*this); }, Qt::QueuedConnection);
    return action;
}

void frmMain::showEmoticons()
{
    if (m_palette != nullptr) {
        m_palette->close();
        return;
    }
    m_palette = new frmEmotShow(imgList, skin().ChatRoom(RoomItem::EmoticonToWebsite).bitmap(), this);
    connect(m_palette, &frmEmotShow::picked, this, &frmMain::takeEmoticon);
    m_palette->ShowEmotions(*m_controls.smdEmoticon);
}

void frmMain::takeEmoticon(const QString &key)
{
    if (key == frmEmotShow::webKey) {
        Q_EMIT emoticonHelpRequested();
    } else {
        m_composeBox.WriteEmotion(key, m_looks.emoticons.table());
    }
}

/// The right button opens the menu of a member; of one who waits for approval the left one does too.
bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_controls.grdUserList->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QModelIndex row = m_controls.grdUserList->indexAt(mouse->position().toPoint());
        const auto member = m_chatters.Item(positionOf(row, m_chatters));
        if (mouse->button() == Qt::RightButton || (member != nullptr && member->Pending)) {
            showMemberMenu(row, mouse->globalPosition().toPoint());
        }
    } else if (watched == m_controls.grdUserList && event->type() == QEvent::ContextMenu &&
               static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard) {
        showMemberMenuByKey();
        return true;
    }
    return SkinnedWindow::eventFilter(watched, event);
}

void frmMain::showMemberMenuByKey()
{
    const QModelIndex row = m_controls.grdUserList->currentIndex();
    const QRect place = m_controls.grdUserList->visualRect(row);
    showMemberMenu(row, m_controls.grdUserList->viewport()->mapToGlobal(place.bottomLeft()));
}

void frmMain::showMemberMenu(const QModelIndex &row, QPoint globalPlace)
{
    const MemberMenu member = memberMenu(m_chatters, positionOf(row, m_chatters), m_state);
    if (member.entries.isEmpty()) {
        return;
    }
    QMenu *menu = makeMenu(member.title);
    for (const MemberMenuEntry &entry : member.entries) {
        if (entry.action == MemberAction::Separator) {
            menu->addSeparator();
            continue;
        }
        QAction *action = addEntry(*menu, entry.text, [member, what = entry.action](frmMain &self) {
            self.m_memberActions.perform(what, member);
        });
        action->setEnabled(entry.enabled);
        action->setCheckable(entry.checked.has_value());
        action->setChecked(entry.checked.value_or(false));
    }
    menu->popup(globalPlace);
}

void frmMain::AddMessage(const QString &text, MessageKind kind, const QString &name, const QString &otherName,
                         bool highlight)
{
    m_messages.AddMessage(text, kind, name, otherName, highlight);
}

void frmMain::clearBoard()
{
    m_messages.clear();
}

void frmMain::DrawUserList()
{
    m_memberFrames.request();
}

MemberLooks frmMain::memberLooks() const
{
    const clsSkinResourceNew &skin = m_looks.skin.description();
    if (!skin.isRead()) {
        return {imgList, {}, {}, {}, {}};
    }
    const auto colour = [&](ListItem item) { return toColor(skin.ContactList(item).colour()); };
    return {imgList, skin.ContactList(ListItem::Font).font(), colour(ListItem::HeadingForeColour),
            colour(ListItem::HeadingBackColour), colour(ListItem::OnlineForeColour)};
}

void frmMain::setRoomCaption(const QString &caption)
{
    setWindowTitle(titleFor(caption.isEmpty() ? QStringLiteral("Pylox Chat") : caption));
}

void frmMain::ReceivePrivateMessage(const QString &id, const QString &name, const QString &body)
{
    Q_EMIT privateMessageReceived(id, name, body);
}
