#pragma once

#include "platform/skin_files.h"
#include "platform/skin_toml.h"

#include <QStringList>

class SkinError;

/// A key and its section. The views must outlive it.
struct SkinKeyName
{
    QStringView section;
    QStringView key;

    /// "[Section] Key", or "[Section]" for the section itself, fit to be printed.
    [[nodiscard]] QString label() const;
};

/// A place in skin.toml; lines and columns count from 1, 0 is nowhere.
struct TomlPlace
{
    int line = 0;
    int column = 0;
};

/// A skin as its author wrote it: what skin.toml says and where, and the files beside it. It is what was
/// there when it was opened; files are read when they are asked for.
class AuthoredSkin
{
public:
    /// Opens an archive, a folder, or the skin.toml of one. Throws SkinError, also when skin.toml cannot be
    /// read.
    explicit AuthoredSkin(const QString &path);

    [[nodiscard]] const SkinTables &tables() const { return m_tables; }
    [[nodiscard]] const QByteArray &toml() const { return m_toml; }
    [[nodiscard]] SkinFiles &files() { return m_files; }

    /// Null when the skin does not say it.
    [[nodiscard]] const SkinTomlValue *value(SkinKeyName name) const;
    /// Where its value stands; else where its section begins, else the first line.
    [[nodiscard]] TomlPlace placeOf(SkinKeyName name) const;
    /// The files that the program's picture keys name, in their own spelling, each once.
    [[nodiscard]] QStringList pictureNames() const;

private:
    SkinFiles m_files;
    QByteArray m_toml;
    SkinTables m_tables;
};

/// The reason without the skin's path, for those who name it already.
[[nodiscard]] QString reasonWithin(const SkinError &refusal, const QString &path);

/// "pictures/a.png" is "pictures/a@2x.png" for fine screens.
[[nodiscard]] QString fineNameOf(const QString &name);
