#include "room/frmMain.h"

#include "core/attribute_text.h"
#include "core/command_line.h"
#include "core/options.h"
#include "core/shared_state.h"
#include "emotions/built_in_pictures.h"
#include "link/frmComms.h"
#include "platform/prompts.h"
#include "platform/rich_edit.h"
#include "room/member_list.h"
#include "skin/icon_list.h"
#include "skin/skin_chat_colours.h"
#include "skin/skin_in_use.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

/// A child widget under its name, which tests and assistive programs find it by.
template <typename Widget>
Widget *make(QWidget *parent, const char16_t *name, const QString &accessibleName)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(QStringView(name).toString());
    widget->setAccessibleName(accessibleName);
    return widget;
}

QFont toFont(const ComposeFont &saved)
{
    QFont font(saved.name);
    font.setPointSizeF(saved.size);
    font.setBold(saved.bold);
    font.setItalic(saved.italic);
    font.setUnderline(saved.underlined);
    return font;
}

/// A plain widget would be heard as a thing of no kind.
QAccessibleInterface *accessibleFor([[maybe_unused]] const QString &className, QObject *object)
{
    auto *window = qobject_cast<frmMain *>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Window);
}

} // namespace

frmMain::frmMain(SharedState &state, const Options &options, frmComms &link, Prompts &prompts,
                 const CommandLine &commandLine, const RoomLooks &looks)
    : m_state(state),
      m_link(link),
      m_prompts(prompts),
      m_commandLine(commandLine),
      m_looks(looks),
      rtfMsgs(make<RichEdit>(this, u"rtfMsgs", tr("Message board"))),
      rtfText(make<QLineEdit>(this, u"rtfText", tr("Message"))),
      grdUserList(make<QTreeWidget>(this, u"grdUserList", tr("Members"))),
      smdSend(make<QPushButton>(this, u"smdSend", tr("Send"))),
      smdMenu(make<QPushButton>(this, u"smdMenu", tr("Menu"))),
      smdExit(make<QPushButton>(this, u"smdExit", tr("Exit"))),
      m_messages(*rtfMsgs, options, m_skinColours, looks.emoticons, imgList),
      m_session(*rtfMsgs, prompts, this),
      m_lifecycle(state, m_chatters, link, *this, prompts),
      m_events(state, options, m_chatters, link, m_lifecycle, *this),
      m_admission(state, m_chatters, link, *this),
      m_memberActions(state, m_chatters, link, *this),
      m_composing(state, link, *this),
      m_exitRoad(state, m_lifecycle, link)
{
    QAccessible::installFactory(accessibleFor); // a factory that is there already is not added again
    setObjectName(QStringLiteral("frmMain"));
    setRoomCaption({});
    arrange();
    rtfText->setFont(toFont(m_looks.font));
    m_messages.setInputBox(rtfText->font(), {});
    SetupFormSkin();
    m_looks.windows.enter(*this);
    rtfMsgs->setTextColour(toColor(options.CMTC));
    rtfMsgs->setBackgroundColour(toColor(options.CMBC));
    connect(rtfMsgs, &RichEdit::linkActivated, this, &frmMain::addressActivated);
    connect(smdSend, &QPushButton::clicked, this, &frmMain::send);
    connect(rtfText, &QLineEdit::returnPressed, this, &frmMain::send);
    connect(smdMenu, &QPushButton::clicked, this, &frmMain::showMenu);
    connect(smdExit, &QPushButton::clicked, &m_exitRoad, &ExitRoad::start);
    connect(&m_exitRoad, &ExitRoad::ended, this, [this] {
        m_exited = true;
        close();
        Q_EMIT exited();
    });
    m_link.setRoomEvents(&m_events);
}

frmMain::~frmMain()
{
    m_looks.windows.leave(*this);
    m_link.setRoomEvents(nullptr);
}

void frmMain::DoSkinChange()
{
    if (m_looks.skin.change()) {
        SetupFormSkin();
    }
}

void frmMain::SetupFormSkin()
{
    m_skinColours = chatColoursOf(m_looks.skin.description());
    fillIcons();
    const clsSkinResourceNew &skin = m_looks.skin.description();
    if (skin.isRead()) {
        const auto colour = [&](ListItem item) { return toColor(skin.ContactList(item).colour()); };
        QPalette palette = grdUserList->palette();
        palette.setColor(QPalette::Base, colour(ListItem::BackColour));
        palette.setColor(QPalette::Text, colour(ListItem::ForeColour));
        palette.setColor(QPalette::Highlight, colour(ListItem::HighlightBackColour));
        palette.setColor(QPalette::HighlightedText, colour(ListItem::HighlightForeColour));
        grdUserList->setPalette(palette);
    }
    DrawUserList();
}

/// Icons that the skin lacks are the program's own.
void frmMain::fillIcons()
{
    imgList.clear();
    addBuiltInEmoticons(imgList);
    try {
        addProgramIcons(imgList, m_looks.skin.myApp(), devicePixelRatioF());
    } catch (const SkinError &error) {
        m_looks.skin.report(QString(u"skin icons not used: " % error.reason()));
    }
}

