#pragma once

#include "core/colours.h"
#include "platform/skin_error.h"

#include <QFont>
#include <QImage>
#include <QStringList>

#include <memory>
#include <variant>

struct SkinTables;
struct SkinTomlValue;

/// What a value is asked as. The numbers are part of the storage's interface.
enum class SkinType : int
{
    Colour = 3,
    Text = 8,
    Object = 9, ///< a picture or a font
};

/// A picture as it is drawn at 100 %, and the same one for fine screens: exactly twice as wide and high, or
/// null where the skin brings none. Both are premultiplied ARGB.
struct SkinPicture
{
    QImage image;
    QImage image2x;
};

/// The answer to a key: nothing, a colour, a text, a picture or a font.
using SkinValue = std::variant<std::monostate, ColourValue, QString, SkinPicture, QFont>;

/// Whether the pictures for fine screens are read as well: they take four fifths of a skin's memory.
enum class FinePictures
{
    Read,
    Skip
};

/// The only one who knows what a skin file looks like inside: an archive with a "skin.toml" and pictures, or
/// a folder with the same. Everything a stranger can put into one is checked here, before memory is taken for
/// it. Every operation throws SkinError when the skin is not fit to be used, and leaves the storage closed
/// then.
class SkinStorage
{
public:
    explicit SkinStorage(FinePictures fine = FinePictures::Read);
    ~SkinStorage();
    SkinStorage(const SkinStorage &) = delete;
    SkinStorage &operator=(const SkinStorage &) = delete;

    /// Opens an archive, a folder, or the "skin.toml" of a folder, and reads its tables; pictures are read
    /// when they are asked for. A file that was open is closed first.
    void OpenFile(const QString &path);

    /// Opens an archive that is in memory. The name is for the reasons of errors and for notes.
    void openBytes(const QByteArray &archive, const QString &name);

    /// Later values are read from this table; one that the file does not have holds no keys.
    void SetSection(const QString &name);

    /// The value of the key in the current table. Nothing when the key is not there, and, with a note, when
    /// its value is of another kind or names a picture that is not there. Keys that name the same picture
    /// share its pixels, which the storage holds until it is closed.
    [[nodiscard]] SkinValue GetValue(const QString &key, SkinType type);

    /// Forgets the file and the table; without a file every value is nothing.
    void CloseFile();

    /// All that the file's tables hold; empty without a file.
    [[nodiscard]] SkinTables tables() const;

    /// What was passed over since a file was last opened, a line each: "file: section, key: why".
    [[nodiscard]] const QStringList &notes() const { return m_notes; }

private:
    struct Open;

    [[nodiscard]] SkinValue convert(const QString &key, const SkinTomlValue &value, SkinType type);
    [[nodiscard]] SkinValue picture(const QString &key, const QString &name);
    void note(const QString &key, const QString &why);

    FinePictures m_fine;
    std::unique_ptr<Open> m_open; ///< null while no file is open
    QString m_section;
    QStringList m_notes;
};
