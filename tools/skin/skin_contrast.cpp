#include "tools/skin/skin_contrast.h"

#include "platform/skin_values.h"
#include "platform/text_looks.h"
#include "skin/skin_catalogue.h"
#include "tools/skin/key_words.h"
#include "tools/skin/skin_inspection.h"

#include <array>
#include <cmath>

namespace {

constexpr double enough = 4.5;
constexpr double enoughDisabled = 3;

/// Some text, the colour or picture below it, and what it is.
struct TextOnGround
{
    SkinKeyName text;
    SkinKeyName ground;
    const char16_t *what;
    bool isDisabled = false;
};

constexpr SkinKeyName board{u"Chat Rooms", u"Chatters Message BackColour"};
constexpr SkinKeyName memberList{u"MainForm Frame", u"BackColour"};

constexpr SkinKeyName inForm(QStringView key)
{
    return {u"Defaults", key};
}
constexpr SkinKeyName inMenu(QStringView key)
{
    return {u"Menu", key};
}
constexpr SkinKeyName inList(QStringView key)
{
    return {u"MainForm Contact List", key};
}
constexpr SkinKeyName inRoom(QStringView key)
{
    return {u"Chat Rooms", key};
}

constexpr TextOnGround texts[] = {
    {inForm(u"FormForeColour"), inForm(u"BackColour"), u"text in windows"},
    {inForm(u"FormBoldForeColour"), inForm(u"BackColour"), u"headings in windows"},
    {inForm(u"FormCaptionForeColour"), inForm(u"Top"), u"the captions of windows"},
    {inForm(u"FormInputForeColour"), inForm(u"FormInputBackColour"), u"what is typed"},
    {inMenu(u"TextColour"), inMenu(u"BackColour"), u"menus"},
    {inMenu(u"TextColour"), inMenu(u"BackGround"), u"menus"},
    {inMenu(u"TextHighlightColour"), inMenu(u"GradientColour"), u"the chosen entry of a menu"},
    {inMenu(u"HeaderTextColour"), inMenu(u"HeaderBackColour"), u"headings in menus"},
    {inMenu(u"TextDisabledColour"), inMenu(u"BackColour"), u"entries that cannot be chosen", true},
    {inList(u"ForeColour"), memberList, u"the member list"},
    {inList(u"OnlineForeColour"), memberList, u"members that are online"},
    {inList(u"OfflineForeColour"), memberList, u"members that are away"},
    {inList(u"HeadingForeColour"), inList(u"HeadingBackColour"), u"headings in the member list"},
    {inList(u"Highlight ForeColour"), inList(u"Highlight BackColour"), u"the chosen member"},
    {inList(u"SearchForeColour"), inList(u"SearchBackColour"), u"searching in the member list"},
    {inRoom(u"Username ForeColour"), inRoom(u"Username BackColour"), u"the user's own name"},
    {inRoom(u"Message ForeColour"), inRoom(u"Message BackColour"), u"the user's own messages"},
    {inRoom(u"Chatters Name ForeColour"), inRoom(u"Chatters Name BackColour"), u"the names of the others"},
    {inRoom(u"Chatters Message ForeColour"), board, u"the messages of the others"},
    {inRoom(u"Emotions ForeColour"), inRoom(u"Emotions BackColour"), u"emotions"},
    {inRoom(u"Server Message"), board, u"notices"},
    {inRoom(u"Server Message Warning"), board, u"warnings"},
    {inRoom(u"Server Message Error"), board, u"errors"},
};

/// A button's captions: their two colours, and its pictures, whose keys begin with the state.
struct Captions
{
    QStringView textSection;
    QStringView text;
    QStringView disabled;
    QStringView section;
    QStringView button;
};
constexpr Captions captions[] = {
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Default Button", u" Button"},
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Chat Rooms", u" Font Button"},
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Chat Rooms", u" Emotions Button"},
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Chat Rooms", u" Send Button"},
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Chat Rooms", u" Menu Button"},
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Chat Rooms", u" Exit Button"},
    {u"Default Button", u"ForeColour", u"Disabled Colour", u"Messaging Window", u"InfoMsgButton"},
    {u"Add Friend Window", u"Button Forecolour", u"Button Disabled Colour", u"Add Friend Window",
     u"SelectButton"},
};
constexpr QStringView captionStates[] = {u"Normal", u"Over", u"Clicked", u"HasFocus", u"Down", u"Disabled"};

double linear(int component)
{
    const double value = component / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(QRgb colour)
{
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

/// None when it is there and no colour.
std::optional<QRgb> colourAt(const SkinInspection &inspection, SkinKeyName name)
{
    const SkinTomlValue *value = inspection.skin().value(name);
    const std::optional<ColourValue> colour = value == nullptr ? ColourValue(0) : colourOf(*value);
    return colour && *colour != noColour ? std::optional(toColor(*colour).rgb()) : std::nullopt;
}

/// The mean of the picture's middle, where captions stand, as it looks on that colour.
QRgb meanOnGround(const QImage &picture, QRgb ground)
{
    const QRect middle(picture.width() / 4, picture.height() / 4, (picture.width() + 1) / 2,
                       (picture.height() + 1) / 2);
    std::array<qint64, 3> sums{};
    for (int y = middle.top(); y <= middle.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = middle.left(); x <= middle.right(); ++x) {
            const int rest = 255 - qAlpha(line[x]);
            sums[0] += qRed(line[x]) + qRed(ground) * rest / 255;
            sums[1] += qGreen(line[x]) + qGreen(ground) * rest / 255;
            sums[2] += qBlue(line[x]) + qBlue(ground) * rest / 255;
        }
    }
    const qint64 count = qint64{middle.width()} * middle.height();
    const auto mean = [&](qint64 sum) { return static_cast<int>(sum / count); };
    return qRgb(mean(sums[0]), mean(sums[1]), mean(sums[2]));
}

bool isPicture(SkinKeyName name)
{
    const SkinSection *section = findSkinSection(name.section);
    const auto key = std::ranges::find(section->keys, name.key, &SkinKey::name);
    return key != section->keys.end() && key->kind == SkinKind::Bitmap;
}

std::optional<QRgb> groundAt(const SkinInspection &inspection, SkinKeyName name)
{
    if (!isPicture(name)) {
        return colourAt(inspection, name);
    }
    const QImage picture = inspection.picture(name);
    const auto below = colourAt(inspection, inForm(u"BackColour"));
    return picture.isNull() || !below ? std::nullopt : std::optional(meanOnGround(picture, *below));
}

void checkText(SkinInspection &inspection, const TextOnGround &pair)
{
    const auto text = colourAt(inspection, pair.text);
    const auto ground = groundAt(inspection, pair.ground);
    const double needed = pair.isDisabled ? enoughDisabled : enough;
    if (!text || !ground || contrast(*text, *ground) >= needed) {
        return;
    }
    const QString ratio = QString::number(std::floor(contrast(*text, *ground) * 100) / 100, 'f', 2);
    const QString advice = luminance(*text) < luminance(*ground)
                               ? QStringLiteral("darker text or a lighter ground")
                               : QStringLiteral("lighter text or a darker ground");
    const QString words =
        QString(QStringView(pair.what) % QStringView(pair.isDisabled ? u", disabled," : u"") %
                u" has a contrast of " % ratio % u" to 1 on " % pair.ground.label() % u"; " %
                QString::number(needed) % u" is needed: take " % advice);
    if (pair.isDisabled) {
        inspection.warning(pair.text, words);
    } else {
        inspection.error(pair.text, words);
    }
}

void checkCaptions(SkinInspection &inspection, const Captions &button)
{
    for (const QStringView state : captionStates) {
        const QString key = QString(state % button.button);
        if (stateOf({button.section, key}).isEmpty()) {
            continue; // few buttons can be latched
        }
        const bool isDisabled = state == u"Disabled";
        checkText(inspection, {{button.textSection, isDisabled ? button.disabled : button.text},
                               {button.section, key},
                               u"the caption of the button",
                               isDisabled});
    }
}

} // namespace

double contrast(QRgb a, QRgb b)
{
    const double lighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

void checkContrast(SkinInspection &inspection)
{
    for (const TextOnGround &pair : texts) {
        checkText(inspection, pair);
    }
    for (const Captions &button : captions) {
        checkCaptions(inspection, button);
    }
}
