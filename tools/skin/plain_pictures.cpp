#include "tools/skin/plain_pictures.h"

#include "skin/skin_catalogue.h"
#include "tools/skin/key_words.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <functional>

namespace {

constexpr QColor accent(0x2f, 0x6f, 0xb3);
constexpr QColor line(0x9a, 0xa7, 0xb8);
constexpr QColor ink(0x1f, 0x29, 0x33);
constexpr QColor ground(0xf3, 0xf5, 0xf8);
constexpr QColor cutAway(0xff, 0x00, 0xff);
constexpr QSize iconSize(16, 16);
constexpr QSize emoticonSize(20, 20);
constexpr QSize headingSize(12, 12);

/// Draws within this area, in pixels at 100 %.
using Draw = std::function<void(QPainter &painter, const QRectF &area)>;

QImage drawn(QSize size, int scale, const Draw &draw)
{
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    draw(painter, QRectF(QPointF(), QSizeF(size)));
    return image;
}

QImage filled(QSize size, int scale, const QColor &colour)
{
    return drawn(size, scale, [&](QPainter &painter, const QRectF &area) { painter.fillRect(area, colour); });
}

// A border is drawn as one box, of which the pieces are cut.

struct Border
{
    int side;
    int top;
    int bottom;
    int corner;
    QColor strip;
    QColor inside;
    QColor outside; ///< in the rounded corners
};
constexpr Border windowBorder{4, 28, 6, 8, QColor(0xdd, 0xe4, 0xee), ground, QColor(0, 0, 0, 0)};
constexpr Border frameBorder{4, 4, 4, 4, QColor(0xff, 0xff, 0xff), QColor(0xff, 0xff, 0xff), ground};
constexpr int tile = 16;

QRect pieceOf(const Border &border, QStringView key)
{
    const bool isRight = key.endsWith(u"Right");
    const bool isLeft = key.endsWith(u"Left");
    const int y = key.startsWith(u"Top") ? 0 : key.startsWith(u"Bottom") ? border.top + tile : border.top;
    const int height = key.startsWith(u"Top") ? border.top : key.startsWith(u"Bottom") ? border.bottom : tile;
    const int width = height == tile && y == border.top ? border.side
                      : isLeft || isRight               ? border.corner
                                                        : tile;
    const int x = isRight ? 2 * border.corner + tile - width : isLeft ? 0 : border.corner;
    return {x, y, width, height};
}

/// No half-transparent pixels: a window's shape has none.
QImage borderPiece(const Border &border, QStringView key, int scale)
{
    const QSize size(2 * border.corner + tile, border.top + tile + border.bottom);
    const QImage box = drawn(size, scale, [&](QPainter &painter, const QRectF &area) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.fillRect(area, border.outside);
        QPainterPath outline;
        outline.addRoundedRect(area, border.corner - 2, border.corner - 2);
        QPainterPath inner;
        inner.addRoundedRect(area.adjusted(1, 1, -1, -1), border.corner - 3, border.corner - 3);
        painter.fillPath(outline, line);
        painter.fillPath(inner, border.inside);
        painter.setClipPath(inner);
        painter.fillRect(QRectF(0, 0, area.width(), border.top), border.strip);
    });
    const QRect piece = pieceOf(border, key);
    return box.copy(QRect(piece.topLeft() * scale, piece.size() * scale));
}

// Buttons.

struct ButtonSize
{
    QStringView button; ///< the key without its state
    QSize size;
};
constexpr ButtonSize buttonSizes[] = {
    {u" Button", {84, 28}},      {u"SelectButton", {110, 28}},    {u" BIU Button", {26, 26}},
    {u" Font Button", {60, 26}}, {u" Emotions Button", {84, 26}}, {u" Send Button", {72, 30}},
    {u" Menu Button", {96, 28}}, {u" Exit Button", {96, 28}},     {u"InfoMsgButton", {132, 26}},
    {u"SysClose", {24, 20}},     {u"SysMin", {24, 20}},           {u"SysHelp", {24, 20}}};

struct StateLook
{
    QStringView state;
    QColor fill;
    QColor border;
    int thickness;
};
constexpr StateLook stateLooks[] = {{u"Normal", QColor(0xff, 0xff, 0xff), line, 1},
                                    {u"Over", QColor(0xe6, 0xef, 0xfa), accent, 1},
                                    {u"Clicked", QColor(0xc9, 0xdc, 0xf2), accent, 1},
                                    {u"Disabled", QColor(0xf0, 0xf2, 0xf5), QColor(0xd5, 0xda, 0xe1), 1},
                                    {u"HasFocus", QColor(0xff, 0xff, 0xff), accent, 2},
                                    {u"Down", QColor(0xc9, 0xdc, 0xf2), accent, 1}};

void drawBox(QPainter &painter, const QRectF &area, const StateLook &look)
{
    const double half = look.thickness / 2.0;
    painter.setPen(QPen(look.border, look.thickness));
    painter.setBrush(look.fill);
    painter.drawRoundedRect(area.adjusted(half, half, -half, -half), 4, 4);
}

