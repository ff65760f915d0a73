#include "richtext/rtf_pictures.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>

#include <algorithm>

namespace {

constexpr int longestSide = 4096;
constexpr int twipsPerPixel = 15;
constexpr double finestRatio = 4;

} // namespace

int hexValue(char16_t c)
{
    if (c >= u'0' && c <= u'9') {
        return c - u'0';
    }
    const char16_t lower = c | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

void RtfPictures::start()
{
    m_kind = Kind::Other;
    m_widthOnPaper = 0;
    m_data.clear();
    m_halfByte = -1;
    m_code.clear();
}

void RtfPictures::takeHex(QStringView text)
{
    for (const QChar c : text) {
        const int value = hexValue(c.unicode());
        if (value < 0) {
            continue;
        }
        if (m_halfByte < 0) {
            m_halfByte = value;
        } else {
            m_data.append(static_cast<char>(m_halfByte * 16 + value));
            m_halfByte = -1;
        }
    }
}

void RtfPictures::takePropertyValue(QStringView text)
{
    m_propertyValue += text;
    if (m_propertyName == u"wzDescription") {
        m_code = m_propertyValue;
    }
}

RtfPictures::Finished RtfPictures::finish()
{
    Finished finished{decode(), m_code};
    start();
    return finished;
}

std::shared_ptr<const Picture> RtfPictures::decode()
{
    if (m_kind == Kind::Other || m_data.isEmpty()) {
        return nullptr;
    }
    QCryptographicHash digest(QCryptographicHash::Sha1);
    digest.addData(m_data);
    digest.addData(m_code.toUtf8());
    digest.addData(QByteArray::number(m_widthOnPaper));
    const QByteArray key = digest.result();
    if (auto known = m_known.value(key)) {
        return known;
    }
    QBuffer buffer;
    buffer.setData(m_data);
    QImageReader reader(&buffer, m_kind == Kind::Png ? "png" : "jpeg");
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
    if (m_widthOnPaper > 0) {
        const double ratio = static_cast<double>(image.width()) * twipsPerPixel / m_widthOnPaper;
        image.setDevicePixelRatio(std::clamp(ratio, 1.0, finestRatio));
    }
    auto picture = std::make_shared<const Picture>(Picture{image, m_code, {}});
    m_known.insert(key, picture);
    return picture;
}
