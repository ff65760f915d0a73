#include "core/clsMyApp.h"

#include "core/application_folder.h"

#include <QFile>
#include <QFileInfo>

clsMyApp::clsMyApp(const QString &folder) : m_path(withTrailingSeparator(folder)) {}

bool clsMyApp::IsFile(const QString &path)
{
    const QString local = localPath(path);
    return QFileInfo(local).isFile() && QFile(local).open(QIODevice::ReadOnly);
}

QString clsMyApp::localPath(const QString &path)
{
    return QString(path).replace(u'\\', u'/');
}

QString clsMyApp::SkinName() const
{
    const qsizetype folderEnd = qMax(Skin.lastIndexOf(u'\\'), Skin.lastIndexOf(u'/'));
    const QString file = Skin.sliced(folderEnd + 1);
    return file.first(qMax(file.lastIndexOf(u'.'), qsizetype(0)));
}

QPoint clsMyApp::centredOn(const QRect &owner, const QSize &window)
{
    return {owner.left() + (owner.width() - window.width()) / 2,
            owner.top() + (owner.height() - window.height()) / 2};
}
