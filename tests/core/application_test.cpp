#include "core/application_folder.h"
#include "core/clsMyApp.h"
#include "support/text.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

TEST(MyApp, TheApplicationFolderIsTheFirstThatServes)
{
    const QTemporaryDir folder;
    qputenv("PYLOX_HOME", "/somewhere/else");
    EXPECT_EQ(applicationFolder(folder.path()), u"/somewhere/else/"_s);
    qunsetenv("PYLOX_HOME");
    EXPECT_EQ(applicationFolder(folder.path()), QString(folder.path() + u'/'));
    const QString programs = folder.filePath(u"bin"_s);
    QDir(folder.path()).mkpath(u"bin"_s);
    EXPECT_EQ(applicationFolder(programs), QString(programs + u'/'));
    QDir(folder.path()).mkpath(u"share/applications/pylox-chat.desktop"_s);
    EXPECT_TRUE(applicationFolder(programs).endsWith(u"/pylox-chat/"_s)) << "that of an installation";
    EXPECT_TRUE(applicationFolder(u"/no/such/folder"_s).endsWith(u"/pylox-chat/"_s));
    for (const QString &path : {u"/opt/pylox"_s, u"/opt/pylox//"_s}) {
        EXPECT_EQ(clsMyApp(path).Path(), u"/opt/pylox/"_s);
    }
    EXPECT_EQ(clsMyApp(u"/"_s).Path(), u"/"_s);
}

TEST(MyApp, OnlyAReadableFileIsAFile)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"Blue.skn"_s));
    EXPECT_FALSE(clsMyApp::IsFile({}));
    EXPECT_FALSE(clsMyApp::IsFile(folder.path()));
    EXPECT_FALSE(clsMyApp::IsFile(file.fileName()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(clsMyApp::IsFile(file.fileName()));
    EXPECT_TRUE(clsMyApp::IsFile(file.fileName().replace(u'/', u'\\')));
}

TEST(MyApp, SkinNameIsTheBaseNameOfTheSkinFile)
{
    clsMyApp app(u"/"_s);
    const std::pair<QString, QString> cases[] = {{u""_s, u""_s},
                                                 {u"C:\\skins\\Blue.skn"_s, u"Blue"_s},
                                                 {u"/skins.d/Dark.Blue.skn"_s, u"Dark.Blue"_s},
                                                 {u"/skins.d/Blue"_s, u""_s},
                                                 {u"Blue.skn"_s, u"Blue"_s}};
    for (const auto &[skin, name] : cases) {
        app.Skin = skin;
        EXPECT_EQ(app.SkinName(), name);
    }
}

TEST(MyApp, CentringDropsTheRemainder)
{
    EXPECT_EQ(clsMyApp::centredOn({100, 50, 201, 100}, {100, 51}), QPoint(150, 74));
    EXPECT_EQ(clsMyApp::centredOn({0, 0, 100, 100}, {103, 100}), QPoint(-1, 0));
}
