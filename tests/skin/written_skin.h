#pragma once

#include "core/clsMyApp.h"
#include "skin/cDIBSection.h"
#include "support/files.h"
#include "support/pictures.h"
#include "support/text.h"

#include <QMap>
#include <QRegion>
#include <QTemporaryDir>

#include <random>

inline constexpr QRgb fuchsia = 0xFFFF00FF;

/// A picture whose pixels differ; one in so many is fuchsia and one transparent, 0 for none.
inline QImage motley(QSize size, unsigned seed, unsigned holes = 0)
{
    std::minstd_rand random(seed);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const auto hole = holes == 0 ? 2 : random() % holes;
            image.setPixel(x, y,
                           hole == 0   ? fuchsia
                           : hole == 1 ? 0
                                       : 0xFF000000 | static_cast<QRgb>(random()));
        }
    }
    return image;
}

inline SkinBitmap bitmapOf(const QImage &image, const QImage &fine = {})
{
    auto bitmap = std::make_shared<cDIBSection>();
    bitmap->CreateFromPicture({image, fine});
    return bitmap;
}

/// The picture with holes where it is fuchsia.
inline QImage withoutFuchsia(QImage picture)
{
    auto *pixels = reinterpret_cast<QRgb *>(picture.bits());
    std::replace(pixels, pixels + qsizetype(picture.width()) * picture.height(), fuchsia, QRgb(0));
    return picture;
}

/// Where the picture has a pixel of this kind.
template <typename Condition>
QRegion pixelsOf(const QImage &picture, Condition isOfKind)
{
    QRegion found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            found += isOfKind(picture.pixelColor(x, y)) ? QRect(x, y, 1, 1) : QRect();
        }
    }
    return found;
}

/// The pixels of the picture at that place, where they are not transparent, a pixel at a time.
inline void paste(QImage &target, const QImage &picture, QPoint place)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QPoint to = place + QPoint(x, y);
            if (target.valid(to) && qAlpha(picture.pixel(x, y)) != 0) {
                target.setPixel(to, picture.pixel(x, y));
            }
        }
    }
}

/// A skin on the disk that a test writes, as a folder, and the application helper that names it.
class WrittenSkin
{
public:
    WrittenSkin() { app.Skin = m_folder.filePath(u"skin.toml"_s); }

    /// The value as TOML has it.
    void set(const QString &section, const QString &key, const QString &value)
    {
        m_sections[section][key] = value;
    }
    void set(const QString &section, const QString &key, const QImage &picture, const QImage &fine = {})
    {
        const QString name = QString::number(++m_pictures);
        EXPECT_TRUE(picture.save(m_folder.filePath(QString(name % u".png"))));
        EXPECT_TRUE(fine.isNull() || fine.save(m_folder.filePath(QString(name % u"@2x.png"))));
        set(section, key, QString(u"'" % name % u".png'"));
    }
    void remove(const QString &section, const QString &key) { m_sections[section].remove(key); }

    void write() const
    {
        QString text;
        for (auto section = m_sections.begin(); section != m_sections.end(); ++section) {
            text += QString(u"['" % section.key() % u"']\n");
            for (auto value = section->begin(); value != section->end(); ++value) {
                text += QString(u"'" % value.key() % u"' = " % value.value() % u"\n");
            }
        }
        writeText(text);
    }
    void writeText(const QString &text) const { writeFile(app.Skin, text.toUtf8()); }

private:
    QTemporaryDir m_folder;
    QMap<QString, QMap<QString, QString>> m_sections;
    int m_pictures = 0;

public:
    clsMyApp app{m_folder.path()};
};
