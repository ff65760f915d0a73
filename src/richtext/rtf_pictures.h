#pragma once

#include "richtext/document.h"

#include <QByteArray>
#include <QHash>

#include <memory>

/// The value of a hexadecimal digit; -1 for any other character.
[[nodiscard]] int hexValue(char16_t c);

/// The pictures of one RTF text. The data of one is collected, with its description, and decoded at its end.
/// The same data gives the same picture, and what a picture would take is looked at before it is decoded.
class RtfPictures
{
public:
    enum class Kind : quint8
    {
        Other,
        Png,
        Jpeg
    };

    /// A picture without data; what was collected for another one is dropped.
    void start();
    void setKind(Kind kind) { m_kind = kind; }
    /// In twips. A picture with more pixels than a screen has there is one for finer screens.
    void setWidthOnPaper(qint32 twips) { m_widthOnPaper = twips; }
    void takeHex(QStringView text);

    /// A property's name, or its value, begins. The value of "wzDescription" is the code that the picture
    /// stands for.
    void startProperty(bool name) { (name ? m_propertyName : m_propertyValue).clear(); }
    void takePropertyName(QStringView text) { m_propertyName += text; }
    void takePropertyValue(QStringView text);

    struct Finished
    {
        std::shared_ptr<const Picture> picture; ///< null for one that cannot be shown
        QString code;
    };
    [[nodiscard]] Finished finish();

    /// True when a picture was refused for its size.
    [[nodiscard]] bool refusedAny() const { return m_refusedAny; }

private:
    [[nodiscard]] std::shared_ptr<const Picture> decode();

    Kind m_kind = Kind::Other;
    qint32 m_widthOnPaper = 0; ///< 0: not said
    QByteArray m_data;
    int m_halfByte = -1; ///< the first digit of a byte; -1 when the next digit is one
    QString m_propertyName;
    QString m_propertyValue;
    QString m_code;
    QHash<QByteArray, std::shared_ptr<const Picture>> m_known; ///< by a digest of data and code
    qint64 m_pixelsLeft = 16'000'000;
    bool m_refusedAny = false;
};