void drawSystemMark(QPainter &painter, QStringView button)
{
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap));
    if (button == u"SysMin") {
        painter.drawLine(QPointF(8, 13), QPointF(16, 13));
    } else if (button == u"SysClose") {
        painter.drawLine(QPointF(8, 6), QPointF(16, 14));
        painter.drawLine(QPointF(8, 14), QPointF(16, 6));
    } else {
        painter.drawArc(QRectF(9, 4, 6, 6), -80 * 16, 260 * 16);
        painter.drawLine(QPointF(12, 10), QPointF(12, 11));
        painter.drawPoint(QPointF(12, 15));
    }
}

QImage buttonPicture(SkinKeyName name, int scale)
{
    const QStringView state = stateOf(name);
    const QStringView button = name.key.sliced(state.size());
    const QSize size = std::ranges::find(buttonSizes, button, &ButtonSize::button)->size;
    if (state == u"Mask") {
        return filled(size, scale, Qt::black);
    }
    const StateLook &look = *std::ranges::find(stateLooks, state, &StateLook::state);
    const bool isSystem = button.startsWith(u"Sys");
    return drawn(size, scale, [&](QPainter &painter, const QRectF &area) {
        if (!isSystem || state != u"Normal") {
            drawBox(painter, area, look);
        }
        if (isSystem) {
            drawSystemMark(painter, button);
        }
    });
}

// Small pictures.

void drawFace(QPainter &painter, const QRectF &area, const QColor &colour)
{
    painter.setPen(QPen(colour.darker(170), 1));
    painter.setBrush(colour);
    painter.drawEllipse(area.adjusted(1.5, 1.5, -1.5, -1.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (const double x : {0.36, 0.64}) {
        painter.drawEllipse(QPointF(area.width() * x, area.height() * 0.42), 1.2, 1.6);
    }
    painter.setPen(QPen(ink, 1.3));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(
        QRectF(area.width() * 0.3, area.height() * 0.36, area.width() * 0.4, area.height() * 0.36), 200 * 16,
        140 * 16);
}

void drawLetter(QPainter &painter, QStringView key)
{
    QPen pen(ink, key == u"Bold Overlay" ? 3 : 1.6);
    painter.setPen(pen);
    const double lean = key == u"Italic Overlay" ? 2 : 0;
    painter.drawLine(QPointF(8 + lean, 3), QPointF(8 - lean, 13));
    painter.drawLine(QPointF(4 + lean, 3), QPointF(12 + lean, 3));
    if (key == u"Underline Overlay") {
        painter.drawLine(QPointF(3, 15), QPointF(13, 15));
    }
}

void drawArrow(QPainter &painter, bool isDown)
{
    painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF down[] = {{2.5, 4.5}, {6, 8}, {9.5, 4.5}};
    const QPointF right[] = {{4.5, 2.5}, {8, 6}, {4.5, 9.5}};
    painter.drawPolyline(isDown ? down : right, 3);
}

/// Icons of a section differ by their colour.
QColor colourOfIcon(SkinKeyName name)
{
    const SkinSection &section = *findSkinSection(name.section);
    const auto place = std::ranges::find(section.keys, name.key, &SkinKey::name) - section.keys.begin();
    const auto hue = static_cast<int>(place * 360 / static_cast<std::ptrdiff_t>(section.keys.size()));
    return QColor::fromHsv(hue, 110, 235);
}

QImage overlayPicture(SkinKeyName name, int scale)
{
    return drawn(iconSize, scale, [&](QPainter &painter, const QRectF &area) {
        if (name.key == u"Emoticon Overlay") {
            drawFace(painter, area, QColor(0xff, 0xd2, 0x3c));
        } else {
            drawLetter(painter, name.key);
        }
    });
}

QImage iconPicture(SkinKeyName name, int scale)
{
    if (name.section == u"Contact List Heading Bitmaps") {
        return drawn(headingSize, scale, [&](QPainter &painter, const QRectF & /*area*/) {
            drawArrow(painter, name.key == u"HeadingHide");
        });
    }
    const bool isEmoticon = name.section == u"Chat Room Smileys";
    const bool isFace = isEmoticon || name.section == u"Mood Bitmaps";
    return drawn(isEmoticon ? emoticonSize : iconSize, scale, [&](QPainter &painter, const QRectF &area) {
        if (isFace) {
            drawFace(painter, area, colourOfIcon(name));
        } else {
            drawBox(painter, area.adjusted(2, 2, -2, -2), {{}, colourOfIcon(name), line, 1});
        }
    });
}

} // namespace

QImage plainPicture(SkinKeyName name, int scale)
{
    if (name.key == u"MaskColour") {
        return filled({1, 1}, scale, cutAway);
    }
    if (!stateOf(name).isEmpty()) {
        return buttonPicture(name, scale);
    }
    if (name.section == u"Defaults" || name.section == u"Default Frame") {
        return borderPiece(name.section == u"Defaults" ? windowBorder : frameBorder, name.key, scale);
    }
    if (name.key.endsWith(u"Overlay")) {
        return overlayPicture(name, scale);
    }
    if (name.key == u"Emoticon to Website") {
        return drawn(emoticonSize, scale, [](QPainter &painter, const QRectF &area) {
            painter.setPen(QPen(accent, 1.5));
            painter.drawEllipse(area.adjusted(2, 2, -2, -2));
            painter.drawEllipse(area.adjusted(6, 2, -6, -2));
        });
    }
    const bool isGround = name.key == u"BackGround" || name.key == u"Message Board Background";
    return isGround ? filled({tile, tile}, scale, Qt::white) : iconPicture(name, scale);
}
