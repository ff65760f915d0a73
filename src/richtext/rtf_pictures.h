#pragma once

#include "richtext/document.h"

#include <QByteArray>
#include <QHash>

#include <memory>

/// Turns the picture data of one RTF text into pictures. The same data gives the same picture, and what a
/// picture would take is looked at before it is decoded.
class RtfPictures
{
public:
    enum class Kind : quint8
    {
        Other,
        Png,
        Jpeg
    };

    /// Null for other kinds, for data that is no such picture, and for a picture that is too large.
    [[nodiscard]] std::shared_ptr<const Picture> decode(const QByteArray &data, Kind kind,
                                                        const QString &code);

    /// True when a picture was refused for its size.
    [[nodiscard]] bool refusedAny() const { return m_refusedAny; }

private:
    QHash<QByteArray, std::shared_ptr<const Picture>> m_known; ///< by a digest of data and code
    qint64 m_pixelsLeft = 16'000'000;
    bool m_refusedAny = false;
};
