#include "directory/frmCategories.h"

#include "controls/SkinFrame.h"
#include "controls/dressing.h"
#include "controls/fitting_button.h"
#include "controls/make_control.h"
#include "controls/native_look.h"
#include "core/clsMyApp.h"
#include "directory/directory_tree.h"
#include "link/frmComms.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>

#include <utility>

namespace {

constexpr int margin = 8;
constexpr QSize designedSize(380, 440); // of the client area
constexpr int leastTreeHeight = 120;

} // namespace

frmCategories::frmCategories(const WindowDress &dress, SharedState &state, frmComms &link,
                             RoomLifecycle &lifecycle, Prompts &prompts, QWidget *owner)
    : TitledWindow(dress, {u"frmCategories", u"chat_categories"}, owner),
      m_dress(dress),
      m_link(link),
      m_prompts(prompts),
      m_entry(*this, state, link, lifecycle, prompts),
      txtFilter(makeControl<QLineEdit>(*this, u"txtFilter", tr("Filter"))),
      skfCats(makeControl<SkinFrame>(*this, u"skfCats")),
      tvCats(makeControl<DirectoryTree>(*this, u"tvCats", tr("Categories and rooms"))),
      smdOk(makeButton(*this, u"smdOk", tr("Join"), tr("&Join"))),
      smdCreate(makeButton(*this, u"smdCreate", tr("Create"), tr("C&reate"))),
      smdCancel(makeButton(*this, u"smdCancel", tr("Cancel"), tr("&Cancel")))
{
    setWindowTitle(tr("Chat Categories"));
    txtFilter->setPlaceholderText(tr("Filter categories and rooms"));
    txtFilter->setClearButtonEnabled(true);
    skfCats->setMinimumHeight(leastTreeHeight);
    tvCats->setModel(&m_model);
    tvCats->setFocus();
    setDefaultButton(smdOk);
    connectControls();
    enableButtons();
    placeControls();
    frmCategories::SetupFormSkin();
    resize(sizeAround(designedSize.expandedTo(m_grid.sizeHint())));
}

void frmCategories::placeControls()
{
    m_grid.setContentsMargins(margin, margin, margin, margin);
    m_grid.setSpacing(margin);
    m_grid.setRowStretch(1, 1);
    m_grid.setColumnStretch(2, 1);
    m_grid.addWidget(txtFilter, 0, 0, 1, 4);
    m_grid.addWidget(skfCats, 1, 0, 1, 4);
    m_grid.addWidget(smdOk, 2, 0);
    m_grid.addWidget(smdCreate, 2, 1);
    m_grid.addWidget(smdCancel, 2, 3);
}

void frmCategories::connectControls()
{
    connect(tvCats->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmCategories::takeSelection);
    connect(tvCats, &QAbstractItemView::clicked, this, &frmCategories::takeSelection);
    connect(tvCats, &DirectoryTree::chosen, this, &frmCategories::chooseByKey);
    // Later, when the tree has dealt with the click: what is chosen may wait for the messenger.
    connect(tvCats, &QAbstractItemView::doubleClicked, this, &frmCategories::chooseByDoubleClick,
            Qt::QueuedConnection);
    connect(tvCats, &QTreeView::expanded, this, [this](const QModelIndex &at) { keepOpen(at, true); });
    connect(tvCats, &QTreeView::collapsed, this, [this](const QModelIndex &at) { keepOpen(at, false); });
    connect(txtFilter, &QLineEdit::textChanged, this, &frmCategories::filter);
    connect(smdOk, &QAbstractButton::clicked, this, &frmCategories::join);
    connect(smdCreate, &QAbstractButton::clicked, this, &frmCategories::create);
    connect(smdCancel, &QAbstractButton::clicked, this, &QWidget::close);
    connect(this, &TitledWindow::dismissed, this, &frmCategories::tellLeft);
    txtFilter->installEventFilter(this);
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, txtFilter, [this] {
        txtFilter->setFocus();
        txtFilter->selectAll();
    });
}

void frmCategories::Browse()
{
    if (parentWidget() != nullptr) {
        clsMyApp::CentreOwner(*parentWidget(), *this);
    }
    QMetaObject::invokeMethod(this, &frmCategories::loadCategories, Qt::QueuedConnection);
    open();
}

