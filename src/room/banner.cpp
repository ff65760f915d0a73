#include "room/banner.h"

#include "platform/text_file.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QTextBrowser>
#include <QTextDocument>

namespace {

constexpr QSize bannerSize(468, 60);
constexpr int firstInterval = 100; // milliseconds
constexpr int laterInterval = 60'000;
constexpr int ticksPerLoad = 3;
constexpr qint64 largestFile = 1 << 20; // bytes
constexpr int largestPicture = 2048;    // pixels

bool isSmallFile(const QFileInfo &file)
{
    return file.isFile() && file.size() <= largestFile;
}

/// Takes pictures from the page's own folder only, and no large ones.
class BannerView final : public QTextBrowser
{
public:
    explicit BannerView(QWidget *parent) : QTextBrowser(parent) {}

    void show(const QFileInfo &page)
    {
        m_folder = page.canonicalPath() + u'/';
        document()->setBaseUrl(QUrl::fromLocalFile(page.canonicalFilePath()));
        setHtml(readTextFile(page.canonicalFilePath()).value_or(QString()));
    }

    QVariant loadResource(int type, const QUrl &name) override
    {
        const QUrl address = document()->baseUrl().resolved(name);
        const QFileInfo file(address.toLocalFile());
        if (type != QTextDocument::ImageResource || !address.isLocalFile() || !isSmallFile(file) ||
            !file.canonicalFilePath().startsWith(m_folder)) {
            return {};
        }
        QImageReader reader(file.canonicalFilePath());
        const QSize size = reader.size();
        return size.isValid() && size.width() <= largestPicture && size.height() <= largestPicture
                   ? QVariant(reader.read())
                   : QVariant();
    }

private:
    QString m_folder;
};

QFileInfo fileOf(const QString &page)
{
    const QUrl address(page);
    return QFileInfo(address.isLocalFile() ? address.toLocalFile() : page);
}

} // namespace

Banner::Banner(const BannerSource &source, QWidget &window) : m_source(source)
{
    if (source.page.isEmpty() || !source.isWanted()) {
        return;
    }
    m_view = new BannerView(&window);
    m_view->setObjectName(QStringLiteral("imgBanner"));
    m_view->setAccessibleName(QCoreApplication::translate("frmMain", "Banner"));
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view->document()->setDocumentMargin(0);
    m_view->setOpenLinks(false);
    m_view->resize(bannerSize);
    connect(m_view, &QTextBrowser::anchorClicked, this, &Banner::linkActivated);
    connect(&tmrBanner, &QTimer::timeout, this, &Banner::tick);
    tmrBanner.start(firstInterval);
}

QWidget *Banner::imgBanner() const
{
    return m_view;
}

void Banner::tick()
{
    if (++m_ticks % ticksPerLoad != 0) {
        return;
    }
    tmrBanner.start(laterInterval);
    const QFileInfo page = fileOf(m_source.page);
    if (m_source.isWanted() && isSmallFile(page)) {
        static_cast<BannerView *>(m_view)->show(page);
    }
}
