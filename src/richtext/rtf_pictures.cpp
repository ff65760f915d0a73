#include "richtext/rtf_pictures.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>

namespace {

constexpr int longestSide = 4096;

} // namespace

std::shared_ptr<const Picture> RtfPictures::decode(const QByteArray &data, Kind kind, const QString &code)
{
    if (kind == Kind::Other || data.isEmpty()) {
        return nullptr;
    }
    QCryptographicHash digest(QCryptographicHash::Sha1);
    digest.addData(data);
    digest.addData(code.toUtf8());
    const QByteArray key = digest.result();
    if (auto known = m_known.value(key)) {
        return known;
    }
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer, kind == Kind::Png ? "png" : "jpeg");
    const QSize size = reader.size(); // from the header
    if (size.isEmpty()) {
        return nullptr;
    }
    const qint64 pixels = qint64(size.width()) * size.height();
    if (size.width() > longestSide || size.height() > longestSide || pixels > m_pixelsLeft) {
        m_refusedAny = true;
        return nullptr;
    }
    m_pixelsLeft -= pixels;
    QImage image = reader.read();
    if (image.isNull()) {
        return nullptr;
    }
    image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    auto picture = std::make_shared<const Picture>(Picture{image, code});
    m_known.insert(key, picture);
    return picture;
}
