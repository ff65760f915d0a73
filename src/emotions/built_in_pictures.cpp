#include "emotions/built_in_pictures.h"

#include "platform/image_list.h"

#include <QPainter>
#include <QPainterPath>

#include <charconv>

namespace {

constexpr int side = 20;
constexpr int deviceRatio = 2;

/// One shape on a field of 40 by 40. Its path is made of M x y (move), L x y (line), Q and C (curves of two
/// and three points), E x y rx ry (ellipse) and Z (close).
struct Layer
{
    const char *path = nullptr;
    QRgb fill = 0;
    QRgb line = 0;
    qreal width = 0;
};

constexpr QRgb ink = 0xFF3B2410;
constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb yellow = 0xFFFFD23C;
constexpr QRgb brown = 0xFF9A6A00;
constexpr QRgb throat = 0xFF7A1F1A;
constexpr QRgb pink = 0xFFFF7F8E;
constexpr QRgb red = 0xFFE8293B;
constexpr QRgb darkRed = 0xFF8E0F20;
constexpr QRgb water = 0xFF55B4F5;
constexpr QRgb darkWater = 0xFF1D5FA8;

constexpr Layer filled(const char *path, QRgb fill)
{
    return {path, fill};
}

constexpr Layer stroked(const char *path, QRgb line, qreal width)
{
    return {path, 0, line, width};
}

constexpr Layer outlined(const char *path, QRgb fill, QRgb line, qreal width = 1.6)
{
    return {path, fill, line, width};
}

constexpr Layer disc(QRgb fill = yellow, QRgb line = brown)
{
    return outlined("E20 20 18 18", fill, line);
}

constexpr Layer lowDisc(QRgb fill = yellow, QRgb line = brown)
{
    return outlined("E20 22 16 16", fill, line);
}

constexpr Layer dots = filled("E14 16 3 4 E26 16 3 4", ink);
constexpr Layer happyEyes = stroked("M10 18 Q14 11 18 18 M22 18 Q26 11 30 18", ink, 2.8);
constexpr Layer shutEyes = stroked("M10 15 Q14 20 18 15 M22 15 Q26 20 30 15", ink, 2.8);
constexpr Layer wideEyes = outlined("E13 15 5 6 E27 15 5 6", white, ink);
constexpr Layer pupils = filled("E14 15 2 3 E26 15 2 3", ink);
constexpr Layer halfEyes =
    outlined("M9 15 L18 15 Q18 20 14 20 Q9 20 9 15 Z M22 15 L31 15 Q31 20 26 20 Q22 20 22 15 Z", white, ink);
constexpr Layer asidePupils = filled("E16 17 2 2 E29 17 2 2", ink);
constexpr Layer lowPupils = filled("E14 17 2 2 E26 17 2 2", ink);
constexpr Layer angryBrows = stroked("M9 10 L18 14 M31 10 L22 14", ink, 2.8);
constexpr Layer sadBrows = stroked("M8 12 Q12 11 16 8 M32 12 Q28 11 24 8", ink, 2.4);
constexpr Layer highBrows = stroked("M10 10 Q13 6 17 8 M30 10 Q27 6 23 8", ink, 2.2);
constexpr Layer smile = stroked("M10 24 Q20 36 30 24", ink, 2.8);
constexpr Layer frown = stroked("M12 31 Q20 22 28 31", ink, 2.8);
constexpr Layer flat = stroked("M13 28 L27 28", ink, 2.8);
constexpr Layer grin = outlined("M9 22 Q20 25 31 22 Q30 34 20 34 Q10 34 9 22 Z", throat, ink);
constexpr Layer teeth = filled("M10 24 Q20 26 30 24 L28 27 Q20 29 12 27 Z", white);
constexpr Layer blush = filled("E9 23 4 3 E31 23 4 3", 0xD0FF5D5D);

struct Drawing
{
    QStringView name;
    Layer layers[9];
};

constexpr Drawing drawings[] = {
    {u"Angel",
     {lowDisc(), shutEyes, smile, stroked("E20 5 11 3", 0xFFB98A00, 3.8),
      stroked("E20 5 11 3", 0xFFFFF3A0, 2)}},
    {u"Angry", {disc(0xFFF4583A, darkRed), dots, angryBrows, frown}},
    {u"Bored", {disc(), halfEyes, asidePupils, stroked("M14 29 Q19 26 26 27", ink, 2.8)}},
    {u"Chatty",
     {disc(), dots, outlined("M12 24 L28 24 Q27 33 20 33 Q13 33 12 24 Z", throat, ink),
      outlined("M24 2 L38 2 L38 12 L32 12 L27 16 L28 12 L24 12 Z", white, darkWater),
      stroked("M27 6 L35 6 M27 9 L33 9", darkWater, 1.6)}},
    {u"Chillin",
     {disc(), shutEyes, smile, stroked("M4 18 C4 -2 36 -2 36 18", 0xFF3D6AA8, 3.6),
      outlined("E5 20 4 6 E35 20 4 6", 0xFF4C78B8, 0xFF2C3E56)}},
    {u"Cool",
     {disc(), smile,
      filled("M4 12 L36 12 L35 17 Q33 21 28 21 Q22 21 21 15 L19 15 Q18 21 12 21 Q7 21 5 17 Z", 0xFF15171C),
      stroked("M9 18 L12 14 M24 18 L28 14", 0xFFB8C8DC, 1.6)}},
    {u"Depressed",
     {disc(0xFF86AEE2, 0xFF2B4E86), shutEyes, sadBrows, frown,
      outlined("M10 20 Q7 25 8 27 Q10 29 12 27 Q14 25 10 20 Z", 0xFFDDF2FF, darkWater, 1.2)}},
    {u"Pylox",
     {outlined("M5 19 Q1 8 6 2 Q8 8 17 9 Z M35 19 Q39 8 34 2 Q32 8 23 9 Z", 0xFFF0553C, darkRed),
      lowDisc(0xFFB072E8, 0xFF4B2180),
      outlined("M9 16 L18 19 Q17 24 14 24 Q10 24 9 16 Z M31 16 L22 19 Q23 24 26 24 Q30 24 31 16 Z",
               0xFFFFF27A, 0xFF2A0F4C),
      filled("E15 21 2 2 E25 21 2 2", 0xFF2A0F4C), stroked("M11 26 Q20 37 31 25", 0xFF2A0F4C, 2.6),
      outlined("M23 30 L25 35 L28 28 Z", white, 0xFF2A0F4C, 0.8)}},
    {u"Embarrased",
     {disc(0xFFFFC06A, 0xFFA8521A), blush, dots, sadBrows,
      stroked("M15 28 Q18 26 20 28 Q22 30 25 28", ink, 2.6)}},
    {u"Excited", {disc(), happyEyes, grin, teeth}},
    {u"Gasp",
     {disc(0xFFFFEFA0), wideEyes, pupils, outlined("E20 29 5 7", throat, ink), filled("E20 33 3 2", pink)}},
    {u"Happy", {disc(), dots, smile}},
    {u"Heart",
     {outlined("M20 37 C-4 20 1 3 11 3 C16 3 19 6 20 9 C21 6 24 3 29 3 C39 3 44 20 20 37 Z", red, darkRed),
      stroked("M7 15 Q7 8 12 8", 0xFFFFB4BA, 2.6)}},
    {u"Heart Broken",
     {outlined("M17 35 C-6 19 -1 4 9 4 C13 4 16 6 18 9 L14 16 L20 21 L15 27 Z", red, darkRed),
      outlined("M22 36 L21 28 L26 21 L20 15 L23 8 C24 5 27 4 31 4 C41 4 45 19 22 36 Z", red, darkRed)}},
    {u"Indifferent", {disc(), dots, flat}},
    {u"Nyah",
     {disc(), dots, smile, outlined("M15 29 L25 29 L25 33 Q24 38 20 38 Q16 38 15 33 Z", pink, darkRed)}},
    {u"Nyeh",
     {disc(), filled("E26 16 3 4", ink), stroked("M10 13 L17 16 L10 19", ink, 2.6),
      stroked("M11 25 L29 25", ink, 2.8),
      outlined("M12 26 L20 26 L20 33 Q20 37 16 37 Q12 37 12 33 Z", pink, darkRed)}},
    {u"Question",
     {stroked("M11 13 C11 2 29 2 29 12 C29 19 20 18 20 25", darkWater, 8), filled("E20 34 4 4", darkWater),
      stroked("M11 13 C11 2 29 2 29 12 C29 19 20 18 20 25", water, 4.8), filled("E20 34 3 3", water)}},
    {u"Sad", {disc(), dots, sadBrows, frown}},
    {u"Silly",
     {disc(), outlined("E13 15 6 7 E28 16 4 4", white, ink), filled("E15 17 2 2 E26 15 2 2", ink),
      outlined("M10 25 Q20 27 30 24 Q28 34 21 34 Q12 34 10 25 Z", throat, ink),
      filled("M16 26 L24 26 L23 30 L16 30 Z", white)}},
    {u"Suprised", {disc(), dots, highBrows, outlined("E20 28 4 4", throat, ink)}},
    {u"Tongue Tied",
     {disc(), dots, highBrows, stroked("M10 29 L14 25 L18 30 L22 25 L26 30 L30 26", darkRed, 4.8),
      stroked("M10 29 L14 25 L18 30 L22 25 L26 30 L30 26", pink, 2.6)}},
    {u"Unimpressed",
     {disc(), halfEyes, lowPupils, stroked("M9 11 L18 11 M22 10 Q26 6 31 9", ink, 2.4), flat}},
    {u"Wink", {disc(), filled("E14 16 3 4", ink), stroked("M22 17 Q26 13 30 16", ink, 2.8), smile}},
    {u"Worried",
     {disc(), dots, sadBrows, stroked("M11 29 Q14 25 17 28 Q20 31 23 28 Q26 25 29 29", ink, 2.6),
      outlined("M35 5 Q30 12 32 15 Q35 18 38 15 Q39 12 35 5 Z", water, darkWater)}},
    {u"Yum",
     {disc(), happyEyes, smile, outlined("M22 29 L28 24 Q35 24 33 30 Q31 35 25 33 Z", pink, darkRed)}},
    {u"Kiss",
     {outlined("M3 20 C9 11 15 7 20 12 C25 7 31 11 37 20 C31 32 25 34 20 34 C15 34 9 32 3 20 Z", red,
               darkRed),
      filled("M7 20 Q14 17 20 20 Q26 17 33 20 Q26 25 20 24 Q14 25 7 20 Z", 0xFF5A0715),
      stroked("M14 29 Q20 31 26 29", 0xFFFF9AA6, 2.2)}},
    {u"Cat",
     {outlined("M5 22 L5 3 L16 10 L24 10 L35 3 L35 22 Q35 37 20 37 Q5 37 5 22 Z", 0xFFF2A03D, 0xFF7E450C),
      filled("M8 12 L8 8 L12 10 Z M32 12 L32 8 L28 10 Z", pink), filled("E13 20 3 4 E27 20 3 4", 0xFF2F6B33),
      outlined("M18 25 L22 25 L20 28 Z", pink, darkRed, 1),
      stroked("M20 28 Q19 31 15 30 M20 28 Q21 31 25 30", ink, 1.6),
      stroked("M11 26 L1 24 M11 28 L2 30 M29 26 L39 24 M29 28 L38 30", 0xFF8A7A6A, 1.2)}},
    {u"Dog",
     {outlined("M9 12 Q10 4 20 4 Q30 4 31 12 L32 26 Q31 37 20 37 Q9 37 8 26 Z", 0xFFD9A066, 0xFF6B3F16),
      outlined("M11 6 Q1 5 2 18 Q2 25 6 25 Q11 24 12 10 Z M29 6 Q39 5 38 18 Q38 25 34 25 Q29 24 28 10 Z",
               0xFF8A5526, 0xFF4A2A0C),
      filled("E20 28 8 7", 0xFFF7E3C4), filled("E15 17 2 3 E25 17 2 3 E20 24 4 3", ink),
      stroked("M20 27 L20 30 M16 30 Q18 32 20 30 Q22 32 24 30", ink, 1.6),
      filled("M18 32 L22 32 L22 34 Q20 37 18 34 Z", pink)}},
    {u"Coffee",
     {outlined("E18 34 16 4", 0xFFC9D3DF, 0xFF5B6B7E),
      stroked("M28 19 Q38 17 37 23 Q36 28 27 28", 0xFF5B6B7E, 4.4),
      stroked("M28 19 Q38 17 37 23 Q36 28 27 28", white, 2),
      outlined("M6 16 L30 16 Q30 34 18 34 Q6 34 6 16 Z", white, 0xFF5B6B7E),
      outlined("E18 16 12 4", 0xFF6B3A18, 0xFF5B6B7E),
      stroked("M13 11 Q10 8 13 6 Q16 4 14 1 M22 11 Q19 8 22 6 Q25 4 22 1", 0xFFA0ACB8, 2)}},
    {u"Gift",
     {outlined("M20 11 Q6 11 8 5 Q13 0 20 11 Q27 0 32 5 Q34 11 20 11 Z", 0xFFFFD84A, brown),
      outlined("M5 18 L35 18 L35 37 L5 37 Z", 0xFF3E8EDE, 0xFF173F70),
      outlined("M3 11 L37 11 L37 18 L3 18 Z", 0xFF5AA8F2, 0xFF173F70),
      outlined("M17 11 L23 11 L23 37 L17 37 Z", 0xFFFFD84A, brown, 1.2)}},
};

/// The numbers up to the next letter.
QList<qreal> readNumbers(const char *&at, const char *end)
{
    QList<qreal> numbers;
    for (;;) {
        at += at != end && *at == ' ' ? 1 : 0;
        qreal number = 0;
        const auto [next, error] = std::from_chars(at, end, number);
        if (error != std::errc()) {
            return numbers;
        }
        numbers.append(number);
        at = next;
    }
}

QPainterPath readPath(QByteArrayView text)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const char *at = text.begin(); at != text.end();) {
        const char command = *at++;
        const QList<qreal> n = readNumbers(at, text.end());
        switch (command) {
        case 'M':
            path.moveTo(n[0], n[1]);
            break;
        case 'L':
            path.lineTo(n[0], n[1]);
            break;
        case 'Q':
            path.quadTo(n[0], n[1], n[2], n[3]);
            break;
        case 'C':
            path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]);
            break;
        case 'E':
            path.addEllipse(QPointF(n[0], n[1]), n[2], n[3]);
            break;
        default:
            path.closeSubpath();
        }
    }
    return path;
}

