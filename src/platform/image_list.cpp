#include "platform/image_list.h"

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

void ImageList::setMaskColour(std::optional<QRgb> colour)
{
    m_maskColour = colour;
    ++m_version;
}
