#pragma once

#include "platform/shaped_paragraph.h"

#include <memory>
#include <unordered_map>
#include <vector>

/// Where the paragraphs of a long document stand below each other, for a width. Only those that are looked at
/// are shaped; the heights of the others are estimated from their length, so that a new width costs next to
/// nothing however long the document is. A look at a paragraph corrects its height. Heights are in pixels.
class RichLayout
{
public:
    /// The document must stay.
    explicit RichLayout(const RichDocument &document);

    void setBaseFont(const QFont &font);
    [[nodiscard]] const QFont &baseFont() const { return m_looks.baseFont(); }
    void setWidth(int width);
    [[nodiscard]] int width() const { return m_width; }

    /// To be called after the document has changed: paragraphs were added behind the others; or everything
    /// from a paragraph on may be another.
    void takeAppended() { takeChanged(m_count); }
    void takeChanged(qsizetype first);
    /// To be called after the document was emptied, since its tables have begun anew.
    void takeCleared();

    [[nodiscard]] const RichDocument &document() const { return m_document; }
    [[nodiscard]] qint64 totalHeight() const { return m_total; }
    [[nodiscard]] qint64 topOf(qsizetype paragraph) const;

    /// A height inside a paragraph.
    struct Spot
    {
        qsizetype paragraph = 0;
        int y = 0; ///< from the paragraph's top

        friend bool operator==(const Spot &, const Spot &) = default;
    };
    [[nodiscard]] Spot spotAt(qint64 y) const;

    /// Shapes the paragraph if it is not; the reference holds until the next call of anything else here.
    const ShapedParagraph &shaped(qsizetype paragraph);
    int heightOf(qsizetype paragraph) { return shaped(paragraph).height(); }

    /// Text that is being composed; empty for none any more.
    void setPreedit(RichDocument::Place place, const QString &text);

    /// Forgets the shapes of paragraphs outside the range when there are many.
    void keepOnly(qsizetype first, qsizetype last);

private:
    /// What is known of each paragraph.
    struct Measure
    {
        quint32 textWidth; ///< on one line, estimated
        quint32 height;
    };

    [[nodiscard]] quint32 estimatedHeight(quint32 textWidth) const;
    void estimateAll();
    void setHeight(qsizetype paragraph, quint32 height);

    const RichDocument &m_document;
    TextLooks m_looks;
    int m_width = 1;
    double m_characterWidth = 8;
    quint32 m_lineHeight = 16;
    quint32 m_space = 0; ///< between paragraphs, as most have it

    RichDocument::Place m_preeditPlace;
    QString m_preedit;

    qsizetype m_count = 0;
    std::vector<Measure> m_measures;
    std::vector<qint64> m_blocks; ///< the height of each block of paragraphs
    qint64 m_total = 0;
    std::unordered_map<qsizetype, std::unique_ptr<ShapedParagraph>> m_shaped;
};
