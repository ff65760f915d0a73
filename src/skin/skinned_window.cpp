#include "skin/skinned_window.h"

#include "skin/caption_look.h"
#include "skin/skin_palette.h"

#include <QAccessibleWidget>
#include <QChildEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

namespace {

/// A plain widget would be heard as a thing of no kind.
QAccessibleInterface *accessibleFor([[maybe_unused]] const QString &className, QObject *object)
{
    auto *window = qobject_cast<SkinnedWindow *>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Window);
}

} // namespace

SkinnedWindow::SkinnedWindow(SkinInUse &skin, LoadedWindows &windows, WindowDragging dragging,
                             Qt::WindowFlags kind, QWidget *parent)
    : QWidget(parent, kind),
      m_face(skin),
      m_skinInUse(skin),
      m_windows(windows),
      m_dragging(dragging),
      m_kind(kind),
      m_mover(*this, [this](QPoint place) { return zoneAt(place); }),
      lblCaption(new QLabel(this))
{
    lblCaption->setObjectName(QStringLiteral("lblCaption"));
    lblCaption->hide(); // it only measures: the caption is part of the face
    setMouseTracking(true);
    QAccessible::installFactory(accessibleFor); // one that is there already is not added again
    m_windows.enter(*this);
}

SkinnedWindow::~SkinnedWindow()
{
    m_windows.leave(*this);
}

void SkinnedWindow::DoSkinChange()
{
    const bool wasVisible = isVisible();
    const bool wasActive = isActiveWindow();
    SetupFormSkin();
    Form_Resize();
    if (wasVisible && !isVisible()) { // another frame hides a window
        setAttribute(Qt::WA_ShowWithoutActivating, !wasActive);
        show();
        setAttribute(Qt::WA_ShowWithoutActivating, false);
    }
}

void SkinnedWindow::startSkin()
{
    setFont(skin().FormDefaults(FormItem::Font).font().value_or(QFont()));
    lblCaption->setFont(captionFont(skin().FormDefaults(FormItem::CaptionFont).font().value_or(font())));
    setPalette(skinPalette(skin(), QGuiApplication::palette()));
    lblCaption->resize(lblCaption->width(), lblCaption->fontMetrics().height());
    m_face.LoadSkin(*this);
    takeFrame();
}

/// A window that the skin cannot give a border gets the desktop's. New flags hide a window.
void SkinnedWindow::takeFrame()
{
    const bool frameless = m_skinInUse.frame() == WindowFrame::Skin && m_face.hasPieces();
    if (windowFlags().testFlag(Qt::FramelessWindowHint) == frameless) {
        return;
    }
    constexpr Qt::WindowFlags ownFrame =
        Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint | Qt::WindowSystemMenuHint;
    setWindowFlags(frameless ? m_kind | ownFrame : m_kind);
}

void SkinnedWindow::Form_Resize()
{
    layOut();
    applySkin();
}

void SkinnedWindow::applySkin()
{
    if (!skin().isRead()) {
        return;
    }
    try {
        m_face.ReApplySkin();
    } catch (const SkinError &error) {
        m_skinInUse.reportOnce(QString(u"skin: " % objectName() % u": " % error.reason()));
    }
}

DragZone SkinnedWindow::zoneAt(QPoint place) const
{
    if (m_dragging == WindowDragging::Dialog) {
        return DragZone::Move;
    }
    if (place.x() < m_face.NonClient(NonClientPart::TitleFreeEnd) &&
        place.y() < m_face.NonClient(NonClientPart::TopAndBottomHeight)) {
        return DragZone::Move;
    }
    const bool right = place.x() >= width() - m_face.NonClient(NonClientPart::RightWidth);
    const bool bottom = place.y() >= height() - m_face.NonClient(NonClientPart::BottomHeight);
    if (right && bottom) {
        return DragZone::BottomRight;
    }
    if (bottom) {
        return DragZone::Bottom;
    }
    return right ? DragZone::Right : DragZone::None;
}

void SkinnedWindow::paintEvent(QPaintEvent * /*event*/)
{
    if (!skin().isRead()) {
        return;
    }
    if (!m_face.fits()) {
        applySkin();
    }
    QPainter painter(this);
    m_face.paint(painter);
}

void SkinnedWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (isVisible()) {
        Form_Resize();
    }
}

/// The shape can only be given to a window of the window system, which is there from now on.
void SkinnedWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    Form_Resize();
}

void SkinnedWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowTitleChange) {
        m_face.ChangeCaption();
    }
}

void SkinnedWindow::mousePressEvent(QMouseEvent *event)
{
    m_mover.press(*event);
}

void SkinnedWindow::mouseMoveEvent(QMouseEvent *event)
{
    m_mover.move(*event);
}

void SkinnedWindow::mouseReleaseEvent(QMouseEvent * /*event*/)
{
    m_mover.release();
}

/// A child without a pointer's shape of its own would show that of the window's edge.
void SkinnedWindow::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    auto *child = event->added() ? qobject_cast<QWidget *>(event->child()) : nullptr;
    if (child != nullptr && !child->testAttribute(Qt::WA_SetCursor)) {
        child->setCursor(Qt::ArrowCursor);
    }
}
