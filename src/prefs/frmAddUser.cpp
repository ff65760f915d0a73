#include "prefs/frmAddUser.h"

#include "controls/fitting_button.h"
#include "controls/make_control.h"
#include "controls/native_look.h"
#include "core/clsMyApp.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int gap = 8; // pixels
constexpr int longestId = 10;
constexpr int longestName = 100;
constexpr int nameCharacters = 24; // characters of medium width

/// What is pasted may hold anything.
QString cleaned(const QString &typed)
{
    QString text = typed.simplified();
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return text;
}

} // namespace

frmAddUser::frmAddUser(const WindowDress &dress, QWidget *owner)
    : TitledWindow(dress, {u"frmAddUser", u"chat_lists"}, owner),
      m_fields(new QWidget(this)),
      txtId(makeControl<QLineEdit>(*m_fields, u"txtId", tr("Soul #"))),
      txtName(makeControl<QLineEdit>(*m_fields, u"txtName", tr("Nickname"))),
      smdOk(makeButton(*this, u"smdOk", tr("Ok"), tr("&Ok"))),
      smdCancel(makeButton(*this, u"smdCancel", tr("Cancel"), tr("&Cancel")))
{
    setWindowTitle(tr("Add User"));
    setDefaultButton(smdOk);
    txtId->setMaxLength(longestId);
    txtName->setMaxLength(longestName);

    auto *grid = new QGridLayout(m_fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(gap);
    const auto addRow = [&](int row, const char16_t *name, const QString &caption, QLineEdit *box) {
        auto *label = makeControl<QLabel>(*m_fields, name);
        label->setText(caption);
        label->setBuddy(box);
        grid->addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(box, row, 1);
    };
    addRow(0, u"lblId", tr("&Soul #:"), txtId);
    addRow(1, u"lblName", tr("&Nickname:"), txtName);

    connect(txtId, &QLineEdit::textChanged, this, [this] { smdOk->setEnabled(!id().isEmpty()); });
    connect(smdOk, &QAbstractButton::clicked, this, &frmAddUser::accept);
    connect(smdCancel, &QAbstractButton::clicked, this, &QWidget::close);
    smdOk->setEnabled(false);
    txtId->setFocus();
    frmAddUser::SetupFormSkin();
    if (owner != nullptr) {
        clsMyApp::CentreOwner(*owner, *this);
    }
}

void frmAddUser::SetupFormSkin()
{
    startTitledSkin();
    const QFont input = skin().FormDefaults(FormItem::InputFont).font().value_or(font());
    for (QLineEdit *box : {txtId, txtName}) {
        box->setFont(input);
        box->setPalette(boxLook(skin(), palette()));
    }
    txtName->setMinimumWidth(nameCharacters * txtName->fontMetrics().horizontalAdvance(u'n'));
    for (SkinButton *button : {smdOk, smdCancel}) {
        dressFittingButton(*button, skin());
    }
    setFixedSize(sizeAround(clientSize()));
}

QSize frmAddUser::clientSize() const
{
    const QSize fields = m_fields->sizeHint();
    return {fields.width() + 2 * gap, fields.height() + smdOk->height() + 4 * gap};
}

void frmAddUser::layOut()
{
    const QRect area = clientArea().adjusted(gap, gap, -gap, -gap);
    m_fields->setGeometry(QRect(area.topLeft(), QSize(area.width(), m_fields->sizeHint().height())));
    const int row = area.bottom() + 1 - smdOk->height();
    smdCancel->move(area.right() + 1 - smdCancel->width(), row);
    smdOk->move(smdCancel->x() - gap - smdOk->width(), row);
}

QString frmAddUser::id() const
{
    return cleaned(txtId->text());
}

void frmAddUser::accept()
{
    Q_EMIT userChosen(id(), cleaned(txtName->text()));
    close();
}
