#include "tools/skin/key_words.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr QStringView neededPieces[] = {u"TopLeft", u"Top",        u"TopRight",   u"Left",
                                        u"Right",   u"BottomLeft", u"BottomRight"};

bool hasPicture(QStringView section, const QString &key)
{
    const SkinSection *known = findSkinSection(section);
    return known != nullptr && std::ranges::any_of(known->keys, [&](const SkinKey &candidate) {
               return candidate.name == key && candidate.kind == SkinKind::Bitmap;
           });
}

/// What a button without the picture of this state shows.
QString withoutState(SkinKeyName name)
{
    const QStringView state = stateOf(name);
    if (state == u"Normal") {
        const bool hasOrdinary = name.section == u"Chat Rooms" && name.key != u"Normal BIU Button";
        return hasOrdinary ? QStringLiteral("the button gets the ordinary pictures")
                           : QStringLiteral("the button looks like the desktop's own");
    }
    if (state == u"Mask") {
        return QStringLiteral("nothing is cut away from the button");
    }
    return state == u"Over" ? QStringLiteral("the HasFocus picture is shown in its place")
                            : QStringLiteral("the Normal picture is shown in its place");
}

QString withoutPicture(SkinKeyName name)
{
    if (!stateOf(name).isEmpty()) {
        return withoutState(name);
    }
    if (name.section == u"Defaults" && isNeeded(name)) {
        return QStringLiteral("windows keep the desktop's border; draw this piece");
    }
    if (name.key == u"MaskColour") {
        return name.section == u"Defaults" ? QStringLiteral("windows are full rectangles")
                                           : QStringLiteral("no colour of the icons is transparent");
    }
    return QStringLiteral("nothing is shown in its place");
}

QString without(SkinKeyName name, SkinKind kind)
{
    switch (kind) {
    case SkinKind::Colour:
        return QStringLiteral("black is used");
    case SkinKind::Number:
        return QStringLiteral("0 is used");
    case SkinKind::Text:
        return QStringLiteral("the button keeps the program's caption");
    case SkinKind::Font:
        return QStringLiteral("the program's own font is used");
    case SkinKind::Bitmap:
        break;
    }
    return withoutPicture(name);
}

} // namespace

bool isNeeded(SkinKeyName name)
{
    return name.section == u"Defaults" ? std::ranges::find(neededPieces, name.key) != std::end(neededPieces)
                                       : name.section == u"Default Button" && name.key == u"Normal Button";
}

QString whenMissing(SkinKeyName name, SkinKind kind)
{
    return QString(u"is missing: " % without(name, kind));
}

bool mayBeNoColour(SkinKeyName name)
{
    return name.key == u"FormCaptionBackColour";
}

QStringView stateOf(SkinKeyName name)
{
    for (const QStringView state : buttonStates) {
        if (name.key.startsWith(state) &&
            hasPicture(name.section, QString(u"Normal" % name.key.sliced(state.size()))) &&
            hasPicture(name.section, name.key.toString())) {
            return state;
        }
    }
    return {};
}

bool startsWithNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral(R"(^\s*[+-]?\.?\d)"));
    return number.match(text).hasMatch();
}
