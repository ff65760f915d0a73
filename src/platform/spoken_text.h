#pragma once

#include "richtext/document.h"

#include <vector>

/// A document as plain text for those who hear it: the names of its pictures stand in their places, and a
/// line feed between paragraphs. Offsets count the characters of that text. What must be counted to find an
/// offset is remembered, and only counted when somebody listens.
class SpokenText
{
public:
    using Place = RichDocument::Place;

    /// The document must stay.
    explicit SpokenText(const RichDocument &document) : m_document(document) {}

    /// To be called after the document has changed from a paragraph on; not needed for paragraphs that were
    /// added behind the others.
    void takeChanged(qsizetype firstParagraph);

    [[nodiscard]] qsizetype length() const;
    [[nodiscard]] QString text(qsizetype from, qsizetype to) const;
    [[nodiscard]] qsizetype offsetOf(Place place) const;
    /// Inside a picture's name: the picture's place. Offsets outside the text are taken as its nearest end.
    [[nodiscard]] Place placeAt(qsizetype offset) const;

    /// Of one paragraph.
    [[nodiscard]] QString paragraphText(qsizetype paragraph) const;
    [[nodiscard]] qsizetype startOf(qsizetype paragraph) const;

private:
    [[nodiscard]] qsizetype lengthOf(qsizetype paragraph) const;

    const RichDocument &m_document;
    mutable std::vector<qsizetype> m_blockStarts; ///< of each block of paragraphs, as far as they were needed
};
