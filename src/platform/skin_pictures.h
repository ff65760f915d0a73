#pragma once

#include "platform/skin_files.h"

#include <QHash>
#include <QImage>

/// The pictures of a skin, decoded once each however many keys name them.
class SkinPictures
{
public:
    /// A picture, or why there is none.
    struct Picture
    {
        QImage image;  ///< premultiplied ARGB
        QString fault; ///< empty when there is an image
        bool isThere = true;
    };

    /// Decodes PNG and BMP. Throws SkinError when the picture is too large or its name leads out of the skin.
    const Picture &read(const QString &name, SkinFiles &files);

private:
    [[nodiscard]] Picture decode(QByteArray bytes, const QString &file, const QString &place);

    QHash<QString, Picture> m_pictures; ///< by path
    qint64 m_pixelsLeft = SkinLimits::pixels;
};
