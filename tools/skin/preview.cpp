#include "tools/skin/preview.h"

#include "app/skin_gallery.h"
#include "core/clsMyApp.h"
#include "platform/skin_error.h"
#include "platform/whole_file.h"
#include "skin/skin_in_use.h"

#include <QFileInfo>
#include <QImage>

#include <ostream>

void writePreview(const QString &skin, const QString &file, std::ostream &notes)
{
    const QFileInfo info(skin);
    clsMyApp myApp(info.absolutePath());
    myApp.Skin = info.isDir() ? QString(info.absoluteFilePath() % u"/skin.toml") : info.absoluteFilePath();
    if (!clsMyApp::IsFile(myApp.Skin)) {
        throw SkinError(skin, {}, QStringLiteral("there is no skin"));
    }
    SkinInUse inUse(myApp, WindowFrame::Skin,
                    [&](const QString &line) { notes << "pylox-skin: " << line.toStdString() << '\n'; });
    if (!inUse.change()) {
        throw SkinError(skin, {}, QStringLiteral("there is nothing to be seen of it"));
    }
    QSaveFile picture(file);
    if (!picture.open(QIODevice::WriteOnly) || !skinPreview(inUse).save(&picture, "png") ||
        !commitWhole(picture)) {
        throw SkinError(file, {}, QString(u"cannot be written: " % picture.errorString()));
    }
}
