#include "platform/rich_selection.h"

#include <algorithm>

RichSelection::Place RichSelection::inside(Place place) const
{
    const qsizetype paragraph = std::clamp(place.paragraph, qsizetype(0), m_document.paragraphCount() - 1);
    const qsizetype length = m_document.paragraph(paragraph).length();
    return {paragraph, std::clamp(place.offset, qsizetype(0), length)};
}

void RichSelection::select(Place anchor, Place caret)
{
    m_caretMoves.forgetColumn();
    put(anchor, caret);
}

void RichSelection::put(Place anchor, Place caret)
{
    m_anchor = inside(anchor);
    m_caret = inside(caret);
    m_unit = Unit::Character;
    m_start = {m_anchor, m_anchor};
}

RichCaret::Stretch RichSelection::unitAt(Place place) const
{
    switch (m_unit) {
    case Unit::Word:
        return m_caretMoves.wordAt(place);
    case Unit::Paragraph:
        return m_caretMoves.paragraphAt(place);
    case Unit::Character:
        break;
    }
    return {place, place};
}

void RichSelection::begin(Place place, Unit unit)
{
    m_caretMoves.forgetColumn();
    m_unit = unit;
    m_start = unitAt(inside(place));
    m_anchor = m_start.from;
    m_caret = m_start.to;
}

void RichSelection::extendTo(Place place)
{
    const RichCaret::Stretch here = unitAt(inside(place));
    m_caretMoves.forgetColumn();
    const bool back = here.from < m_start.from;
    m_anchor = back ? m_start.to : m_start.from;
    m_caret = back ? here.from : std::max(here.to, m_start.to);
}

void RichSelection::move(CaretMove way, bool extend, int pageHeight)
{
    Place to = m_caretMoves.moved(m_caret, way, pageHeight);
    if (!extend && !isEmpty() && (way == CaretMove::Left || way == CaretMove::Right)) {
        const bool rightToLeft = m_document.paragraph(m_caret.paragraph).text().isRightToLeft();
        to = (way == CaretMove::Left) != rightToLeft ? from() : this->to();
    }
    put(extend ? m_anchor : to, to);
}
