#include "platform/image_list.h"

#include <algorithm>

void ImageList::clear()
{
    m_images.clear();
    m_indices.clear();
    ++m_version;
}

void ImageList::add(const QString &key, const QImage &image)
{
    int &index = m_indices[key];
    if (index == 0) {
        m_images.append(image);
        index = count();
    } else {
        m_images[index - 1] = image;
    }
    ++m_version;
}

QImage ImageList::image(const QString &key) const
{
    return m_images.value(index(key) - 1);
}

QImage ImageList::imageOn(const QString &key, QRgb ground) const
{
    QImage picture = image(key);
    if (picture.isNull() || !m_maskColour) {
        return picture;
    }
    picture = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        std::replace(line, line + picture.width(), *m_maskColour | 0xFF000000, ground);
    }
    return picture;
}

void ImageList::setMaskColour(std::optional<QRgb> colour)
{
    m_maskColour = colour;
    ++m_version;
}
