#pragma once

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

/// The most that a skin may hold. Who made it is a stranger, and how large it says it is may be a lie.
namespace SkinLimits {
inline constexpr qint64 bytes = qint64{64} << 20; // the archive itself, and all its entries unpacked
inline constexpr qint64 tomlBytes = qint64{1} << 20;
inline constexpr int entries = 4096;
inline constexpr int pictureSide = 4096;
inline constexpr qint64 pixels = qint64{64} << 20; // of all pictures that are read from one skin
} // namespace SkinLimits

inline constexpr char16_t skinTomlName[] = u"skin.toml";

/// Words of a stranger as they may stand in a message: what does not print becomes "?", and they are cut
/// short.
[[nodiscard]] QString printable(const QString &words);

/// Where in a skin a name leads, or what is wrong with it. "\" parts a path as "/" does.
struct SkinName
{
    QString path;  ///< "pictures/a.png": never absolute, no "." or ".." in it; empty for the skin itself
    QString fault; ///< empty, or why no skin may have this name
};
[[nodiscard]] SkinName skinName(const QString &name);

/// One file of a skin. The size is what the archive or the folder says.
struct SkinEntry
{
    QString path;
    qint64 size = 0;
    quint64 index = 0; ///< its number in the archive
};

/// The files of a skin, as they are found one by one; takes none that a skin may not have, nor too many.
class SkinEntries
{
public:
    explicit SkinEntries(QString file) : m_file(std::move(file)) {}

    /// Throws SkinError. Folders count and are compared, but not kept; what desktops leave behind is passed
    /// over.
    void add(const QString &name, quint64 size, quint64 index = 0);

    [[nodiscard]] const std::vector<SkinEntry> &all() const { return m_entries; }
    [[nodiscard]] const SkinEntry *find(const QString &path) const;

private:
    QString m_file;
    std::vector<SkinEntry> m_entries;
    QHash<QString, std::size_t> m_places; ///< by path
    QHash<QString, bool> m_folded;        ///< the paths taken, without letter case
    qint64 m_size = 0;
    int m_count = 0;
};
