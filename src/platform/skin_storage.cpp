#include "platform/skin_storage.h"

#include "platform/skin_pictures.h"
#include "platform/skin_values.h"

namespace {

constexpr qsizetype mostNotes = 500;

SkinTables readTables(SkinFiles &files)
{
    const auto toml = files.read(QString::fromUtf16(skinTomlName), SkinLimits::tomlBytes);
    if (!toml) {
        throw SkinError(files.file(), {}, QStringLiteral("there is no skin.toml in it"));
    }
    return readSkinToml(*toml, files.file());
}

/// "pictures/a.png" is "pictures/a@2x.png" for fine screens.
QString fineNameOf(const QString &name)
{
    const qsizetype nameAt = std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1;
    const qsizetype dot = name.lastIndexOf(u'.');
    return QString(name).insert(dot > nameAt ? dot : name.size(), u"@2x");
}

QString wantedWords(SkinType type)
{
    switch (type) {
    case SkinType::Colour:
        return QStringLiteral("a colour is wanted: \"#rrggbb\", \"none\" or a number up to 0xFFFFFF");
    case SkinType::Text:
        return QStringLiteral("a text is wanted");
    case SkinType::Object:
        break;
    }
    return QStringLiteral("a picture's name or a font with a face and a size of 1 to 200 points is wanted");
}

template <typename Value>
SkinValue valueOr(const std::optional<Value> &value)
{
    return value ? SkinValue(*value) : SkinValue();
}

} // namespace

struct SkinStorage::Open
{
    explicit Open(SkinFiles opened) : files(std::move(opened)), tables(readTables(files)) {}

    SkinFiles files;
    SkinTables tables;
    SkinPictures pictures;
};

SkinStorage::SkinStorage(FinePictures fine) : m_fine(fine) {}
SkinStorage::~SkinStorage() = default;

void SkinStorage::OpenFile(const QString &path)
{
    CloseFile();
    m_notes.clear();
    m_open = std::make_unique<Open>(SkinFiles(path));
}

void SkinStorage::openBytes(const QByteArray &archive, const QString &name)
{
    CloseFile();
    m_notes.clear();
    m_open = std::make_unique<Open>(SkinFiles(archive, name));
}

void SkinStorage::SetSection(const QString &name)
{
    m_section = name;
}

void SkinStorage::CloseFile()
{
    m_open.reset();
    m_section.clear();
}

SkinTables SkinStorage::tables() const
{
    return m_open ? m_open->tables : SkinTables();
}

SkinValue SkinStorage::GetValue(const QString &key, SkinType type)
{
    if (!m_open) {
        return {};
    }
    const auto section = m_open->tables.sections.constFind(m_section);
    if (section == m_open->tables.sections.constEnd()) {
        return {};
    }
    const auto value = section->constFind(key);
    if (value == section->constEnd()) {
        return {};
    }
    try {
        return convert(key, *value, type);
    } catch (const SkinError &) {
        CloseFile();
        throw;
    }
}

SkinValue SkinStorage::convert(const QString &key, const SkinTomlValue &value, SkinType type)
{
    const QString *name = type == SkinType::Object ? asText(value) : nullptr;
    if (name != nullptr) {
        return picture(key, *name);
    }
    SkinValue converted = type == SkinType::Colour ? valueOr(colourOf(value))
                          : type == SkinType::Text ? valueOr(textOf(value))
                                                   : valueOr(fontOf(value));
    if (converted.index() == 0) {
        note(key, QString(wantedWords(type) + u", not " + kindOf(value)));
    }
    return converted;
}

SkinValue SkinStorage::picture(const QString &key, const QString &name)
{
    const SkinPictures::Picture coarse = m_open->pictures.read(name, m_open->files);
    if (coarse.image.isNull()) {
        note(key, QString(printable(name) + u' ' + coarse.fault));
        return {};
    }
    if (m_fine == FinePictures::Skip) {
        return SkinPicture{coarse.image, {}};
    }
    const QString fineName = fineNameOf(name);
    const SkinPictures::Picture fine = m_open->pictures.read(fineName, m_open->files);
    if (fine.image.size() == coarse.image.size() * 2) {
        return SkinPicture{coarse.image, fine.image};
    }
    if (fine.isThere) {
        note(key,
             QString(printable(fineName) + u' ' +
                     (fine.image.isNull()
                          ? fine.fault
                          : QStringLiteral("is not twice as wide and high as %1").arg(printable(name)))));
    }
    return SkinPicture{coarse.image, {}};
}

void SkinStorage::note(const QString &key, const QString &why)
{
    const QString line = QString(m_open->files.file() + u": " + m_section + u", " + key + u": " + why);
    if (m_notes.size() < mostNotes && !m_notes.contains(line)) {
        m_notes += line;
    }
}
