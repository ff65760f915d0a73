#include "tools/skin/authored_skin.h"

#include "platform/skin_error.h"
#include "platform/skin_values.h"
#include "skin/skin_catalogue.h"

namespace {

QByteArray readToml(SkinFiles &files)
{
    const auto toml = files.read(QString::fromUtf16(skinTomlName), SkinLimits::tomlBytes);
    if (!toml) {
        throw SkinError(files.file(), {}, QStringLiteral("there is no skin.toml in it"));
    }
    return *toml;
}

/// "[Menu]" and "[ "Default Button" ] # comment" begin a section; "" for any other line.
QString sectionBegunBy(const QString &line)
{
    const QString text = line.trimmed();
    const qsizetype end = text.lastIndexOf(u']');
    if (!text.startsWith(u'[') || end < 0) {
        return {};
    }
    return text.sliced(1, end - 1).remove(u'"').remove(u'\'').trimmed();
}

} // namespace

QString SkinKeyName::label() const
{
    const QString place = QString(u'[' % printable(section.toString()) % u']');
    return key.isEmpty() ? place : QString(place % u' ' % printable(key.toString()));
}

QString reasonWithin(const SkinError &refusal, const QString &path)
{
    const QString prefix = QString(path % u": ");
    const QString reason = refusal.reason();
    return reason.startsWith(prefix) ? reason.sliced(prefix.size()) : reason;
}

AuthoredSkin::AuthoredSkin(const QString &path)
    : m_files(path), m_toml(readToml(m_files)), m_tables(readSkinToml(m_toml, path))
{}

const SkinTomlValue *AuthoredSkin::value(SkinKeyName name) const
{
    const auto section = m_tables.sections.constFind(name.section.toString());
    if (section == m_tables.sections.constEnd()) {
        return nullptr;
    }
    const auto value = section->constFind(name.key.toString());
    return value == section->constEnd() ? nullptr : &*value;
}

TomlPlace AuthoredSkin::placeOf(SkinKeyName name) const
{
    if (const SkinTomlValue *found = value(name)) {
        return {found->line, found->column};
    }
    int line = 0;
    for (const QByteArray &text : m_toml.split('\n')) {
        ++line;
        if (!name.section.isEmpty() && sectionBegunBy(QString::fromUtf8(text)) == name.section) {
            return {line, 1};
        }
    }
    return {1, 1};
}

QStringList AuthoredSkin::pictureNames() const
{
    QStringList names;
    for (const SkinSection &section : skinCatalogue()) {
        for (const SkinKey &key : section.keys) {
            const SkinTomlValue *found =
                key.kind == SkinKind::Bitmap ? value({section.name, key.name}) : nullptr;
            const QString *name = found == nullptr ? nullptr : asText(*found);
            if (name != nullptr && !names.contains(*name)) {
                names += *name;
            }
        }
    }
    return names;
}

QString fineNameOf(const QString &name)
{
    const qsizetype nameAt = std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\')) + 1;
    const qsizetype dot = name.lastIndexOf(u'.');
    return QString(name).insert(dot > nameAt ? dot : name.size(), u"@2x");
}