void frmCategories::SetupFormSkin()
{
    startTitledSkin();
    for (SkinButton *button : {smdOk, smdCreate, smdCancel}) {
        dressFittingButton(*button, skin());
    }
    dressFrame(*skfCats, skin());
    tvCats->setFrameShape(skin().Frame(FrameItem::TopLeft).bitmap() == nullptr ? QFrame::StyledPanel
                                                                               : QFrame::NoFrame);
    txtFilter->setPalette(boxLook(skin(), palette()));
    tvCats->setPalette(listLook(skin(), palette()));
    m_model.setGround(tvCats->palette().color(QPalette::Base));
    m_grid.invalidate();
    setMinimumSize(sizeAround(m_grid.minimumSize()));
}

void frmCategories::layOut()
{
    m_grid.setGeometry(clientArea());
    tvCats->setGeometry(
        QRect(skfCats->ClientArea(FrameMeasure::LeftWidth), skfCats->ClientArea(FrameMeasure::TopHeight),
              skfCats->ClientArea(FrameMeasure::ClientWidth), skfCats->ClientArea(FrameMeasure::ClientHeight))
            .translated(skfCats->pos()));
}

void frmCategories::changeEvent(QEvent *event)
{
    TitledWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        QMetaObject::invokeMethod(this, &frmCategories::loadRooms, Qt::QueuedConnection);
    }
}

/// The dialog in front goes with it.
void frmCategories::closeEvent(QCloseEvent *event)
{
    if (m_newChat != nullptr) {
        m_newChat->close();
    }
    TitledWindow::closeEvent(event);
}

void frmCategories::loadCategories()
{
    const QPointer self(this);
    m_isLoading = true;
    showBusy();
    const Reply reply = m_link.GetCategories();
    if (self == nullptr) {
        return;
    }
    m_isLoading = false;
    showBusy();
    const clsXMLMessage *list = reply.element();
    if (list == nullptr) {
        m_model.addError(tr("Unable to contact server!"));
    } else if (list->MsgName == u"CTL") {
        m_model.addCategories(*list);
    } else {
        m_model.addError(tr("Unable to get list from server!"));
    }
    filter(); // something may have been typed already
}

/// One list at a time, however fast the selection moves: what is selected when one has come is next.
void frmCategories::loadRooms()
{
    if (m_isLoading || m_isEntering) {
        return;
    }
    const QPointer self(this);
    m_isLoading = true;
    showBusy();
    while (self != nullptr && isVisible() && selected() != nullptr && selected()->wantsRooms()) {
        askForRooms(*selected());
    }
    if (self != nullptr) {
        m_isLoading = false;
        showBusy();
    }
}

void frmCategories::askForRooms(DirectoryNode &category)
{
    const QPointer self(this);
    const Reply reply = m_link.GetChannels(category.key);
    if (self == nullptr) {
        return;
    }
    const clsXMLMessage *list = reply.element();
    if (list != nullptr && list->MsgName == u"CHL" && !addRooms(*list)) {
        return;
    }
    m_model.setAsked(category, list == nullptr);
    if (!m_model.filter().isEmpty()) {
        filter(); // the new rooms, too
    }
    if (category.rooms > 0) {
        tvCats->expand(m_model.indexOf(category));
    }
    enableButtons();
}

/// Events go on between the batches of a long list. False when the window has been closed by one of them.
bool frmCategories::addRooms(const clsXMLMessage &list)
{
    const QPointer self(this);
    auto next = list.XMLMessage.begin();
    const auto end = list.XMLMessage.end();
    while ((next = m_model.addRooms(next, end)) != end) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        if (self == nullptr || !isVisible()) {
            return false;
        }
    }
    return true;
}

/// The request waits until the tree is done with the key or the click.
void frmCategories::takeSelection()
{
    enableButtons();
    QMetaObject::invokeMethod(this, &frmCategories::loadRooms, Qt::QueuedConnection);
}

void frmCategories::enableButtons()
{
    const DirectoryNode *node = m_isEntering ? nullptr : selected();
    smdOk->setEnabled(node != nullptr && node->kind == DirectoryNode::Kind::Room);
    smdCreate->setEnabled(node != nullptr && node->takesRooms());
}

DirectoryNode *frmCategories::selected() const
{
    return DirectoryModel::node(tvCats->selectionModel()->selectedIndexes().value(0));
}

