#include "tools/skin/skin_template.h"

#include "skin/skin_catalogue.h"
#include "tools/skin/key_notes.h"
#include "tools/skin/plain_pictures.h"

#include <QBuffer>
#include <QRegularExpression>

namespace {

constexpr QStringView opening =
    uR"(# A plain skin to begin with. Change the pictures and the values, and look:
#
#     PyloxChat --skin-gallery FOLDER      shows the skin; Ctrl+R reads it again
#     pylox-skin check FOLDER              says what is wrong with it
#     pylox-skin pack FOLDER MySkin.skn    makes one file of it
#
# Colours are "#rrggbb". Pictures are PNG or BMP; NAME@2x.png is NAME.png for screens with twice the pixels, and
# exactly twice as wide and high. A key that is taken away is simply not dressed.
)";

/// "Normal BIU Button" is "normal-biu-button", "TopLeft" is "top-left".
QString fileNameOf(QStringView words)
{
    static const QRegularExpression capitalAfterSmall(QStringLiteral("([a-z])([A-Z])"));
    QString name = words.toString().replace(capitalAfterSmall, QStringLiteral("\\1-\\2"));
    return name.replace(u' ', u'-').toLower();
}

QString pictureNameOf(SkinKeyName name)
{
    return QString(u"pictures/" % fileNameOf(name.section) % u'/' % fileNameOf(name.key) % u".png");
}

/// A bare key has letters and digits only.
QString quoted(QStringView name)
{
    return name.contains(u' ') ? QString(u'"' % name % u'"') : name.toString();
}

QString plainFont(QStringView key)
{
    const bool isBold = key == u"FormCaptionFont" || key == u"BoldFont";
    return QString(u"{ face = \"DejaVu Sans\", size = 10, bold = " %
                   QStringView(isBold ? u"true" : u"false") % u" }");
}

QString valueOf(SkinKeyName name, SkinKind kind)
{
    switch (kind) {
    case SkinKind::Bitmap:
        return QString(u'"' % pictureNameOf(name) % u'"');
    case SkinKind::Font:
        return plainFont(name.key);
    case SkinKind::Colour:
    case SkinKind::Number:
    case SkinKind::Text:
        break;
    }
    return plainValueOf(name);
}

QByteArray toml()
{
    QString text = opening.toString();
    for (const SkinSection &section : skinCatalogue()) {
        text += QString(u"\n\n# " % section.purpose % u"\n[" % quoted(section.name) % u"]\n");
        for (const SkinKey &key : section.keys) {
            const SkinKeyName name{section.name, key.name};
            text += QString(u"\n# " % purposeOf(name) % u'\n' % quoted(key.name) % u" = " %
                            valueOf(name, key.kind) % u'\n');
        }
    }
    return text.toUtf8();
}

QByteArray pngOf(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return bytes;
}

} // namespace

std::vector<SkinContent> templateSkin()
{
    std::vector<SkinContent> contents{{QString::fromUtf16(skinTomlName), toml()}};
    for (const SkinSection &section : skinCatalogue()) {
        for (const SkinKey &key : section.keys) {
            if (key.kind == SkinKind::Bitmap) {
                const SkinKeyName name{section.name, key.name};
                contents.push_back({pictureNameOf(name), pngOf(plainPicture(name, 1))});
                contents.push_back({fineNameOf(pictureNameOf(name)), pngOf(plainPicture(name, 2))});
            }
        }
    }
    return contents;
}
