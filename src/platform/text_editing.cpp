#include "platform/text_editing.h"

namespace {

constexpr std::size_t mostSteps = 200;

/// What may stand in a paragraph.
QString cleaned(QStringView text)
{
    QString clean;
    clean.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const char16_t c = text[at].unicode();
        if (c == u'\n' || (c == u'\r' && (at + 1 == text.size() || text[at + 1] != u'\n'))) {
            clean += QChar(lineBreakCharacter);
        } else if (c == u'\t' || (c >= 0x20 && (c < 0x7F || c >= 0xA0) && c != pictureCharacter)) {
            clean += QChar(c);
        }
    }
    return clean;
}

} // namespace

void TextEditing::setFormat(const TextFormat &format, const QString &font)
{
    m_format = format;
    m_font = font;
}

void TextEditing::forget()
{
    m_undo.clear();
    m_redo.clear();
}

/// That of the character before, else of the one behind.
TextFormat TextEditing::formatAt(qsizetype position, RichDocument &other) const
{
    const RichDocument neighbour =
        m_document.copy(position > 0 ? position - 1 : 0, position > 0 ? position : 1);
    TextFormat format = m_format;
    QString font = m_font;
    if (const auto runs = neighbour.paragraph(0).runs(); !runs.empty()) {
        format = neighbour.format(runs.front().format);
        font = neighbour.fonts()[format.font];
    }
    format.font = other.fontNumber(font);
    return format;
}

qsizetype TextEditing::replace(qsizetype from, qsizetype to, QStringView text)
{
    const QString clean = cleaned(text);
    if (from == to && clean.isEmpty()) {
        return from;
    }
    RichDocument inserted;
    const TextFormat format = formatAt(from, inserted);
    ParagraphBuilder builder;
    builder.append(clean, inserted.formatNumber(format));
    inserted.replaceLast(builder.take(0));

    Step step{from, m_document.copy(from, to), std::move(inserted)};
    m_document.remove(from, to);
    m_document.insert(from, step.inserted);
    const qsizetype behind = from + step.inserted.length();
    m_redo.clear();
    if (joins(step)) {
        m_undo.back().inserted.insert(m_undo.back().inserted.length(), step.inserted);
    } else {
        m_undo.push_back(std::move(step));
        if (m_undo.size() > mostSteps) {
            m_undo.erase(m_undo.begin());
        }
    }
    return behind;
}

/// Letters typed one behind the other are taken back together, a word at a time.
bool TextEditing::joins(const Step &step) const
{
    if (m_undo.empty() || step.removed.length() > 0 || step.inserted.length() != 1 ||
        step.inserted.paragraph(0).text().front().isSpace()) {
        return false;
    }
    const Step &last = m_undo.back();
    return last.inserted.length() > 0 && last.from + last.inserted.length() == step.from;
}

qsizetype TextEditing::step(std::vector<Step> &from, std::vector<Step> &to)
{
    if (from.empty()) {
        return m_document.length();
    }
    Step step = std::move(from.back());
    from.pop_back();
    m_document.remove(step.from, step.from + step.inserted.length());
    m_document.insert(step.from, step.removed);
    std::swap(step.removed, step.inserted);
    const qsizetype behind = step.from + step.inserted.length();
    to.push_back(std::move(step));
    return behind;
}
