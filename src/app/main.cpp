#include "app/program.h"
#include "app/skin_gallery.h"
#include "core/application_folder.h"
#include "platform/addresses.h"
#include "platform/message_boxes.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>

#include <iostream>
#include <string_view>

namespace {

constexpr char usage[] = R"(Usage: PyloxChat [-portN~] [-cidN [-cnmNAME~]] [-showcat]
       PyloxChat --skin-gallery SKIN
The chat-room client. It connects to the messenger on this machine.

  -portN~              the messenger's port, instead of the one in Pylox.ini
  -cidN                ask to join the room with this number
  -cnmNAME~            the name of that room
  -showcat             open the room directory
  --skin-gallery SKIN  show everything that a skin brings; needs no messenger
  --help               print this and end
  --version            print the version and end
)";

/// What is printed for a command line that needs no display; empty for any other.
std::string_view printedFor(int argc, char *argv[])
{
    const std::string_view argument = argc == 2 ? argv[1] : "";
    if (argument == "--help") {
        return usage;
    }
    return argument == "--version" ? "PyloxChat " PYLOX_VERSION "\n" : "";
}

/// The menu entry's picture, for desktops that do not look it up, and for a program that is not installed.
QIcon programIcon()
{
    QIcon icon;
    const QDir sizes(QString(QApplication::applicationDirPath() % u"/../share/icons/hicolor"));
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        const QString side = QString::number(size);
        icon.addFile(sizes.filePath(side % u'x' % side % u"/apps/pylox-chat.png"), QSize(size, size));
    }
    return icon;
}

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
    if (const std::string_view text = printedFor(argc, argv); !text.empty()) {
        std::cout << text;
        return 0;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("PyloxChat"));
    QApplication::setApplicationVersion(QStringLiteral(PYLOX_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("pylox-chat"));
    QApplication::setWindowIcon(programIcon());
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
