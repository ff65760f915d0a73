#pragma once

#include "richtext/document.h"

#include <vector>

/// The changes that a user makes to a text by hand, and the way back. Positions count as in the document.
class TextEditing
{
public:
    /// The document must stay, and must not be changed otherwise without forget().
    explicit TextEditing(RichDocument &document) : m_document(document) {}

    /// Puts text in the place of a stretch, in the look of what stands before it. Control characters other
    /// than tab are left out, and line ends become line breaks. Gives the position behind it.
    qsizetype replace(qsizetype from, qsizetype to, QStringView text);

    /// How text looks that is typed into an empty document.
    void setFormat(const TextFormat &format, const QString &font);

    [[nodiscard]] bool canUndo() const { return !m_undo.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redo.empty(); }
    /// The position where the caret belongs. Without anything to undo the document stays as it is.
    qsizetype undo() { return step(m_undo, m_redo); }
    qsizetype redo() { return step(m_redo, m_undo); }
    /// Without a way back from here on.
    void forget();

private:
    struct Step
    {
        qsizetype from;
        RichDocument removed;
        RichDocument inserted;
    };

    /// The look that text typed at the position has, with a number of the other document for its font.
    [[nodiscard]] TextFormat formatAt(qsizetype position, RichDocument &other) const;
    qsizetype step(std::vector<Step> &from, std::vector<Step> &to);
    [[nodiscard]] bool joins(const Step &step) const;

    RichDocument &m_document;
    TextFormat m_format;
    QString m_font;
    std::vector<Step> m_undo;
    std::vector<Step> m_redo;
};