void paint(QPainter &painter, const Layer &layer)
{
    QLinearGradient gradient(0, 0, 0, 1);
    gradient.setCoordinateMode(QGradient::ObjectMode);
    const QColor colour = QColor::fromRgba(layer.fill);
    gradient.setColorAt(0, colour.lighter(112));
    gradient.setColorAt(1, colour.darker(108));
    painter.setBrush(layer.fill != 0 ? QBrush(gradient) : QBrush(Qt::NoBrush));
    painter.setPen(layer.line != 0 ? QPen(QColor::fromRgba(layer.line), layer.width, Qt::SolidLine,
                                          Qt::RoundCap, Qt::RoundJoin)
                                   : QPen(Qt::NoPen));
    painter.drawPath(readPath(layer.path));
}

QImage draw(const Drawing &drawing)
{
    QImage image(side * deviceRatio, side * deviceRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(deviceRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(1.0 / deviceRatio, 1.0 / deviceRatio);
    for (const Layer &layer : drawing.layers) {
        if (layer.path != nullptr) {
            paint(painter, layer);
        }
    }
    return image;
}

} // namespace

void addBuiltInEmoticons(ImageList &list)
{
    for (const Drawing &drawing : drawings) {
        list.add(QString(u'e' + drawing.name.toString()), draw(drawing));
    }
}
