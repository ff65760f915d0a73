#include "skin/skin_reading.h"

#include "platform/skin_storage.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace {

SkinType storageType(SkinKind kind)
{
    switch (kind) {
    case SkinKind::Colour:
        return SkinType::Colour;
    case SkinKind::Number:
    case SkinKind::Text:
        return SkinType::Text;
    case SkinKind::Font:
    case SkinKind::Bitmap:
        break;
    }
    return SkinType::Object;
}

/// Null when there is no picture.
SkinBitmap GetBitmap(SkinStorage &storage, const QString &key)
{
    const SkinValue value = storage.GetValue(key, SkinType::Object);
    const auto *picture = std::get_if<SkinPicture>(&value);
    if (picture == nullptr || picture->image.isNull()) {
        return nullptr;
    }
    auto bitmap = std::make_shared<cDIBSection>();
    bitmap->CreateFromPicture(*picture);
    return bitmap;
}

} // namespace

qint32 leadingNumber(QStringView text)
{
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?)"));
    const QRegularExpressionMatch match = number.match(text.toString());
    if (!match.hasMatch()) {
        return 0;
    }
    const double value = std::nearbyint(match.captured().trimmed().toDouble());
    constexpr auto least = std::numeric_limits<qint32>::min();
    constexpr auto most = std::numeric_limits<qint32>::max();
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<qint32>(qBound(double(least), value, double(most)));
}

SkinItemValue readSkinValue(SkinStorage &storage, const QString &key, SkinKind kind)
{
    if (kind == SkinKind::Bitmap) {
        SkinBitmap bitmap = GetBitmap(storage, key);
        return bitmap == nullptr ? SkinItemValue() : SkinItemValue(std::move(bitmap));
    }
    const SkinValue value = storage.GetValue(key, storageType(kind));
    if (const auto *colour = std::get_if<ColourValue>(&value)) {
        return SkinItemValue(static_cast<qint32>(*colour));
    }
    if (const auto *text = std::get_if<QString>(&value)) {
        return kind == SkinKind::Number ? SkinItemValue(leadingNumber(*text)) : SkinItemValue(*text);
    }
    if (const auto *font = std::get_if<QFont>(&value); font != nullptr && kind == SkinKind::Font) {
        return SkinItemValue(*font);
    }
    return {};
}