/// A room is joined; a category opens or closes.
void frmCategories::chooseByKey()
{
    const DirectoryNode *node = selected();
    if (node != nullptr && node->kind == DirectoryNode::Kind::Room) {
        join();
    } else {
        openOrClose();
    }
}

/// On a category whose rooms are known a room is created, where one can be.
void frmCategories::chooseByDoubleClick()
{
    const DirectoryNode *node = selected();
    const bool isKnown = node != nullptr && node->isKnown();
    if (isKnown && smdCreate->isEnabled()) {
        create();
    } else if (isKnown && smdOk->isEnabled()) {
        join();
    } else {
        openOrClose();
    }
}

void frmCategories::openOrClose()
{
    tvCats->setExpanded(tvCats->currentIndex(), !tvCats->isExpanded(tvCats->currentIndex()));
}

/// The selection stays where it is still shown. Without a filter the tree is as open as it was before.
void frmCategories::filter()
{
    const DirectoryNode *node = selected();
    m_model.setFilter(txtFilter->text());
    if (!m_model.filter().isEmpty()) {
        tvCats->expandAll();
    } else {
        for (const DirectoryNode *category : std::as_const(m_opened)) {
            tvCats->expand(m_model.indexOf(*category));
        }
    }
    if (node != nullptr && m_model.indexOf(*node).isValid()) {
        tvCats->setCurrentIndex(m_model.indexOf(*node));
    }
    enableButtons();
}

void frmCategories::keepOpen(const QModelIndex &category, bool isOpen)
{
    if (!m_model.filter().isEmpty()) {
        return;
    }
    if (isOpen) {
        m_opened.insert(DirectoryModel::node(category));
    } else {
        m_opened.remove(DirectoryModel::node(category));
    }
}

/// Enter and the arrow down lead from the filter to what it has left, Esc takes it away.
bool frmCategories::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) {
        return TitledWindow::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) {
        tvCats->setFocus();
        return true;
    }
    if (key == Qt::Key_Escape && !txtFilter->text().isEmpty()) {
        txtFilter->clear();
        return true;
    }
    return TitledWindow::eventFilter(watched, event);
}

void frmCategories::showBusy()
{
    if (m_isLoading || m_isEntering) {
        tvCats->viewport()->setCursor(Qt::BusyCursor);
    } else {
        tvCats->viewport()->unsetCursor();
    }
}

void frmCategories::join()
{
    const DirectoryNode *node = selected();
    if (m_isEntering || node == nullptr || node->kind != DirectoryNode::Kind::Room) {
        return;
    }
    const RoomToJoin room{node->roomId, node->parent->name, node->name};
    enter([&] { return m_entry.join(room); });
}

void frmCategories::create()
{
    const DirectoryNode *node = selected();
    if (m_isEntering || m_newChat != nullptr || node == nullptr || !node->takesRooms()) {
        return;
    }
    RoomToCreate room{node->key, node->name, {}, false};
    const QPointer self(this);
    const std::optional<RoomDetails> details = askForDetails();
    if (self == nullptr || !isVisible() || !details) {
        return;
    }
    room.name = details->name;
    room.isPrivate = details->isPrivate;
    enter([&] { return m_entry.create(room); });
}

std::optional<RoomDetails> frmCategories::askForDetails()
{
    const QPointer dialog(new frmNewChat(m_dress, m_prompts, this));
    m_newChat = dialog;
    connect(dialog, &TitledWindow::helpRequested, this, &TitledWindow::helpRequested);
    std::optional<RoomDetails> details = dialog->GetRoomDetails();
    delete dialog;
    return details;
}

/// One way at a time; a list that is asked for now comes when it has ended.
void frmCategories::enter(const std::function<bool()> &way)
{
    const QPointer self(this);
    m_isEntering = true;
    tvCats->setFocus(); // the button that was pressed is disabled for now
    enableButtons();
    showBusy();
    const bool hasEntered = way();
    if (self == nullptr) {
        return;
    }
    m_isEntering = false;
    enableButtons();
    showBusy();
    if (hasEntered) {
        hide();
    }
    if (isHidden()) {
        tellLeft();
    } else {
        loadRooms();
    }
}

/// Once: what comes later than that is about a window that is already on its way out.
void frmCategories::tellLeft()
{
    if (!m_isEntering && !std::exchange(m_hasLeft, true)) {
        Q_EMIT left();
    }
}
