#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QList>
#include <QString>

#include <optional>

/// Pictures by key ("eHappy", "sOnline"), numbered from 1 in the order in which they came. Skins bring most
/// of them; who draws from the list may keep what it made for as long as the version stays.
class ImageList
{
public:
    /// Takes the pictures away; the mask colour stays.
    void clear();

    /// A key that is there already gets the new picture and keeps its number.
    void add(const QString &key, const QImage &image);

    /// Null for a key that is not there.
    [[nodiscard]] QImage image(const QString &key) const;
    /// With the ground in the place of the mask colour.
    [[nodiscard]] QImage imageOn(const QString &key, QRgb ground) const;
    /// 0 for a key that is not there.
    [[nodiscard]] int index(const QString &key) const { return m_indices.value(key); }
    [[nodiscard]] int count() const { return static_cast<int>(m_images.size()); }

    /// Pixels of this colour are transparent; none when no colour is.
    [[nodiscard]] std::optional<QRgb> maskColour() const { return m_maskColour; }
    void setMaskColour(std::optional<QRgb> colour);

    /// Grows at every change.
    [[nodiscard]] quint64 version() const { return m_version; }

private:
    QList<QImage> m_images;
    QHash<QString, int> m_indices; ///< counted from 1
    std::optional<QRgb> m_maskColour;
    quint64 m_version = 0;
};
