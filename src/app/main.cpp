#include "app/program.h"
#include "app/skin_gallery.h"
#include "core/application_folder.h"
#include "platform/addresses.h"
#include "platform/message_boxes.h"

#include <QApplication>
#include <QFileInfo>

#include <iostream>

namespace {

/// Shows one skin, for its author; no messenger is needed.
int showSkinGallery(const QString &file)
{
    clsMyApp myApp(applicationFolder(QApplication::applicationDirPath()));
    const QFileInfo info(file);
    myApp.Skin = info.isDir() ? QString(info.absoluteFilePath() % u"/skin.toml") : info.absoluteFilePath();
    if (!clsMyApp::IsFile(myApp.Skin)) {
        std::cerr << file.toStdString() << ": there is no skin" << std::endl;
        return 1;
    }
    SkinInUse skin(myApp);
    if (!skin.change()) {
        return 1;
    }
    LoadedWindows windows;
    SkinGallery gallery(skin, windows);
    QObject::connect(&gallery, &SkinGallery::closed, qApp, &QApplication::quit);
    QObject::connect(&gallery, &SkinGallery::reloadRequested, &gallery, [&] {
        if (!clsMyApp::IsFile(myApp.Skin)) {
            skin.report(QString(u"skin not used: there is no file \"" % myApp.Skin % u'"'));
        } else if (skin.change()) {
            windows.changeSkin();
        }
    });
    gallery.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("PyloxChat"));
    QApplication::setApplicationVersion(QStringLiteral(PYLOX_VERSION));
    QApplication::setQuitOnLastWindowClosed(false); // the program says itself when it has ended

    const QStringList arguments = QApplication::arguments().sliced(1);
    if (arguments.size() == 2 && arguments[0] == u"--skin-gallery") {
        return showSkinGallery(arguments[1]);
    }

    MessageBoxes prompts;
    SystemClock clock;
    DesktopAddresses addresses(pagesFolder(QApplication::applicationDirPath()));
    Program program(applicationFolder(QApplication::applicationDirPath()), CommandLine(arguments), prompts,
                    clock, addresses);
    QObject::connect(&program, &Program::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    return program.Main() ? QApplication::exec() : 1;
}
