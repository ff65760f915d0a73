#include "platform/skin_values.h"

#include <QLocale>

#include <algorithm>

namespace {

constexpr double smallestPoints = 1;
constexpr double largestPoints = 200;
constexpr qsizetype longestFace = 100;
constexpr ColourValue largestColour = 0x00FFFFFF;

using Fields = QMap<QString, SkinScalar>;

template <typename Kind>
const Kind *scalar(const SkinTomlValue &value)
{
    const auto *scalar = std::get_if<SkinScalar>(&value.content);
    return scalar == nullptr ? nullptr : std::get_if<Kind>(scalar);
}

bool isHexDigit(QChar c)
{
    const char16_t digit = c.toLower().unicode();
    return (digit >= u'0' && digit <= u'9') || (digit >= u'a' && digit <= u'f');
}

std::optional<ColourValue> colourOfText(const QString &text)
{
    if (text == u"none") {
        return noColour;
    }
    if (text.size() != 7 || text[0] != u'#' || !std::all_of(text.cbegin() + 1, text.cend(), isHexDigit)) {
        return std::nullopt;
    }
    const uint rgb = QStringView(text).mid(1).toUInt(nullptr, 16);
    return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | (rgb >> 16);
}

const SkinScalar *fieldOf(const Fields &fields, const QString &name)
{
    const auto field = fields.constFind(name);
    return field == fields.constEnd() ? nullptr : &*field;
}

QString faceOf(const Fields &fields)
{
    const QString *face = std::get_if<QString>(fieldOf(fields, QStringLiteral("face")));
    return face == nullptr || face->size() > longestFace ? QString() : face->trimmed();
}

std::optional<double> pointsOf(const Fields &fields)
{
    const SkinScalar *size = fieldOf(fields, QStringLiteral("size"));
    double points = 0;
    if (const auto *whole = std::get_if<qint64>(size)) {
        points = static_cast<double>(*whole);
    } else if (const auto *real = std::get_if<double>(size)) {
        points = *real;
    }
    return points >= smallestPoints && points <= largestPoints ? std::optional(points) : std::nullopt;
}

/// False when the field is there and is not true or false.
bool applyFlag(const Fields &fields, const QString &name, QFont &font, void (QFont::*set)(bool))
{
    const SkinScalar *field = fieldOf(fields, name);
    const bool *flag = std::get_if<bool>(field);
    if (flag != nullptr) {
        (font.*set)(*flag);
    }
    return field == nullptr || flag != nullptr;
}

} // namespace

const QString *asText(const SkinTomlValue &value)
{
    return scalar<QString>(value);
}

std::optional<ColourValue> colourOf(const SkinTomlValue &value)
{
    if (const QString *text = asText(value)) {
        return colourOfText(*text);
    }
    const auto *number = scalar<qint64>(value);
    if (number == nullptr || *number < 0 || *number > largestColour) {
        return std::nullopt;
    }
    return static_cast<ColourValue>(*number);
}

std::optional<QString> textOf(const SkinTomlValue &value)
{
    if (const QString *text = asText(value)) {
        return *text;
    }
    if (const auto *number = scalar<qint64>(value)) {
        return QString::number(*number);
    }
    if (const auto *number = scalar<double>(value)) {
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    }
    return std::nullopt;
}

std::optional<QFont> fontOf(const SkinTomlValue &value)
{
    const auto *fields = std::get_if<Fields>(&value.content);
    if (fields == nullptr) {
        return std::nullopt;
    }
    const QString face = faceOf(*fields);
    const std::optional<double> points = pointsOf(*fields);
    if (face.isEmpty() || !points) {
        return std::nullopt;
    }
    QFont font(face);
    font.setPointSizeF(*points);
    const bool isWhole = applyFlag(*fields, QStringLiteral("bold"), font, &QFont::setBold) &&
                         applyFlag(*fields, QStringLiteral("italic"), font, &QFont::setItalic) &&
                         applyFlag(*fields, QStringLiteral("underline"), font, &QFont::setUnderline) &&
                         applyFlag(*fields, QStringLiteral("strikethrough"), font, &QFont::setStrikeOut);
    return isWhole ? std::optional(font) : std::nullopt;
}
