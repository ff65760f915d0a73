#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QTextBrowser;
class QUrl;
class QWidget;

/// What the banner shows, and whether.
struct BannerSource
{
    QString page; ///< a file of this machine, as a path or as a file address; empty for no banner
    std::function<bool()> isWanted = [] { return true; };
};

/// The banner at the top of the room window: a page with pictures and links, without scripts, that is loaded
/// anew every three minutes. Nothing comes from the network: the program talks to the messenger alone.
class Banner final : public QObject
{
    Q_OBJECT

public:
    Banner(const BannerSource &source, QWidget &window);

    /// Null where there is none. The window owns it; it has its size from the start.
    [[nodiscard]] QWidget *imgBanner() const;

Q_SIGNALS:
    void linkActivated(const QUrl &address);

private:
    void tick();

    BannerSource m_source;
    QTextBrowser *m_view = nullptr;
    QTimer tmrBanner;
    int m_ticks = 0;
};
