#pragma once

#include "richtext/document.h"

#include <QByteArray>

#include <vector>

/// Writes a document as RTF: plain ASCII, tables without duplicates, pictures as PNG with their code as
/// description. What it writes, readRtf() reads back the same. It can be asked for a portion at a time, so
/// that saving a long text leaves the windows alive.
class RtfWriter
{
public:
    /// The document must stay and must not change while it is written.
    explicit RtfWriter(const RichDocument &document);

    /// The beginning: the tables.
    [[nodiscard]] QByteArray header() const;
    /// Paragraphs from one up to, and without, another.
    [[nodiscard]] QByteArray paragraphs(qsizetype first, qsizetype last);
    [[nodiscard]] static QByteArray footer() { return "}"; }

private:
    void collect();
    void writeParagraph(QByteArray &out, const Paragraph &paragraph);
    void writeFormat(QByteArray &out, const TextFormat &format);
    void writePicture(QByteArray &out, quint16 number);
    [[nodiscard]] qsizetype colourIndex(ColourValue colour) const;

    const RichDocument &m_document;
    std::vector<ColourValue> m_colours; ///< the first is the automatic one
    std::vector<QByteArray> m_pictures; ///< as written, by their number; empty until needed
};

/// The whole document.
[[nodiscard]] QByteArray writeRtf(const RichDocument &document);
