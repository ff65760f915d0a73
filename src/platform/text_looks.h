#pragma once

#include "richtext/document.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QTextCharFormat>

#include <optional>
#include <vector>

/// A colour of a text as the toolkit's own. Not for the automatic colour.
[[nodiscard]] QColor toColor(ColourValue colour);
/// And back; transparency is lost.
[[nodiscard]] ColourValue colourOf(const QColor &colour);

/// The text formats of a document as the toolkit's own, each made once. A format without a font name has the
/// base font's family.
class TextLooks
{
public:
    /// The document must stay.
    explicit TextLooks(const RichDocument &document) : m_document(document) {}

    [[nodiscard]] const QFont &baseFont() const { return m_baseFont; }
    void setBaseFont(const QFont &font);
    /// To be called when the document's tables were begun anew.
    void forget();

    /// The reference holds until the next call.
    [[nodiscard]] const QTextCharFormat &of(quint16 format);

    /// The look of a placeholder that is as wide as a picture.
    [[nodiscard]] const QTextCharFormat &ofPicture(quint16 format, quint16 picture);
    /// It is no space at which a line may break.
    static constexpr QChar placeholder = u'\u00A0';

private:
    const RichDocument &m_document;
    QFont m_baseFont;
    std::vector<std::optional<QTextCharFormat>> m_formats;
    QHash<std::pair<quint16, quint16>, QTextCharFormat> m_pictures; ///< by format and picture
};
