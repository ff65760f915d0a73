#pragma once

#include "platform/rich_caret.h"

/// What is selected in a text: from where the selection began to where the caret is. Selecting with the mouse
/// goes by characters, words or messages.
class RichSelection
{
public:
    using Place = RichDocument::Place;

    enum class Unit : quint8
    {
        Character,
        Word,
        Paragraph
    };

    /// The layout must stay.
    explicit RichSelection(RichLayout &layout) : m_caretMoves(layout), m_document(layout.document()) {}

    [[nodiscard]] Place anchor() const { return m_anchor; }
    [[nodiscard]] Place caret() const { return m_caret; }
    [[nodiscard]] Place from() const { return std::min(m_anchor, m_caret); }
    [[nodiscard]] Place to() const { return std::max(m_anchor, m_caret); }
    [[nodiscard]] bool isEmpty() const { return m_anchor == m_caret; }

    /// Empty when both are the same. Places outside the text are taken as its nearest end.
    void select(Place anchor, Place caret);
    void collapseTo(Place place) { select(place, place); }

    /// The mouse is pressed at the place, and moves to others.
    void begin(Place place, Unit unit);
    void extendTo(Place place);

    /// Without extending, the ends of a selection are where left and right get to first.
    void move(CaretMove way, bool extend, int pageHeight);

private:
    void put(Place anchor, Place caret);
    [[nodiscard]] RichCaret::Stretch unitAt(Place place) const;
    [[nodiscard]] Place inside(Place place) const;

    RichCaret m_caretMoves;
    const RichDocument &m_document;
    Place m_anchor;
    Place m_caret;
    Unit m_unit = Unit::Character;
    RichCaret::Stretch m_start; ///< what the mouse was pressed on
};
