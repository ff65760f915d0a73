#pragma once

#include <QBuffer>
#include <QImage>
#include <QtEndian>

inline QImage plain(QSize size, QRgb colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

/// The picture as the bytes of a file.
inline QByteArray encoded(const QImage &image, const char *format = "png")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

/// A BMP whose header promises more than follows.
inline QByteArray promisedPicture(qint32 width, qint32 height)
{
    QByteArray bytes = encoded(plain({2, 2}, 0xFFFF0000), "bmp");
    qToLittleEndian(width, bytes.data() + 18);
    qToLittleEndian(height, bytes.data() + 22);
    return bytes;
}
