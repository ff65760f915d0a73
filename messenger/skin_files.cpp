#include "messenger/skin_files.h"

#include <QDir>
#include <QFileInfo>

QStringList messenger::skinFolders(const QString &home, const QString &executableFolder)
{
    return {home + u"skins/",
            QString(QDir::cleanPath(executableFolder + u"/../share/pylox-chat/skins") + u'/')};
}

QString messenger::findSkin(const QString &nameOrPath, const QStringList &folders)
{
    const bool isPath = nameOrPath.contains(u'/') || nameOrPath.contains(u'\\') || nameOrPath.contains(u'.');
    if (isPath || nameOrPath.isEmpty()) {
        return nameOrPath;
    }
    for (const QString &folder : folders) {
        QString file = folder % nameOrPath % u".skn";
        if (QFileInfo(file).isFile()) {
            return file;
        }
    }
    return folders.value(0) % nameOrPath % u".skn";
}
