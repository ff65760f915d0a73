#include "prefs/frmIgnore.h"

#include "controls/fitting_button.h"
#include "controls/make_control.h"
#include "controls/native_look.h"
#include "core/clsMyApp.h"
#include "core/shown_name.h"
#include "core/user_lists.h"
#include "platform/prompts.h"
#include "prefs/frmAddUser.h"
#include "room/saved_settings.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QRadioButton>
#include <QTreeWidget>

namespace {

constexpr int gap = 8;           // pixels
constexpr int idCharacters = 12; // of the list's first column
constexpr int nameCharacters = 24;
constexpr int shownRows = 11;
constexpr int idRole = Qt::UserRole; ///< the id as it is, which is not always what is shown

/// A row has one line.
QString onOneLine(const QString &text)
{
    return shownName(text).simplified();
}

} // namespace

frmIgnore::frmIgnore(const WindowDress &dress, UserLists &lists, SavedSettings &saved, Prompts &prompts,
                     QWidget *owner)
    : TitledWindow(dress, {u"frmIgnore", u"chat_lists"}, owner),
      m_dress(dress),
      m_lists(lists),
      m_saved(saved),
      m_prompts(prompts),
      optType{makeControl<QRadioButton>(*this, u"optType_0", tr("Ignore List")),
              makeControl<QRadioButton>(*this, u"optType_1", tr("Auto accept list"))},
      lvList(makeControl<QTreeWidget>(*this, u"lvList", tr("Users"))),
      smdAdd(makeButton(*this, u"smdAdd", tr("Add"), tr("Add"))),
      smdRemove(makeButton(*this, u"smdRemove", tr("Remove"), tr("Remove"))),
      smdOk(makeButton(*this, u"smdOk", tr("Ok"), tr("&Ok"))),
      smdCancel(makeButton(*this, u"smdCancel", tr("Close"), tr("&Close")))
{
    setWindowTitle(tr("Chat Accept/Ignore List"));
    optType[0]->setText(tr("&Ignore List"));
    optType[1]->setText(tr("&Auto accept list"));
    optType[0]->setChecked(true);
    smdAdd->setToolTip(smdAdd->accessibleName());
    smdRemove->setToolTip(smdRemove->accessibleName());
    setDefaultButton(smdOk);
    setUpList();
    connectControls();
    frmIgnore::SetupFormSkin();
    lvList->setFocus();
    if (owner != nullptr) {
        clsMyApp::CentreOwner(*owner, *this);
    }
}

void frmIgnore::setUpList()
{
    lvList->setHeaderLabels({tr("Soul #"), tr("Nickname")});
    lvList->header()->setSectionsMovable(false);
    lvList->setRootIsDecorated(false);
    lvList->setUniformRowHeights(true);
    lvList->setAllColumnsShowFocus(true);
    lvList->setTextElideMode(Qt::ElideRight);
}

void frmIgnore::connectControls()
{
    for (QRadioButton *type : optType) {
        connect(type, &QRadioButton::toggled, this, [this](bool chosen) {
            if (chosen) {
                FillList(chosenList());
            }
        });
    }
    connect(smdAdd, &QAbstractButton::clicked, this, &frmIgnore::askForUser);
    connect(smdRemove, &QAbstractButton::clicked, this, &frmIgnore::removeUser);
    connect(smdOk, &QAbstractButton::clicked, this, &frmIgnore::save);
    connect(smdCancel, &QAbstractButton::clicked, this, &QWidget::close);
    lvList->installEventFilter(this); // the Delete key
}

void frmIgnore::SetupFormSkin()
{
    startTitledSkin();
    for (QRadioButton *type : optType) {
        type->setPalette(boxLook(skin(), palette()));
    }
    lvList->setPalette(listLook(skin(), palette()));
    lvList->setFont(skin().FormDefaults(FormItem::InputFont).font().value_or(font()));
    lvList->header()->setFont(font());
    dressSignButton(*smdAdd, skin(), QStringLiteral("+"));
    dressSignButton(*smdRemove, skin(), QStringLiteral("-"));
    for (SkinButton *button : {smdOk, smdCancel}) {
        dressFittingButton(*button, skin());
    }

    const int character = lvList->fontMetrics().horizontalAdvance(u'n');
    lvList->setColumnWidth(0, idCharacters * character);
    const QSize list((idCharacters + nameCharacters) * character, shownRows * lvList->fontMetrics().height());
    const QSize least =
        sizeAround({list.width() + smdRemove->width() + 3 * gap,
                    optType[0]->sizeHint().height() + list.height() + smdOk->height() + 4 * gap});
    setMinimumSize(least);
    resize(least);
}

