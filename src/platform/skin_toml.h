#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <variant>

/// A value that is none of the kinds a skin uses (a list, a date, a table inside a table) is std::monostate.
using SkinScalar = std::variant<std::monostate, QString, qint64, double, bool>;

/// A value of skin.toml, and where it stands there; lines and columns count from 1.
struct SkinTomlValue
{
    std::variant<SkinScalar, QMap<QString, SkinScalar>> content; ///< the latter for a table of a few values
    int line = 0;
    int column = 0;
};

/// What skin.toml says: by section, by key. Keys outside of all sections are in the section "".
struct SkinTables
{
    QMap<QString, QMap<QString, SkinTomlValue>> sections;
};

/// Throws SkinError with the place "skin.toml:line:column". The file's name is for the reason.
[[nodiscard]] SkinTables readSkinToml(const QByteArray &toml, const QString &file);

/// What the value is, in a word for people: "text", "number", "true or false", "table", or "something else".
[[nodiscard]] QString kindOf(const SkinTomlValue &value);
