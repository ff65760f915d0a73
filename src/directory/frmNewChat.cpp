#include "directory/frmNewChat.h"

#include "controls/fitting_button.h"
#include "controls/make_control.h"
#include "controls/native_look.h"
#include "core/attribute_text.h"
#include "core/clsMyApp.h"
#include "platform/prompts.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int margin = 8;
constexpr int longestRoomName = 50;
constexpr int shownCharacters = 32; // of the name, at least

QLabel *makeLabel(QWidget &parent, const char16_t *name, const QString &text, QWidget *buddy)
{
    auto *label = makeControl<QLabel>(parent, name);
    label->setText(text);
    label->setBuddy(buddy);
    return label;
}

} // namespace

frmNewChat::frmNewChat(const WindowDress &dress, Prompts &prompts, QWidget *owner)
    : TitledWindow(dress, {u"frmNewChat", u"chat_new"}, owner),
      m_prompts(prompts),
      txtRoom(makeControl<QLineEdit>(*this, u"txtRoom", tr("Chat Rooms name"))),
      chkPrivate(makeControl<QCheckBox>(*this, u"chkPrivate", tr("Private Room"))),
      smdOk(makeButton(*this, u"smdOk", tr("Create"), tr("&Create"))),
      smdCancel(makeButton(*this, u"smdCancel", tr("Cancel"), tr("&Cancel")))
{
    lblRoom = makeLabel(*this, u"lblRoom", tr("Chat Rooms name:"), txtRoom);
    lblPrivate = makeLabel(*this, u"lblPrivate", tr("Private Room:"), chkPrivate);
    setWindowTitle(tr("Create New Channel"));
    txtRoom->setMaxLength(longestRoomName);
    txtRoom->installEventFilter(this);
    chkPrivate->installEventFilter(this);
    smdOk->setEnabled(false);
    connect(txtRoom, &QLineEdit::textChanged, this, &frmNewChat::takeText);
    connect(smdOk, &QAbstractButton::clicked, this, &frmNewChat::confirm);
    connect(smdCancel, &QAbstractButton::clicked, this, &QWidget::close);
    placeControls();
    frmNewChat::SetupFormSkin();
    resize(sizeAround(m_grid.sizeHint()));
}

void frmNewChat::placeControls()
{
    m_grid.setContentsMargins(margin, margin, margin, margin);
    m_grid.setSpacing(margin);
    m_grid.setColumnStretch(1, 1);
    m_grid.setRowStretch(2, 1);
    m_grid.addWidget(lblRoom, 0, 0);
    m_grid.addWidget(txtRoom, 0, 1, 1, 3);
    m_grid.addWidget(lblPrivate, 1, 0);
    m_grid.addWidget(chkPrivate, 1, 1, Qt::AlignLeft | Qt::AlignVCenter);
    m_grid.addWidget(smdOk, 2, 2, Qt::AlignBottom);
    m_grid.addWidget(smdCancel, 2, 3, Qt::AlignBottom);
}

std::optional<RoomDetails> frmNewChat::GetRoomDetails()
{
    m_ok = false;
    if (parentWidget() != nullptr) {
        clsMyApp::CentreOwner(*parentWidget(), *this);
    }
    txtRoom->setFocus();
    const QPointer self(this);
    ShowModal();
    if (self == nullptr || !m_ok) {
        return std::nullopt;
    }
    return RoomDetails{txtRoom->text(), chkPrivate->isChecked()};
}

void frmNewChat::SetupFormSkin()
{
    startTitledSkin();
    dressFittingButton(*smdOk, skin());
    dressFittingButton(*smdCancel, skin());
    const QPalette look = boxLook(skin(), palette());
    txtRoom->setPalette(look);
    chkPrivate->setPalette(look);
    txtRoom->setMinimumWidth(txtRoom->fontMetrics().averageCharWidth() * shownCharacters);
    m_grid.invalidate();
    setMinimumSize(sizeAround(m_grid.minimumSize()));
}

void frmNewChat::layOut()
{
    m_grid.setGeometry(clientArea());
}

/// Enter leads from field to field, as Tab does.
bool frmNewChat::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            focusNextChild();
            return true;
        }
    }
    return TitledWindow::eventFilter(watched, event);
}

/// What is pasted may hold what nobody can type.
void frmNewChat::takeText(const QString &text)
{
    const QString clean = withoutControlCharacters(text);
    if (clean != text) {
        txtRoom->setText(clean);
        return;
    }
    smdOk->setEnabled(!text.isEmpty());
}

void frmNewChat::confirm()
{
    if (!txtRoom->text().isEmpty()) {
        m_ok = true;
        hide();
        return;
    }
    const QPointer self(this);
    m_prompts.tell(tr("Please enter a room name!"), tr("Room name"), PromptIcon::Stop);
    if (self != nullptr) {
        txtRoom->setFocus();
    }
}
