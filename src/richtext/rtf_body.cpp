#include "richtext/rtf_body.h"

QString RtfBody::withoutOurs(QStringView text)
{
    QString clean = text.toString();
    clean.replace(QChar(pictureCharacter), QChar(QChar::ReplacementCharacter));
    return clean.replace(QChar(u'\u2029'), QChar(lineBreakCharacter));
}

bool RtfBody::appendPicture(const std::shared_ptr<const Picture> &picture, const RtfState &state)
{
    const quint16 number = picture ? m_document.pictureNumber(picture) : quint16(0);
    if (number == 0) {
        return false;
    }
    appendClean({}, state);
    m_builder.appendPicture(number, m_lastFormatNumber);
    return true;
}

/// Often the groups around the last text are closed before its paragraph ends, and with them how it stands.
void RtfBody::end(const RtfState &state)
{
    endParagraph(m_builder.isEmpty() ? state.paragraph : m_textParagraph);
}

void RtfBody::endParagraph(const ParagraphFormat &format)
{
    Paragraph paragraph = m_builder.take(m_document.paragraphFormatNumber(format));
    if (m_firstParagraph) {
        m_document.replaceLast(std::move(paragraph));
    } else {
        m_document.appendParagraph(std::move(paragraph));
    }
    m_firstParagraph = false;
}
