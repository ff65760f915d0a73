#include "platform/text_file.h"
#include "room/banner.h"
#include "support/eventually.h"
#include "support/text.h"

#include <QImage>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>

#include <gtest/gtest.h>

namespace {

struct BannerPage : testing::Test
{
    void SetUp() override
    {
        QImage picture(30, 20, QImage::Format_RGB32);
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(folder.filePath(u"ad.png"_s)));
        ASSERT_TRUE(picture.save(other.filePath(u"secret.png"_s)));
        ASSERT_TRUE(writeTextFile(page, u"<a href=\"http://example.org/\">Visit</a><img src=\"ad.png\">"_s));
    }

    QTemporaryDir folder;
    QTemporaryDir other;
    QString page = folder.filePath(u"banner.html"_s);
    QWidget window;
};

TEST_F(BannerPage, IsShownWhereThereIsOneAndItIsWanted)
{
    EXPECT_EQ(Banner({}, window).imgBanner(), nullptr);
    EXPECT_EQ(Banner({page, [] { return false; }}, window).imgBanner(), nullptr);

    bool wanted = true;
    Banner banner({page, [&] { return wanted; }}, window);
    auto *view = qobject_cast<QTextBrowser *>(banner.imgBanner());
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->toPlainText().isEmpty()) << "it waits for its third tick";
    EXPECT_TRUE(eventually([&] { return view->toPlainText().startsWith(u"Visit"); }));

    QUrl opened;
    QObject::connect(&banner, &Banner::linkActivated, [&](const QUrl &address) { opened = address; });
    Q_EMIT view->anchorClicked(QUrl(u"http://example.org/"_s));
    EXPECT_EQ(opened, QUrl(u"http://example.org/"_s));
}

TEST_F(BannerPage, TakesPicturesFromItsOwnFolderOnly)
{
    Banner banner({QUrl::fromLocalFile(page).toString()}, window);
    auto *view = qobject_cast<QTextBrowser *>(banner.imgBanner());
    ASSERT_NE(view, nullptr);
    ASSERT_TRUE(eventually([&] { return !view->toPlainText().isEmpty(); }));
    const auto loads = [&](const QString &name) {
        return view->loadResource(QTextDocument::ImageResource, QUrl(name)).isValid();
    };
    EXPECT_TRUE(loads(u"ad.png"_s));
    for (const QString &name : QStringList{u"../"_s + other.path().section(u'/', -1) + u"/secret.png"_s,
                                           u"file://"_s + other.filePath(u"secret.png"_s),
                                           u"http://example.org/ad.png"_s, u"banner.html"_s, u"."_s}) {
        EXPECT_FALSE(loads(name)) << name.toStdString();
    }
}

TEST_F(BannerPage, IsLeftAwayWhenItIsNoSmallFile)
{
    Banner folderPage({folder.path()}, window);
    Banner webPage({u"http://example.org/"_s}, window);
    QFile large(folder.filePath(u"large.html"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(1 << 21));
    Banner largePage({large.fileName()}, window);
    Banner good({page}, window); // the last of them, so that the others have had their turn
    const auto text = [](const Banner &banner) {
        return qobject_cast<QTextBrowser *>(banner.imgBanner())->toPlainText();
    };
    ASSERT_TRUE(eventually([&] { return !text(good).isEmpty(); }));
    EXPECT_EQ(text(folderPage) + text(webPage) + text(largePage), QString());
}

} // namespace
