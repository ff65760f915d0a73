#pragma once

#include "richtext/document.h"
#include "richtext/rtf_state.h"

#include <algorithm>

/// The body of one RTF text: what its groups say is put together to paragraphs, which go into the document as
/// they end.
class RtfBody
{
public:
    explicit RtfBody(RichDocument &document) : m_document(document) {}

    /// Text in the look of its group, unless that is hidden. Characters that would be taken for a picture or
    /// for the end of a paragraph become others.
    void append(QStringView text, const RtfState &state)
    {
        if (text.isEmpty() || state.hidden) {
            return;
        }
        if (std::ranges::any_of(text, [](QChar c) { return c == pictureCharacter || c == u'\u2029'; })) {
            appendClean(withoutOurs(text), state);
        } else {
            appendClean(text, state);
        }
    }
    /// False, and nothing happens, without a picture or when the document can hold no more of them.
    [[nodiscard]] bool appendPicture(const std::shared_ptr<const Picture> &picture, const RtfState &state);

    void endParagraph(const ParagraphFormat &format);
    /// The last paragraph, which has no end of its own.
    void end(const RtfState &state);

private:
    [[nodiscard]] static QString withoutOurs(QStringView text);
    void appendClean(QStringView text, const RtfState &state)
    {
        if (state.format != m_lastFormat) {
            m_lastFormat = state.format;
            m_lastFormatNumber = m_document.formatNumber(m_lastFormat);
        }
        m_builder.append(text, m_lastFormatNumber);
        m_textParagraph = state.paragraph;
    }

    RichDocument &m_document;
    ParagraphBuilder m_builder;
    bool m_firstParagraph = true;
    ParagraphFormat m_textParagraph; ///< how the paragraph stood when it was last written to
    TextFormat m_lastFormat;
    quint16 m_lastFormatNumber = 0;
};
