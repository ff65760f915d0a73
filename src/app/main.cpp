#include "app/program.h"
#include "core/application_folder.h"
#include "platform/addresses.h"
#include "platform/message_boxes.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("PyloxChat"));
    QApplication::setApplicationDisplayName(QStringLiteral("Pylox Chat"));
    QApplication::setApplicationVersion(QStringLiteral(PYLOX_VERSION));
    QApplication::setQuitOnLastWindowClosed(false); // the program says itself when it has ended

    MessageBoxes prompts;
    SystemClock clock;
    DesktopAddresses addresses(pagesFolder(QApplication::applicationDirPath()));
    Program program(applicationFolder(QApplication::applicationDirPath()),
                    CommandLine(QApplication::arguments().sliced(1)), prompts, clock, addresses);
    QObject::connect(&program, &Program::ended, &application, &QApplication::quit, Qt::QueuedConnection);
    return program.Main() ? QApplication::exec() : 1;
}
