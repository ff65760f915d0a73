#include "core/application_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

QString withTrailingSeparator(const QString &folder)
{
    QString native = QDir::toNativeSeparators(folder);
    while (native.endsWith(QDir::separator())) {
        native.chop(1);
    }
    return native + QDir::separator();
}

namespace {

/// An installation brings the menu entry: the programs' folder is everybody's then, even where it can be
/// written to.
bool isInstalled(const QString &executableFolder)
{
    return QFileInfo::exists(executableFolder + u"/../share/applications/pylox-chat.desktop");
}

} // namespace

QString applicationFolder(const QString &executableFolder)
{
    if (const QString home = qEnvironmentVariable("PYLOX_HOME"); !home.isEmpty()) {
        return withTrailingSeparator(home);
    }
    if (const QFileInfo folder(executableFolder);
        folder.isDir() && folder.isWritable() && !isInstalled(executableFolder)) {
        return withTrailingSeparator(executableFolder);
    }
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return withTrailingSeparator(data + u"/pylox-chat");
}
