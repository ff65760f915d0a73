#include "tools/skin/commands.h"

#include <QApplication>

#include <iostream>
#include <memory>

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments += QString::fromLocal8Bit(argv[i]);
    }
    const SkinCommandLine line = parseSkinCommandLine(arguments);
    // No window is shown: pictures must not depend on the screen that happens to be there.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_SCALE_FACTOR", line.scale.toLatin1());
    const std::unique_ptr<QCoreApplication> application =
        line.draws ? std::make_unique<QApplication>(argc, argv)
                   : std::make_unique<QCoreApplication>(argc, argv);
    return static_cast<int>(runSkinCommand(line, std::cout, std::cerr));
}