void frmIgnore::layOut()
{
    const QRect area = clientArea().adjusted(gap, gap, -gap, -gap);
    optType[0]->setGeometry(QRect(area.topLeft(), optType[0]->sizeHint()));
    optType[1]->setGeometry(
        QRect(QPoint(optType[0]->geometry().right() + 1 + 2 * gap, area.top()), optType[1]->sizeHint()));

    const int row = area.bottom() + 1 - smdOk->height();
    smdCancel->move(area.right() + 1 - smdCancel->width(), row);
    smdOk->move(smdCancel->x() - gap - smdOk->width(), row);

    const int side = area.right() + 1 - qMax(smdAdd->width(), smdRemove->width());
    const int top = optType[0]->geometry().bottom() + 1 + gap;
    smdAdd->move(side, top);
    smdRemove->move(side, smdAdd->geometry().bottom() + 1 + gap);
    lvList->setGeometry(QRect(QPoint(area.left(), top), QPoint(side - gap - 1, row - gap - 1)));
}

void frmIgnore::ShowList(char16_t listCode)
{
    FillList(listCode);
    ShowModal();
}

/// All rows at once: they may be thousands.
void frmIgnore::FillList(char16_t listCode)
{
    lvList->clear();
    if (listCode != u'I' && listCode != u'A') {
        return;
    }
    const UserList &users = *m_lists.withCode(listCode);
    QList<QTreeWidgetItem *> rows;
    rows.reserve(users.size());
    for (qsizetype at = 1; at < users.size(); ++at) {
        const ListedUser &user = users[at];
        if (!user.id.isEmpty()) {
            auto *row = new QTreeWidgetItem(QStringList{onOneLine(user.id), onOneLine(user.name)});
            row->setData(0, idRole, user.id);
            rows.append(row);
        }
    }
    lvList->addTopLevelItems(rows);
}

char16_t frmIgnore::chosenList() const
{
    return optType[0]->isChecked() ? u'I' : u'A';
}

QTreeWidgetItem *frmIgnore::rowOf(const QString &id) const
{
    for (int at = 0; at < lvList->topLevelItemCount(); ++at) {
        QTreeWidgetItem *row = lvList->topLevelItem(at);
        if (row->data(0, idRole).toString() == id) {
            return row;
        }
    }
    return nullptr;
}

void frmIgnore::askForUser()
{
    const QPointer asking(new frmAddUser(m_dress, this));
    connect(asking, &TitledWindow::helpRequested, this, &TitledWindow::helpRequested);
    connect(asking, &frmAddUser::userChosen, this, &frmIgnore::addUser);
    asking->ShowModal();
    delete asking;
}

/// Who is on the list already is only shown. A contact has a name even when none was given.
void frmIgnore::addUser(const QString &id, const QString &name)
{
    AddToList(m_lists, chosenList(), id, name.isEmpty() ? GetContactName(m_lists, id, {}) : name);
    FillList(chosenList());
    if (QTreeWidgetItem *row = rowOf(id)) {
        lvList->setCurrentItem(row);
        lvList->setFocus();
    }
}

/// While the question stands the lists and this dialog may change, or go.
void frmIgnore::removeUser()
{
    const QList<QTreeWidgetItem *> selected = lvList->selectedItems();
    if (selected.isEmpty()) {
        return;
    }
    const QString id = selected.first()->data(0, idRole).toString();
    const char16_t code = chosenList();
    const QPointer<frmIgnore> self(this);
    const PromptAnswer answer = m_prompts.ask(tr("Do you really wish to remove this user from your list?"),
                                              tr("Remove User"), PromptIcon::Question, PromptButtons::YesNo);
    if (self == nullptr || answer != PromptAnswer::Yes) {
        return;
    }
    RemoveFromList(m_lists, code, id);
    if (code == chosenList()) {
        delete rowOf(id);
    }
}

/// The list would look for a user by the key's letter.
bool frmIgnore::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lvList && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        removeUser();
        return true;
    }
    return TitledWindow::eventFilter(watched, event);
}

void frmIgnore::save()
{
    m_saved.SaveLists();
    close();
}

/// The dialog above it goes with it.
void frmIgnore::closeEvent(QCloseEvent *event)
{
    if (auto *asking = findChild<frmAddUser *>()) {
        asking->close();
    }
    TitledWindow::closeEvent(event);
}
