#pragma once

#include "core/colours.h"
#include "richtext/document.h"
#include "richtext/rtf_words.h"

#include <QHash>

#include <vector>

/// The font table and the colour table of one RTF text, filled while they are read. Numbers that name no
/// entry give the default font and the automatic colour.
class RtfTables
{
public:
    struct Font
    {
        quint16 number = 0; ///< in the document
        int codePage = 0;   ///< 0: the document's
    };

    explicit RtfTables(RichDocument &document) : m_document(document) {}

    [[nodiscard]] Font font(qint32 number) const { return m_fonts.value(number); }
    [[nodiscard]] ColourValue colour(qint32 number) const;

    void startFonts() { m_fontIndex = -1; }
    /// Text inside the font table: names, each ended by ";".
    void takeFontNames(QStringView text);
    /// The entry that is being read ends; nothing happens when there is none.
    void finishFont();

    /// Text inside the colour table: ";" ends an entry.
    void takeColours(QStringView text);

    /// The control words that entries are made of.
    void apply(const RtfWord &word);

private:
    RichDocument &m_document;
    std::vector<ColourValue> m_colours;
    ColourValue m_colour = automaticColour;
    QHash<qint32, Font> m_fonts;
    qint32 m_fontIndex = -1; ///< of the entry that is being read
    int m_fontCharset = 1;
    QString m_fontName;
};
