#include "privmsg/privmsg_placement.h"

#include "core/numbers.h"
#include "platform/on_screen.h"
#include "platform/settings_file.h"

#include <QWidget>

#include <algorithm>

namespace {

constexpr int twipsPerPixel = 15;
constexpr qsizetype longestId = 64;

QString sectionOf(const QString &peerId)
{
    return u"ChatPrivMsg-" + peerId;
}

} // namespace

PrivatePlacement readPlacement(const SettingsFile &settings, const QString &peerId)
{
    const auto pixels = [&](const QString &key) {
        const QString text = settings.ReadValue(key, {}, sectionOf(peerId));
        return text.isNull() ? std::nullopt : std::optional(leadingInt32(text) / twipsPerPixel);
    };
    return {pixels(QStringLiteral("Left")), pixels(QStringLiteral("Top")), pixels(QStringLiteral("Width")),
            pixels(QStringLiteral("Height"))};
}

void takePlacement(QWidget &window, const PrivatePlacement &placement)
{
    const QRect wanted(placement.left.value_or(window.x()), placement.top.value_or(window.y()),
                       placement.width.value_or(window.width()), placement.height.value_or(window.height()));
    const QRect place = broughtOnScreen(wanted, window.minimumSize(), availableScreens());
    window.resize(place.size());
    if (placement.left || placement.top) { // else the window manager finds a place
        window.move(place.topLeft());
    }
}

void writePlacement(SettingsFile &settings, const QString &peerId, const QWidget &window, int convHeight)
{
    if (peerId.size() > longestId) {
        return;
    }
    const QString section = sectionOf(peerId);
    QList<SettingsValue> values = {{QStringLiteral("ConvHeight"), QString::number(convHeight)}};
    if (!window.isMinimized() && !window.isMaximized() && !window.isFullScreen()) {
        const auto twips = [](int pixels) { return QString::number(pixels * twipsPerPixel); };
        values += {{QStringLiteral("Left"), twips(window.x())},
                   {QStringLiteral("Top"), twips(window.y())},
                   {QStringLiteral("Width"), twips(window.width())},
                   {QStringLiteral("Height"), twips(window.height())}};
    }
    const auto isNew = [&](const SettingsValue &each) {
        return settings.ReadValue(each.key, {}, section) != each.value;
    };
    if (std::ranges::any_of(values, isNew)) {
        settings.WriteValues(values, section);
    }
}
