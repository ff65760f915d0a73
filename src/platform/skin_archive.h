#pragma once

#include "platform/skin_names.h"

#include <QByteArray>

#include <memory>

struct zip;

/// A skin as a ZIP archive in memory, so that a file that is replaced meanwhile does no harm. Everything
/// throws SkinError: an archive with one entry that no skin may have is refused as a whole.
class SkinArchive
{
public:
    /// The file's name is for the reasons of errors.
    SkinArchive(QByteArray bytes, const QString &file);

    [[nodiscard]] const std::vector<SkinEntry> &entries() const { return m_entries.all(); }

    /// The unpacked entry; none when there is no file of this path. It must be as large as the archive says,
    /// so that the sum of the sizes, which is checked beforehand, holds.
    [[nodiscard]] std::optional<QByteArray> read(const QString &path, qint64 mostBytes) const;

private:
    struct Discard
    {
        void operator()(zip *archive) const;
    };
    void addEntry(quint64 index);

    QByteArray m_bytes; ///< what m_zip reads from
    QString m_file;
    std::unique_ptr<zip, Discard> m_zip;
    SkinEntries m_entries;
};

/// One file of a skin that is to be written.
struct SkinContent
{
    QString path;
    QByteArray bytes;
};

/// The archive that holds these files: sorted by name and with fixed times, so that the same files always
/// make the same bytes. Throws SkinError for what could not be opened again.
[[nodiscard]] QByteArray skinArchive(std::vector<SkinContent> contents);

/// Writes that archive; a file that was there is replaced as a whole or left as it was. Throws SkinError.
void writeSkinArchive(std::vector<SkinContent> contents, const QString &path);
