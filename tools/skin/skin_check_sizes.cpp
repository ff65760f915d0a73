#include "tools/skin/skin_check_sizes.h"

#include "skin/skin_catalogue.h"
#include "tools/skin/key_words.h"
#include "tools/skin/skin_inspection.h"

#include <algorithm>

namespace {

constexpr QRgb cutAwayByMask = 0xFFFFFFFF;

bool isWithin(QSize inner, QSize outer)
{
    return inner.width() <= outer.width() && inner.height() <= outer.height();
}

/// A state is drawn into the place of the Normal picture: what is larger is cut off, what is smaller leaves a
/// hole.
void checkButtons(SkinInspection &inspection, const SkinSection &section)
{
    for (const SkinKey &key : section.keys) {
        const QStringView state = stateOf({section.name, key.name});
        if (state.isEmpty()) {
            continue;
        }
        const QString normalKey = QString(u"Normal" % key.name.sliced(state.size()));
        const QSize normal = inspection.picture({section.name, normalKey}).size();
        const QSize size = inspection.picture({section.name, key.name}).size();
        if (!normal.isEmpty() && !size.isEmpty() && size != normal) {
            inspection.error({section.name, key.name},
                             QString(u"has " % sizeWords(size) % u", but " % normalKey % u" has " %
                                     sizeWords(normal) % u": make them equal"));
        }
    }
}

bool cutsAll(const QImage &mask)
{
    for (int y = 0; y < mask.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(mask.constScanLine(y));
        if (std::any_of(line, line + mask.width(),
                        [](QRgb pixel) { return pixel != cutAwayByMask && qAlpha(pixel) != 0; })) {
            return false;
        }
    }
    return !mask.isNull();
}

void checkMasks(SkinInspection &inspection, const SkinSection &section)
{
    for (const SkinKey &key : section.keys) {
        const SkinKeyName name{section.name, key.name};
        if (stateOf(name) == u"Mask" && cutsAll(inspection.picture(name))) {
            inspection.error(name, QStringLiteral("cuts the whole button away: draw what stays in black"));
        }
        const QImage picture = inspection.picture(name);
        if (key.name == u"MaskColour" && !picture.isNull() && qAlpha(picture.pixel(0, 0)) == 0) {
            inspection.warning(name, QStringLiteral("its first pixel is transparent, which cuts black away: "
                                                    "fill it with the colour that is to be cut away"));
        }
    }
}

void checkOverlays(SkinInspection &inspection)
{
    constexpr QStringView room = u"Chat Rooms";
    const QSize button = inspection.picture({room, u"Normal BIU Button"}).size();
    for (const QStringView key :
         {u"Bold Overlay", u"Italic Overlay", u"Underline Overlay", u"Emoticon Overlay"}) {
        const QSize size = inspection.picture({room, key}).size();
        if (!button.isEmpty() && !size.isEmpty() && !isWithin(size, button)) {
            inspection.warning({room, key}, QString(u"has " % sizeWords(size) % u", more than its button, " %
                                                    sizeWords(button) % u": it is cut off at the edges"));
        }
    }
}

/// A corner and the two edges that should end in it.
struct Corner
{
    QStringView corner;
    QStringView side;
    QStringView edge;
};
constexpr Corner corners[] = {{u"TopLeft", u"Left", u"Top"},
                              {u"TopRight", u"Right", u"Top"},
                              {u"BottomLeft", u"Left", u"Bottom"},
                              {u"BottomRight", u"Right", u"Bottom"}};

/// A corner fills the place where its edges end. It may go on along one of them, but not along both: then it
/// also reaches over what stands inside.
void checkCorner(SkinInspection &inspection, QStringView section, const Corner &pieces)
{
    const auto sizeOf = [&](QStringView key) { return inspection.picture({section, key}).size(); };
    const QSize corner = sizeOf(pieces.corner);
    const QSize side = sizeOf(pieces.side);
    const QSize edge = sizeOf(pieces.edge);
    if (corner.isEmpty() || side.isEmpty() || edge.isEmpty()) {
        return;
    }
    const SkinKeyName name{section, pieces.corner};
    if (corner.height() < edge.height()) {
        inspection.warning(name, QStringLiteral("is %1 pixels high, but %2 is %3: a hole stays between them")
                                     .arg(corner.height())
                                     .arg(pieces.edge)
                                     .arg(edge.height()));
    }
    if (corner.width() < side.width()) {
        inspection.warning(name, QStringLiteral("is %1 pixels wide, but %2 is %3: they do not meet")
                                     .arg(corner.width())
                                     .arg(pieces.side)
                                     .arg(side.width()));
    }
    if (corner.height() > edge.height() && corner.width() > side.width()) {
        inspection.warning(name, QStringLiteral("is higher than %1 and wider than %2: it reaches below what "
                                                "stands inside; make it %3 pixels high")
                                     .arg(pieces.edge, pieces.side)
                                     .arg(edge.height()));
    }
}

void checkBorders(SkinInspection &inspection)
{
    for (const QStringView section : {u"Defaults", u"Default Frame"}) {
        for (const Corner &corner : corners) {
            checkCorner(inspection, section, corner);
        }
    }
    const int strip = inspection.picture({u"Defaults", u"Top"}).height();
    for (const QStringView key : {u"NormalSysClose", u"NormalSysMin", u"NormalSysHelp"}) {
        const int height = inspection.picture({u"Defaults", key}).height();
        if (strip > 0 && height > strip) {
            inspection.warning(
                {u"Defaults", key},
                QStringLiteral("is %1 pixels high, but the title strip, Top, is %2: it is cut off")
                    .arg(height)
                    .arg(strip));
        }
    }
}

/// Icons of one section stand below each other.
void checkIcons(SkinInspection &inspection, const SkinSection &section)
{
    if (section.group != SkinGroup::ProgramIcons) {
        return;
    }
    QMap<std::pair<int, int>, int> counts;
    const auto sizeOf = [&](const SkinKey &key) {
        return inspection.picture({section.name, key.name}).size();
    };
    for (const SkinKey &key : section.keys) {
        counts[{sizeOf(key).width(), sizeOf(key).height()}] += sizeOf(key).isEmpty() ? 0 : 1;
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    const QSize usual(most.key().first, most.key().second);
    for (const SkinKey &key : section.keys) {
        if (!sizeOf(key).isEmpty() && sizeOf(key) != usual) {
            inspection.warning({section.name, key.name}, QString(u"has " % sizeWords(sizeOf(key)) %
                                                                 u", but most icons of the section have " %
                                                                 sizeWords(usual) % u": make them equal"));
        }
    }
}

} // namespace

void checkSizes(SkinInspection &inspection)
{
    for (const SkinSection &section : skinCatalogue()) {
        checkButtons(inspection, section);
        checkMasks(inspection, section);
        checkIcons(inspection, section);
    }
    checkOverlays(inspection);
    checkBorders(inspection);
}
