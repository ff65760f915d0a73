#include "tools/skin/skin_check.h"

#include "platform/skin_values.h"
#include "skin/skin_catalogue.h"
#include "tools/skin/key_words.h"
#include "tools/skin/nearest_name.h"
#include "tools/skin/skin_check_sizes.h"
#include "tools/skin/skin_contrast.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

QString wantedWords(SkinKind kind)
{
    switch (kind) {
    case SkinKind::Colour:
        return QStringLiteral("a colour is wanted, \"#rrggbb\" or a number up to 0xFFFFFF");
    case SkinKind::Number:
        return QStringLiteral("a number is wanted");
    case SkinKind::Text:
        return QStringLiteral("a text is wanted");
    case SkinKind::Font:
        return QStringLiteral(
            "a font is wanted, { face = \"...\", size = 1 to 200, bold = true or false ... }");
    case SkinKind::Bitmap:
        break;
    }
    return QStringLiteral("the name of a picture is wanted");
}

bool isOfKind(const SkinTomlValue &value, SkinKind kind)
{
    switch (kind) {
    case SkinKind::Colour:
        return colourOf(value).has_value();
    case SkinKind::Number: {
        const auto text = textOf(value);
        return text && startsWithNumber(*text);
    }
    case SkinKind::Text:
        return textOf(value).has_value();
    case SkinKind::Font:
        return fontOf(value).has_value();
    case SkinKind::Bitmap:
        break;
    }
    return asText(value) != nullptr;
}

void checkValue(SkinInspection &inspection, SkinKeyName name, SkinKind kind, const SkinTomlValue &value)
{
    const QString *text = asText(value);
    if (!isOfKind(value, kind)) {
        const QString found = text == nullptr ? kindOf(value) : QString(u'"' % printable(*text) % u'"');
        inspection.error(name, QString(wantedWords(kind) % u", not " % found));
    } else if (kind == SkinKind::Bitmap) {
        inspection.readPicture(name, *text);
    } else if (kind == SkinKind::Colour && colourOf(value) == noColour && !mayBeNoColour(name)) {
        inspection.warning(name,
                           QStringLiteral("\"none\" is understood by FormCaptionBackColour only: name a "
                                          "colour"));
    }
}

void checkSection(SkinInspection &inspection, const SkinSection &section)
{
    const bool isThere = inspection.skin().tables().sections.contains(section.name.toString());
    if (!isThere) {
        inspection.warning({section.name, {}}, QString(u"the section is missing: " % section.purpose));
    }
    for (const SkinKey &key : section.keys) {
        const SkinKeyName name{section.name, key.name};
        if (const SkinTomlValue *value = inspection.skin().value(name)) {
            checkValue(inspection, name, key.kind, *value);
        } else if (isNeeded(name)) {
            inspection.error(name, whenMissing(name, key.kind));
        } else if (isThere) {
            inspection.warning(name, whenMissing(name, key.kind));
        }
    }
}

QString meant(const QString &nearest, const QString &otherwise)
{
    return nearest.isEmpty() ? otherwise : QString(u"did you mean \"" % nearest % u"\"?");
}

/// The known keys of the section that the skin has not set: those of which another spelling may be meant.
QStringList missingKeys(const AuthoredSkin &skin, const SkinSection &section)
{
    QStringList names;
    for (const SkinKey &key : section.keys) {
        if (skin.value({section.name, key.name}) == nullptr) {
            names += key.name.toString();
        }
    }
    return names;
}

QString sectionsWith(QStringView key)
{
    QStringList names;
    for (const SkinSection &section : skinCatalogue()) {
        if (std::ranges::any_of(section.keys, [&](const SkinKey &known) { return known.name == key; })) {
            names += QString(u'[' % section.name % u']');
        }
    }
    return names.join(u", ");
}

void checkKeysAreKnown(SkinInspection &inspection, const SkinSection &section)
{
    const AuthoredSkin &skin = inspection.skin();
    const auto keys = skin.tables().sections.value(section.name.toString());
    for (auto key = keys.keyBegin(); key != keys.keyEnd(); ++key) {
        if (std::ranges::any_of(section.keys, [&](const SkinKey &known) { return known.name == *key; })) {
            continue;
        }
        const QString elsewhere = sectionsWith(*key);
        const QString shown = printable(*key);
        inspection.warning(
            {section.name, *key},
            elsewhere.isEmpty()
                ? QString(u"the program does not know \"" % shown % u"\": " %
                          meant(nearestName(*key, missingKeys(skin, section)), QStringLiteral("remove it")))
                : QString(u"the program looks for it in " % elsewhere % u": move it there"));
    }
}

/// Keys above the first section, and sections that the program does not know.
void checkStrangers(SkinInspection &inspection)
{
    QStringList known;
    for (const SkinSection &section : skinCatalogue()) {
        known += section.name.toString();
    }
    const auto &sections = inspection.skin().tables().sections;
    for (auto section = sections.begin(); section != sections.end(); ++section) {
        if (section.key().isEmpty()) {
            for (auto key = section->keyBegin(); key != section->keyEnd(); ++key) {
                const QString where = sectionsWith(*key);
                inspection.warning({{}, *key}, QString(u"stands outside of all sections: move it into " %
                                                       (where.isEmpty() ? QStringLiteral("one") : where)));
            }
        } else if (!known.contains(section.key())) {
            inspection.warning({section.key(), {}}, QString(u"the program does not know this section: " %
                                                            meant(nearestName(section.key(), known),
                                                                  QStringLiteral("remove it"))));
        }
    }
}

/// A refusal may say where in skin.toml it found its reason.
Finding findingOf(const SkinError &refusal, const QString &path)
{
    static const QRegularExpression place(QStringLiteral("^skin\\.toml:(\\d+):(\\d+): "));
    const QString reason = reasonWithin(refusal, path);
    const QRegularExpressionMatch match = place.match(reason);
    return {Severity::Error,
            {match.captured(1).toInt(), match.captured(2).toInt()},
            reason.sliced(match.capturedLength())};
}

std::vector<Finding> inspect(AuthoredSkin &skin)
{
    SkinInspection inspection(skin);
    for (const SkinSection &section : skinCatalogue()) {
        checkSection(inspection, section);
        checkKeysAreKnown(inspection, section);
    }
    checkStrangers(inspection);
    checkSizes(inspection);
    checkContrast(inspection);
    std::vector<Finding> findings = inspection.takeFindings();
    std::ranges::stable_sort(findings, {}, [](const Finding &finding) {
        return std::pair(finding.place.line, finding.place.column);
    });
    return findings;
}

} // namespace

std::vector<Finding> checkSkin(const QString &path)
{
    try {
        AuthoredSkin skin(path);
        return inspect(skin);
    } catch (const SkinError &refusal) {
        return {findingOf(refusal, path)};
    }
}

QString nameInFindings(const QString &path)
{
    if (!QFileInfo(path).isDir()) {
        return path;
    }
    return path.endsWith(u'/') ? QString(path % u"skin.toml") : QString(path % u"/skin.toml");
}
