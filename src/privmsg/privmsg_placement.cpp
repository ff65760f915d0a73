#include "privmsg/privmsg_placement.h"

#include "core/numbers.h"
#include "platform/settings_file.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int twipsPerPixel = 15;
constexpr qsizetype longestId = 64;

QString sectionOf(const QString &peerId)
{
    return u"ChatPrivMsg-" + peerId;
}

qint64 area(const QRect &rect)
{
    return rect.isEmpty() ? 0 : qint64(rect.width()) * rect.height();
}

void writeIfNew(SettingsFile &settings, const QString &key, int value, const QString &section)
{
    const QString text = QString::number(value);
    if (settings.ReadValue(key, {}, section) != text) {
        settings.WriteValue(key, text, section);
    }
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
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens()) {
        screens += screen->availableGeometry();
    }
    const QRect place = broughtOnScreen(wanted, window.minimumSize(), screens);
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
    writeIfNew(settings, QStringLiteral("ConvHeight"), convHeight, section);
    if (window.isMinimized() || window.isMaximized() || window.isFullScreen()) {
        return;
    }
    writeIfNew(settings, QStringLiteral("Left"), window.x() * twipsPerPixel, section);
    writeIfNew(settings, QStringLiteral("Top"), window.y() * twipsPerPixel, section);
    writeIfNew(settings, QStringLiteral("Width"), window.width() * twipsPerPixel, section);
    writeIfNew(settings, QStringLiteral("Height"), window.height() * twipsPerPixel, section);
}

QRect broughtOnScreen(const QRect &wanted, QSize minimum, const QList<QRect> &screens)
{
    if (screens.isEmpty()) {
        return wanted;
    }
    const QRect whole(wanted.topLeft(), wanted.size().expandedTo(minimum));
    const auto covered = [&](const QRect &screen) { return area(screen & whole); };
    const QRect screen = *std::ranges::max_element(screens, {}, covered);
    QRect place(whole.topLeft(), whole.size().boundedTo(screen.size()));
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() + 1 - place.height()));
    return place;
}
