#include "controls/titled_window.h"

#include "controls/SkinButton.h"
#include "controls/dressing.h"
#include "controls/make_control.h"
#include "platform/on_screen.h"

#include <QEventLoop>
#include <QKeyEvent>

TitledWindow::TitledWindow(const WindowDress &dress, const TitledKind &kind, QWidget *owner)
    : SkinnedWindow(dress.skin, dress.windows, kind.dragging, kind.flags, owner),
      sysClose(makeSystemButton(*this, u"sysClose", tr("Close window"))),
      sysMin(makeSystemButton(*this, u"sysMin", tr("Minimise window"))),
      sysHelp(makeSystemButton(*this, u"sysHelp", tr("Help"))),
      m_helpAnchor(QStringView(kind.helpAnchor).toString())
{
    setObjectName(QStringView(kind.name).toString());
    connect(sysClose, &QAbstractButton::clicked, this, &QWidget::close);
    connect(sysMin, &QAbstractButton::clicked, this, &QWidget::showMinimized);
    connect(sysHelp, &QAbstractButton::clicked, this, [this] { Q_EMIT helpRequested(m_helpAnchor); });
}

void TitledWindow::startTitledSkin()
{
    startSkin();
    skin().FormDefaults(FormItem::ReloadSystemButtons);
    dressSystemButton(*sysClose, skin(), FormItem::NormalSysClose);
    dressSystemButton(*sysMin, skin(), FormItem::NormalSysMin);
    dressSystemButton(*sysHelp, skin(), FormItem::NormalSysHelp);
    for (SkinButton *button : {sysClose, sysMin, sysHelp}) {
        m_face.AddSystemButton(*button);
    }
    skin().FormDefaults(FormItem::ReleaseSystemButtons);
}

QRect TitledWindow::clientArea() const
{
    return rect().adjusted(
        m_face.NonClient(NonClientPart::LeftWidth), m_face.NonClient(NonClientPart::TitleHeight),
        -m_face.NonClient(NonClientPart::RightWidth), -m_face.NonClient(NonClientPart::BottomHeight));
}

QSize TitledWindow::sizeAround(QSize client) const
{
    return client + size() - clientArea().size();
}

void TitledWindow::open()
{
    if (isHidden() && testAttribute(Qt::WA_Moved)) { // else the window manager finds a place
        moveOnScreen(*this);
    }
    setWindowModality(Qt::WindowModal);
    m_isOpen = true;
    show();
    raise();
    activateWindow();
}

void TitledWindow::ShowModal()
{
    open();
    QEventLoop loop;
    connect(this, &TitledWindow::dismissed, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A window that gets another frame is hidden for a moment, one that is minimised is not hidden at all: only
/// what is still hidden by the next turn of events has been closed.
void TitledWindow::hideEvent(QHideEvent *event)
{
    SkinnedWindow::hideEvent(event);
    if (m_isOpen) {
        QMetaObject::invokeMethod(this, &TitledWindow::tellDismissed, Qt::QueuedConnection);
    }
}

void TitledWindow::tellDismissed()
{
    if (m_isOpen && isHidden()) {
        m_isOpen = false;
        Q_EMIT dismissed();
    }
}

void TitledWindow::keyPressEvent(QKeyEvent *event)
{
    const bool plain = event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (event->key() == Qt::Key_Escape && plain) {
        close();
    } else if (event->key() == Qt::Key_F1 && plain) {
        Q_EMIT helpRequested(m_helpAnchor);
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && plain &&
               m_defaultButton != nullptr) {
        m_defaultButton->click();
    } else {
        SkinnedWindow::keyPressEvent(event);
    }
}
