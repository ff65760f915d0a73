#pragma once

#include "skin/cDIBSection.h"

#include <QFont>
#include <QString>

#include <optional>
#include <variant>

/// What an item of the skin description holds. Asked for as another kind than it is, it gives that kind's
/// empty value: 0, the empty text, no font, no bitmap.
class SkinItemValue
{
public:
    SkinItemValue() = default;
    explicit SkinItemValue(qint32 number) : m_value(number) {}
    explicit SkinItemValue(QString text) : m_value(std::move(text)) {}
    explicit SkinItemValue(QFont font) : m_value(std::move(font)) {}
    explicit SkinItemValue(SkinBitmap bitmap) : m_value(std::move(bitmap)) {}

    [[nodiscard]] bool isEmpty() const { return std::holds_alternative<std::monostate>(m_value); }

    [[nodiscard]] ColourValue colour() const { return static_cast<ColourValue>(number()); }
    [[nodiscard]] qint32 number() const { return as<qint32>(); }
    [[nodiscard]] QString text() const { return as<QString>(); }
    [[nodiscard]] SkinBitmap bitmap() const { return as<SkinBitmap>(); }
    [[nodiscard]] std::optional<QFont> font() const
    {
        const auto *font = std::get_if<QFont>(&m_value);
        return font == nullptr ? std::nullopt : std::optional(*font);
    }

private:
    template <typename Kind>
    [[nodiscard]] Kind as() const
    {
        const auto *value = std::get_if<Kind>(&m_value);
        return value == nullptr ? Kind() : *value;
    }

    std::variant<std::monostate, qint32, QString, QFont, SkinBitmap> m_value;
};
