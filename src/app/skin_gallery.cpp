#include "app/skin_gallery.h"

#include "app/skin_sheet.h"
#include "core/clsMyApp.h"
#include "platform/text_looks.h"
#include "skin/skin_palette.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

namespace {

constexpr QSize largeSample(460, 240);
constexpr QSize smallSample(260, 150);
constexpr int margin = 24;

/// An unpacked skin is named by its folder.
QString nameOf(const clsMyApp &myApp)
{
    const QFileInfo file(clsMyApp::localPath(myApp.Skin));
    return file.fileName() == u"skin.toml" ? file.dir().dirName() : myApp.SkinName();
}

/// A window with nothing in it, for its picture.
class SampleWindow final : public TitledWindow
{
public:
    SampleWindow(SkinInUse &skin, LoadedWindows &windows, const QString &title, QSize size)
        : TitledWindow({skin, windows}, {u"sample", u"", WindowDragging::Room, Qt::Window}, nullptr)
    {
        setWindowTitle(title);
        resize(size);
        SampleWindow::SetupFormSkin();
    }

    /// Without what the skin cuts away.
    [[nodiscard]] QImage cutOut()
    {
        Form_Resize();
        const QImage face = grab().toImage();
        QImage image(face.size(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(face.devicePixelRatio());
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setClipRegion(m_face.shape());
        painter.drawImage(0, 0, face);
        return image;
    }

protected:
    void SetupFormSkin() override { startTitledSkin(); }
    void layOut() override {}
};

} // namespace

SkinGallery::SkinGallery(SkinInUse &skin, LoadedWindows &windows)
    : TitledWindow({skin, windows}, {u"skinGallery", u"", WindowDragging::Room, Qt::Window}, nullptr),
      m_view(new QScrollArea(this))
{
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->viewport()->setAutoFillBackground(false);
    setMinimumSize(500, 400);
    auto *reload = new QShortcut(this);
    reload->setKeys({QKeySequence(Qt::CTRL | Qt::Key_R), QKeySequence(Qt::Key_F5)});
    connect(reload, &QShortcut::activated, this, &SkinGallery::reloadRequested);
    SkinGallery::SetupFormSkin();
    const QSize wanted =
        m_view->widget()->sizeHint() + QSize(m_view->verticalScrollBar()->sizeHint().width(), 0);
    resize(sizeAround(wanted).boundedTo(screen()->availableSize() - QSize(80, 80)));
}

void SkinGallery::SetupFormSkin()
{
    setWindowTitle(tr("Skin gallery: %1").arg(nameOf(skinInUse().myApp())));
    startTitledSkin();
    m_view->setWidget(new SkinSheet(skinInUse())); // the older one goes
    m_view->widget()->setAutoFillBackground(false);
}

void SkinGallery::layOut()
{
    m_view->setGeometry(clientArea());
}

void SkinGallery::closeEvent(QCloseEvent *event)
{
    event->accept();
    Q_EMIT closed();
}

QImage skinPreview(SkinInUse &skin)
{
    LoadedWindows windows;
    SampleWindow large(skin, windows, QStringLiteral("Pylox Chat"), largeSample);
    SampleWindow small(skin, windows, QStringLiteral("A room with quite a long name"), smallSample);
    const QImage largeFace = large.cutOut();
    const QImage smallFace = small.cutOut();
    SkinSheet sheet(skin);
    sheet.setPalette(skinPalette(skin.description(), sheet.palette())); // there is no window to have it from
    sheet.adjustSize();

    const qreal ratio = sheet.devicePixelRatioF();
    const QSize size(qMax(sheet.width(), largeSample.width() + smallSample.width() + 3 * margin),
                     largeSample.height() + 2 * margin + sheet.height());
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(toColor(skin.description().FormDefaults(FormItem::BackColour).colour()));
    QPainter painter(&image);
    painter.fillRect(0, 0, size.width(), largeSample.height() + 2 * margin, QColor(0x5b, 0x7c, 0x99));
    painter.drawImage(margin, margin, largeFace);
    painter.drawImage(2 * margin + largeSample.width(), margin, smallFace);
    sheet.render(&painter, QPoint(0, largeSample.height() + 2 * margin), {}, QWidget::DrawChildren);
    return image;
}
