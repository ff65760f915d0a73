#pragma once

#include "platform/rich_layout.h"

#include <QPoint>

#include <vector>

/// Which part of a text is in view. The view holds on to the paragraph at its top, not to a number of pixels,
/// so that nothing that happens above or below it moves what is being read. It can also hold on to the end.
class RichView
{
public:
    using Place = RichDocument::Place;

    /// The layout must stay.
    explicit RichView(RichLayout &layout) : m_layout(layout) {}

    /// The size of the view in pixels; the text stands away from its edges.
    void setSize(QSize size);
    [[nodiscard]] QSize size() const { return m_size; }

    /// To be called after text was added behind: the view stays where it is.
    void letGoOfEnd() { m_atEnd = false; }
    /// To be called after any other change of the text.
    void takeChanged();

    void toEnd() { m_atEnd = true; }
    /// Positive is towards the end. Exact over short ways; long ones are jumps over what was never measured.
    void moveBy(qint64 pixels);
    /// To what a scroll bar says.
    void toValue(qint64 value);
    /// Moves as little as needed to have the place in view.
    void show(Place place);

    /// Shapes what is in view. All that follows says how things are since this was last called.
    void settle();

    struct Row
    {
        qsizetype paragraph;
        int top; ///< in the view
    };
    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }
    [[nodiscard]] bool isAtEnd() const { return m_atEnd; }
    [[nodiscard]] qint64 value() const;
    [[nodiscard]] qint64 maximum() const;

    /// The place in the text that is nearest to a point of the view.
    [[nodiscard]] Place placeAt(QPoint point);
    /// In the view; empty when the place's paragraph is not in it.
    [[nodiscard]] QRect caretRect(Place place);
    /// Null where there is none. Holds until the next call of anything here.
    [[nodiscard]] const TextLink *linkAt(QPoint point);

    static constexpr int margin = 5;

private:
    void normalise();
    void fillFromTop();
    void fillFromEnd();
    [[nodiscard]] const Row *rowAt(int y) const;

    RichLayout &m_layout;
    QSize m_size;
    RichLayout::Spot m_top{0, -margin};
    bool m_atEnd = true;
    std::vector<Row> m_rows;
};
