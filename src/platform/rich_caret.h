#pragma once

#include "platform/rich_layout.h"

/// Ways of the caret through a text.
enum class CaretMove : quint8
{
    Left, ///< as seen …
    Right,
    WordLeft,
    WordRight,
    Previous, ///< … and as the text runs
    Next,
    WordPrevious,
    WordNext,
    LineUp,
    LineDown,
    LineStart,
    LineEnd,
    PageUp,
    PageDown,
    TextStart,
    TextEnd,
    Stay
};

/// Where the caret gets to.
class RichCaret
{
public:
    using Place = RichDocument::Place;

    /// The layout must stay.
    explicit RichCaret(RichLayout &layout) : m_layout(layout) {}

    /// A page is so many pixels high. Going up and down keeps to the column where that began.
    [[nodiscard]] Place moved(Place from, CaretMove move, int pageHeight);

    /// The caret was put somewhere else: the column is the one that it has there.
    void forgetColumn() { m_column = -1; }

    struct Stretch
    {
        Place from;
        Place to;
    };
    /// The word, or the run of other characters, around the place.
    [[nodiscard]] Stretch wordAt(Place place) const;
    /// The message.
    [[nodiscard]] Stretch paragraphAt(Place place) const;

private:
    [[nodiscard]] qsizetype atColumn(const ShapedParagraph &shape, int y) const;
    [[nodiscard]] Place sideways(Place from, CaretMove move);
    [[nodiscard]] Place vertically(Place from, int pixels);
    [[nodiscard]] Place lineAbove(Place from);
    [[nodiscard]] Place lineBelow(Place from);
    [[nodiscard]] Place behind(Place from) const;
    [[nodiscard]] Place before(Place from) const;

    RichLayout &m_layout;
    int m_column = -1; ///< where going up and down began; -1 when it has not
};
