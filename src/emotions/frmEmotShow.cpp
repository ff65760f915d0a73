#include "emotions/frmEmotShow.h"

#include "platform/image_list.h"
#include "skin/skin_catalogue.h"

#include <QAbstractButton>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {

constexpr int focusMilliseconds = 250;
constexpr int patienceTicks = 8; // until a window that never became active gives up

/// The keys of the palette's pictures, in its order: those that a skin has pictures for.
std::span<const SkinKey> EmoticonKeys()
{
    return findSkinSection(u"Chat Room Smileys")->keys;
}

QSize sizeOf(const QImage &image)
{
    return image.deviceIndependentSize().toSize();
}

/// One picture. The mouse is the palette's business; the keyboard and assistive programs press it.
class EmoticonCell final : public QAbstractButton
{
public:
    EmoticonCell(QWidget *palette, const QImage &picture) : QAbstractButton(palette), m_picture(picture)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override { QPainter(this).drawImage(0, 0, m_picture); }
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            click();
        } else if (event->key() == Qt::Key_Space) {
            QAbstractButton::keyPressEvent(event);
        } else {
            event->ignore(); // the arrows are the palette's
        }
    }

private:
    QImage m_picture;
};

} // namespace

QRect EmoticonGrid::cellAt(int position) const
{
    const QPoint place((cell.width() + 2) * (position % columns) + 2,
                       (cell.height() + 2) * (position / columns) + 2);
    return {place, cell + QSize(1, 1)};
}

EmoticonGrid MeasureEmoticons(const ImageList &imgList)
{
    EmoticonGrid grid;
    for (const SkinKey &key : EmoticonKeys()) {
        if (const QImage image = imgList.image(key.name.toString()); !image.isNull()) {
            ++grid.count;
            grid.cell = sizeOf(image);
        }
    }
    const int cells = grid.count + 1;
    const int side = static_cast<int>(std::sqrt(cells));
    grid.columns = cells / side;
    grid.rows = cells % side == 0 ? side : side + 1;
    return grid;
}

frmEmotShow::frmEmotShow(const ImageList &imgList, const SkinBitmap &web, QWidget *owner)
    : QWidget(owner, Qt::Tool | Qt::FramelessWindowHint),
      m_grid(MeasureEmoticons(imgList)),
      shpSelect(new QFrame(this))
{
    setObjectName(QStringLiteral("frmEmotShow"));
    setWindowTitle(tr("Emoticons"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMouseTracking(true);
    if (owner != nullptr) {
        setPalette(owner->palette()); // windows do not inherit it
    }
    setFixedSize(m_grid.client());
    shpSelect->setObjectName(QStringLiteral("shpSelect"));
    shpSelect->setAttribute(Qt::WA_TransparentForMouseEvents);
    shpSelect->resize(m_grid.cell + QSize(2, 2));
    QPalette selection = palette();
    selection.setColor(QPalette::WindowText, selection.color(QPalette::Link));
    shpSelect->setPalette(selection);
    shpSelect->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    shpSelect->hide();
    DrawEmoticons(imgList, web);
    connect(&tmrFocus, &QTimer::timeout, this, &frmEmotShow::closeUnlessActive);
}

void frmEmotShow::DrawEmoticons(const ImageList &imgList, const SkinBitmap &web)
{
    for (const SkinKey &key : EmoticonKeys()) {
        const QImage picture = imgList.imageOn(key.name.toString(), qRgba(0, 0, 0, 0));
        if (!picture.isNull()) {
            addCell(key.name.toString(), key.name.sliced(1).toString(), picture);
        }
    }
    if (web != nullptr) {
        addCell(webKey.toString(), tr("More about emoticons"), web->image());
    }
}

void frmEmotShow::addCell(const QString &key, const QString &name, const QImage &picture)
{
    auto *cell = new EmoticonCell(this, picture);
    cell->setObjectName(key);
    cell->setAccessibleName(name);
    cell->setGeometry(m_grid.cellAt(static_cast<int>(m_cells.size())));
    cell->installEventFilter(this);
    connect(cell, &QAbstractButton::clicked, this, [this, key] { Q_EMIT picked(key); });
    m_cells.push_back(cell);
}

void frmEmotShow::ShowEmotions(const QWidget &button)
{
    const QPoint above = button.mapToGlobal(QPoint(0, 0));
    const QRect screenArea = button.screen()->geometry();
    QPoint place = above + QPoint(0, button.height());
    if (place.y() + height() > screenArea.bottom() + 1) {
        place.setY(above.y() - height());
    }
    place.setX(std::clamp(place.x(), screenArea.left(),
                          std::max(screenArea.left(), screenArea.right() + 1 - width())));
    move(place);
    show();
    activateWindow();
    if (!m_cells.empty()) {
        m_cells.front()->setFocus(Qt::PopupFocusReason);
    }
    tmrFocus.start(focusMilliseconds);
}

QWidget *frmEmotShow::cellAt(QPoint place) const
{
    const auto found =
        std::ranges::find_if(m_cells, [&](const QWidget *cell) { return cell->geometry().contains(place); });
    return found == m_cells.end() ? nullptr : *found;
}

QString frmEmotShow::keyAt(QPoint place) const
{
    const QWidget *cell = cellAt(place);
    return cell == nullptr ? QString() : cell->objectName();
}

void frmEmotShow::frame(const QWidget &cell)
{
    shpSelect->move(cell.pos() - QPoint(1, 1));
    shpSelect->raise();
    shpSelect->show();
}

void frmEmotShow::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().base());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void frmEmotShow::mousePressEvent(QMouseEvent *event)
{
    DownKey = keyAt(event->position().toPoint());
}

void frmEmotShow::mouseMoveEvent(QMouseEvent *event)
{
    if (const QWidget *cell = cellAt(event->position().toPoint())) {
        frame(*cell);
        setToolTip(cell->accessibleName());
    } else {
        setToolTip({});
    }
}

void frmEmotShow::mouseReleaseEvent(QMouseEvent *event)
{
    const QString key = keyAt(event->position().toPoint());
    if (!key.isEmpty() && key == DownKey) {
        Q_EMIT picked(key);
    }
}

void frmEmotShow::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        break;
    case Qt::Key_Left:
        moveFocus(-1);
        break;
    case Qt::Key_Right:
        moveFocus(1);
        break;
    case Qt::Key_Up:
        moveFocus(-m_grid.columns);
        break;
    case Qt::Key_Down:
        moveFocus(m_grid.columns);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

/// Not beyond the first and the last picture.
void frmEmotShow::moveFocus(int step)
{
    const auto focused = std::ranges::find(m_cells, focusWidget());
    if (focused == m_cells.end()) {
        return;
    }
    const std::ptrdiff_t next = focused - m_cells.begin() + step;
    if (next >= 0 && next < std::ssize(m_cells)) {
        m_cells[static_cast<std::size_t>(next)]->setFocus(Qt::TabFocusReason);
    }
}

/// The picture that has the keyboard is framed like the one under the mouse.
bool frmEmotShow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        frame(*static_cast<const QWidget *>(watched));
    }
    return QWidget::eventFilter(watched, event);
}

/// Window managers take their time to make a new window the active one.
void frmEmotShow::closeUnlessActive()
{
    ++m_ticks;
    m_wasActive = m_wasActive || isActiveWindow();
    if (!isActiveWindow() && (m_wasActive || m_ticks > patienceTicks)) {
        close();
    }
}
