#pragma once

#include "platform/skin_archive.h"

#include <variant>

/// A skin as an unpacked folder. Links are followed as long as they stay inside it.
class SkinFolder
{
public:
    /// Throws SkinError when there is no such folder.
    SkinFolder(const QString &folder, const QString &file);

    /// The files as they are at this moment. Throws SkinError for what no skin may have.
    [[nodiscard]] std::vector<SkinEntry> entries() const;
    [[nodiscard]] std::optional<QByteArray> read(const QString &path, qint64 mostBytes) const;

private:
    [[nodiscard]] QString placeOf(const QString &path) const;

    QString m_root; ///< without links
    QString m_file;
};

/// The files of a skin, whether they are packed or not. Everything throws SkinError.
class SkinFiles
{
public:
    /// Opens an archive, a folder, or the folder of a "skin.toml".
    explicit SkinFiles(const QString &path);
    /// Opens an archive that is in memory; the file's name is for the reasons of errors.
    SkinFiles(const QByteArray &archive, const QString &file);

    /// The path as it was given.
    [[nodiscard]] const QString &file() const { return m_file; }
    [[nodiscard]] std::vector<SkinEntry> entries() const;

    /// The whole file; none when there is none of this name. A name that leads out of the skin is an error,
    /// and so is a file of more bytes. All that is read counts against the limit of a skin, so that no file
    /// should be read twice.
    [[nodiscard]] std::optional<QByteArray> read(const QString &name, qint64 mostBytes = SkinLimits::bytes);

private:
    QString m_file;
    std::variant<SkinArchive, SkinFolder> m_place;
    qint64 m_bytesLeft = SkinLimits::bytes;
};