void frmMain::arrange()
{
    rtfMsgs->setReadOnly(true);
    grdUserList->setHeaderLabel(tr("Members")); // not seen, but heard
    grdUserList->setHeaderHidden(true);
    grdUserList->setSelectionBehavior(QAbstractItemView::SelectItems);
    grdUserList->setRootIsDecorated(true);
    grdUserList->setFixedWidth(180);
    grdUserList->viewport()->installEventFilter(this); // the mouse
    grdUserList->installEventFilter(this);             // the menu key
    smdSend->setText(tr("&Send"));
    smdMenu->setText(tr("&Menu"));
    smdExit->setText(tr("E&xit"));

    auto *conversation = new QHBoxLayout;
    conversation->addWidget(rtfMsgs, 1);
    conversation->addWidget(grdUserList);
    auto *writing = new QHBoxLayout;
    writing->addWidget(rtfText, 1);
    writing->addWidget(smdSend);
    auto *commands = new QHBoxLayout;
    commands->addWidget(smdMenu);
    commands->addStretch(1);
    commands->addWidget(smdExit);
    auto *all = new QVBoxLayout(this);
    all->addLayout(conversation, 1);
    all->addLayout(writing);
    all->addLayout(commands);

    QWidget *before = rtfText;
    for (QWidget *next : {static_cast<QWidget *>(smdSend), static_cast<QWidget *>(rtfMsgs),
                          static_cast<QWidget *>(grdUserList), static_cast<QWidget *>(smdMenu),
                          static_cast<QWidget *>(smdExit)}) {
        setTabOrder(before, next);
        before = next;
    }
    rtfText->setFocus();
    resize(720, 480);
}

/// The first showing: what needs the messenger waits until the window is on the screen.
void frmMain::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_shownBefore) {
        m_shownBefore = true;
        QMetaObject::invokeMethod(this, &frmMain::activateFirst, Qt::QueuedConnection);
    }
}

void frmMain::activateFirst()
{
    DrawUserList();
    m_link.GetPyloxUsers();
    m_lifecycle.joinFrom(m_commandLine);
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
    const QString text = rtfText->text();
    if (m_composing.send(text, rtfText->font())) {
        if (rtfText->text() == text) {
            rtfText->clear();
        }
        rtfText->setFocus();
    }
}

void frmMain::showMenu()
{
    QMenu menu(tr("Main Menu"), this);
    menu.setAccessibleName(menu.title());
    QAction *leave = menu.addAction(tr("Leave Room"), this, [this] { m_lifecycle.LeaveRoom(true); });
    leave->setEnabled(m_state.InRoom && !m_state.IsRoomOwner);
    QAction *closeRoom = menu.addAction(tr("Close Room"), this, [this] { m_lifecycle.CloseRoom(true); });
    closeRoom->setEnabled(m_state.InRoom && m_state.IsRoomOwner);
    menu.addSeparator();
    menu.addAction(tr("Save Session"), &m_session, &SessionCommands::save);
    menu.addAction(tr("Print Session"), &m_session, &SessionCommands::print);
    menu.addSeparator();
    menu.addAction(tr("Help"), this, [this] { Q_EMIT helpRequested(QStringLiteral("using_chat")); });
    menu.exec(smdMenu->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
}

/// The right button opens the menu of a member; of one who waits for approval the left one does too.
bool frmMain::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == grdUserList->viewport() && event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const QModelIndex row = grdUserList->indexAt(mouse->position().toPoint());
        const auto member = m_chatters.Item(positionOf(row));
        if (mouse->button() == Qt::RightButton || (member != nullptr && member->Pending)) {
            showMemberMenu(row, mouse->globalPosition().toPoint());
        }
    } else if (watched == grdUserList && event->type() == QEvent::ContextMenu &&
               static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard) {
        showMemberMenuByKey();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmMain::showMemberMenuByKey()
{
    const QModelIndex row = grdUserList->currentIndex();
    const QRect place = grdUserList->visualRect(row);
    showMemberMenu(row, grdUserList->viewport()->mapToGlobal(place.bottomLeft()));
}

void frmMain::showMemberMenu(const QModelIndex &row, QPoint globalPlace)
{
    const MemberMenu member = memberMenu(m_chatters, positionOf(row), m_state);
    if (member.entries.isEmpty()) {
        return;
    }
    auto *menu = new QMenu(member.title, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName(menu->title());
    for (const MemberMenuEntry &entry : member.entries) {
        if (entry.action == MemberAction::Separator) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(
            entry.text, this, [this, member, what = entry.action] { m_memberActions.perform(what, member); });
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
    drawMemberList(*grdUserList, m_chatters, m_state, memberLooks());
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
    setWindowTitle(caption.isEmpty() ? QStringLiteral("Pylox Chat") : caption);
}

/// Until private conversations have windows of their own, they are lines of the board.
void frmMain::ReceivePrivateMessage([[maybe_unused]] const QString &id, const QString &name,
                                    const QString &body)
{
    for (qsizetype start = 0, end = 0; (end = body.indexOf(itemEnd, start)) >= 0; start = end + 1) {
        const QString item = body.sliced(start, end - start);
        if (item.startsWith(u"<SMSG>")) {
            AddMessage(item.sliced(6), MessageKind::Member, name + u" (private)");
        }
    }
}
