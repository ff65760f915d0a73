#include "platform/skin_pictures.h"

#include "platform/skin_error.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace {

constexpr char png[] = "png";
constexpr char bmp[] = "bmp";

template <typename Number>
qint64 numberAt(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

/// Whether the rows that the header promises are there: the decoder would show memory in place of missing
/// ones. Packed rows are not taken, since their number is known only after unpacking. The size has been
/// checked.
bool isWholeBmp(const QByteArray &bytes)
{
    constexpr qint64 fileHeader = 14;
    constexpr qint64 infoHeader = 40;
    constexpr qint64 plain = 0;
    constexpr qint64 masked = 3;
    constexpr qint64 masks = 12;
    if (bytes.size() < fileHeader + infoHeader) {
        return false;
    }
    const qint64 header = numberAt<quint32>(bytes, 14);
    const qint64 width = numberAt<qint32>(bytes, 18);
    const qint64 height = qAbs(numberAt<qint32>(bytes, 22));
    const qint64 bits = numberAt<quint16>(bytes, 28);
    const qint64 packing = numberAt<quint32>(bytes, 30);
    const qint64 used = numberAt<quint32>(bytes, 46);
    const qint64 colours = bits > 8 ? 0 : used == 0 ? qint64{1} << bits : used;
    const qint64 rows = numberAt<quint32>(bytes, 10);
    const qint64 rowSize = (width * bits + 31) / 32 * 4;
    return header >= infoHeader && width >= 0 && (packing == plain || packing == masked) &&
           rows >=
               fileHeader + header + 4 * colours + (packing == masked && header == infoHeader ? masks : 0) &&
           rowSize * height <= bytes.size() - rows;
}

/// Null for what is no picture that a skin may have. The decoder is chosen here, so that no other sees the
/// bytes.
const char *formatOf(const QByteArray &bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1a\n")) {
        return png;
    }
    return bytes.startsWith("BM") ? bmp : nullptr;
}

} // namespace

const SkinPictures::Picture &SkinPictures::read(const QString &name, SkinFiles &files)
{
    const QString path = skinName(name).path;
    const auto known = m_pictures.constFind(path);
    if (known != m_pictures.constEnd() && !path.isEmpty()) {
        return *known;
    }
    const std::optional<QByteArray> bytes = files.read(name);
    Picture picture{{}, QStringLiteral("is not there"), false};
    if (bytes) {
        picture = decode(*bytes, files.file(), printable(path));
    }
    return *m_pictures.insert(path, picture);
}

SkinPictures::Picture SkinPictures::decode(QByteArray bytes, const QString &file, const QString &place)
{
    const char *format = formatOf(bytes);
    if (format == nullptr) {
        return {{}, QStringLiteral("is neither PNG nor BMP")};
    }
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isEmpty()) {
        return {{}, QStringLiteral("cannot be decoded")};
    }
    if (size.width() > SkinLimits::pictureSide || size.height() > SkinLimits::pictureSide) {
        throw SkinError(file, place,
                        QStringLiteral("larger than %1 x %1 pixels").arg(SkinLimits::pictureSide));
    }
    m_pixelsLeft -= qint64{size.width()} * size.height();
    if (m_pixelsLeft < 0) {
        throw SkinError(file, place, QStringLiteral("the pictures are too large in all"));
    }
    const bool isWhole = format != bmp || isWholeBmp(bytes);
    const QImage image = isWhole ? reader.read() : QImage();
    if (image.isNull() || image.size() != size) {
        return {{}, QStringLiteral("cannot be decoded")};
    }
    return {image.convertToFormat(QImage::Format_ARGB32_Premultiplied), {}};
}
