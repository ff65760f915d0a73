#include "richtext/document.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace {

constexpr std::size_t fullTable = std::numeric_limits<quint16>::max();

/// What is left of a position range inside a paragraph that starts at a position.
struct Stretch
{
    qsizetype from;
    qsizetype to;
};

Stretch within(const Paragraph &paragraph, qsizetype start, qsizetype from, qsizetype to)
{
    return {std::clamp(from - start, qsizetype(0), paragraph.length()),
            std::clamp(to - start, qsizetype(0), paragraph.length())};
}

constexpr qsizetype longestPiece = 16'384; // characters; what is seen of a paragraph is laid out as a whole
constexpr qsizetype lastWords = 1024;

/// Where a piece of a long text ends and the next begins.
struct Cut
{
    qsizetype end;
    qsizetype next; ///< behind a line break that the end of the piece stands for
};

/// At a line break or behind a space where one is near; never inside a character.
Cut cutBehind(QStringView text, qsizetype from)
{
    if (text.size() - from <= longestPiece) {
        return {text.size(), text.size()};
    }
    const qsizetype longest = from + longestPiece;
    const QStringView last = text.sliced(longest - lastWords, lastWords);
    if (const qsizetype lineBreak = last.lastIndexOf(lineBreakCharacter); lineBreak >= 0) {
        const qsizetype at = longest - lastWords + lineBreak;
        return {at, at + 1};
    }
    const qsizetype space = last.lastIndexOf(u' ');
    const qsizetype at = longest - (space < 0 ? 0 : lastWords - space - 1);
    const bool splits = text[at].isLowSurrogate();
    return {splits ? at - 1 : at, splits ? at - 1 : at};
}

} // namespace

/// Gives the entries of one document's tables their numbers in another one's, each looked up once.
class DocumentImport
{
public:
    DocumentImport(RichDocument &target, const RichDocument &source)
        : m_target(target),
          m_source(source),
          m_formats(source.m_formats.size()),
          m_pictures(source.m_pictures.size())
    {}

    Run operator()(const Run &run)
    {
        auto &format = m_formats[run.format];
        if (!format) {
            TextFormat imported = m_source.format(run.format);
            imported.font = m_target.fontNumber(m_source.fonts().value(imported.font));
            format = m_target.formatNumber(imported);
        }
        if (run.picture == 0) {
            return {run.end, *format, 0};
        }
        auto &picture = m_pictures[run.picture];
        if (!picture) {
            picture = m_target.pictureNumber(m_source.m_pictures[run.picture]);
        }
        return {run.end, *format, *picture};
    }

    quint16 paragraphFormat(const Paragraph &paragraph)
    {
        return m_target.paragraphFormatNumber(m_source.paragraphFormat(paragraph.format()));
    }

private:
    RichDocument &m_target;
    const RichDocument &m_source;
    std::vector<std::optional<quint16>> m_formats;
    std::vector<std::optional<quint16>> m_pictures;
};

RichDocument::RichDocument()
{
    m_paragraphs.emplace_back();
    m_fonts.append(QString());
    m_formats.emplace_back();
    m_formatNumbers.insert(m_formats.front(), 0);
    m_paragraphFormats.emplace_back();
    m_pictures.emplace_back();
}

void RichDocument::clear()
{
    *this = RichDocument();
}

quint16 RichDocument::fontNumber(const QString &family)
{
    qsizetype number = m_fonts.indexOf(family);
    if (number < 0 && std::size_t(m_fonts.size()) < fullTable) {
        number = m_fonts.size();
        m_fonts.append(family);
    }
    return static_cast<quint16>(qMax(number, qsizetype(0)));
}

quint16 RichDocument::formatNumber(const TextFormat &format)
{
    if (const auto known = m_formatNumbers.constFind(format); known != m_formatNumbers.cend()) {
        return *known;
    }
    if (m_formats.size() >= fullTable) {
        return 0;
    }
    const auto number = static_cast<quint16>(m_formats.size());
    m_formats.push_back(format);
    m_formatNumbers.insert(format, number);
    return number;
}

quint16 RichDocument::paragraphFormatNumber(const ParagraphFormat &format)
{
    const auto known = std::ranges::find(m_paragraphFormats, format);
    if (known == m_paragraphFormats.end()) {
        if (m_paragraphFormats.size() >= 1000) { // a search through more would be slow, and nobody needs them
            return 0;
        }
        m_paragraphFormats.push_back(format);
        return static_cast<quint16>(m_paragraphFormats.size() - 1);
    }
    return static_cast<quint16>(known - m_paragraphFormats.begin());
}

quint16 RichDocument::pictureNumber(const std::shared_ptr<const Picture> &picture)
{
    if (const auto known = m_pictureNumbers.constFind(picture.get()); known != m_pictureNumbers.cend()) {
        return *known;
    }
    if (m_pictures.size() >= fullTable) {
        return 0;
    }
    const auto number = static_cast<quint16>(m_pictures.size());
    m_pictures.push_back(picture);
    m_pictureNumbers.insert(picture.get(), number);
    return number;
}

void RichDocument::appendParagraph(Paragraph paragraph)
{
    m_length += 1 + paragraph.length();
    m_paragraphs.push_back(std::move(paragraph));
}

void RichDocument::replaceLast(Paragraph paragraph)
{
    m_length += paragraph.length() - m_paragraphs.back().length();
    m_paragraphs.back() = std::move(paragraph);
}

RichDocument::Place RichDocument::placeOf(qsizetype position) const
{
    const qsizetype at = std::clamp(position, qsizetype(0), m_length);
    if (at > m_length / 2) { // from the end, where most of the work is done
        qsizetype start = m_length + 1;
        for (qsizetype index = paragraphCount() - 1; index >= 0; --index) {
            start -= paragraph(index).length() + 1;
            if (start <= at) {
                return {index, at - start};
            }
        }
    }
    qsizetype start = 0;
    qsizetype index = 0;
    while (start + paragraph(index).length() < at) {
        start += paragraph(index++).length() + 1;
    }
    return {index, at - start};
}

qsizetype RichDocument::positionOf(qsizetype index) const
{
    if (index > paragraphCount() / 2) {
        qsizetype position = m_length + 1;
        for (qsizetype behind = paragraphCount() - 1; behind >= index; --behind) {
            position -= paragraph(behind).length() + 1;
        }
        return position;
    }
    qsizetype position = 0;
    for (qsizetype before = 0; before < index; ++before) {
        position += paragraph(before).length() + 1;
    }
    return position;
}

QString RichDocument::plainText(qsizetype from, qsizetype to) const
{
    QString text;
    const Place first = placeOf(from);
    qsizetype start = qBound(qsizetype(0), from, m_length) - first.offset;
    for (qsizetype index = first.paragraph; index < paragraphCount() && start <= to; ++index) {
        const Paragraph &one = paragraph(index);
        if (index > first.paragraph) {
            text += u'\n';
        }
        const Stretch stretch = within(one, start, from, to);
        qsizetype at = 0;
        for (const Run &run : one.runs()) {
            const qsizetype runFrom = qMax(at, stretch.from);
            const qsizetype runTo = qMin(qsizetype(run.end), stretch.to);
            at = run.end;
            if (runFrom < runTo) {
                text += run.picture != 0 ? QStringView(picture(run.picture).code)
                                         : one.text().sliced(runFrom, runTo - runFrom);
            }
        }
        start += one.length() + 1;
    }
    return text.replace(QChar(lineBreakCharacter), u'\n');
}

void RichDocument::replace(qsizetype first, qsizetype count, std::vector<Paragraph> paragraphs)
{
    const auto begin = m_paragraphs.begin() + first;
    qsizetype change = static_cast<qsizetype>(paragraphs.size()) - count;
    for (auto old = begin; old != begin + count; ++old) {
        change -= old->length();
    }
    for (const Paragraph &made : paragraphs) {
        change += made.length();
    }
    const auto shared = std::min(count, static_cast<qsizetype>(paragraphs.size()));
    std::move(paragraphs.begin(), paragraphs.begin() + shared, begin);
    if (shared < count) {
        m_paragraphs.erase(begin + shared, begin + count);
    } else {
        m_paragraphs.insert(begin + shared, std::move_iterator(paragraphs.begin() + shared),
                            std::move_iterator(paragraphs.end()));
    }
    m_length += change;
}

void RichDocument::insert(qsizetype position, const RichDocument &other)
{
    if (&other == this) {
        insert(position, copy(0, m_length));
        return;
    }
    const auto same = [](const Run &run) { return run; };
    const Place place = placeOf(position);
    const Paragraph &there = paragraph(place.paragraph);
    DocumentImport import(*this, other);
    std::vector<Paragraph> made;
    ParagraphBuilder builder;
    builder.append(there, 0, place.offset, same);
    for (qsizetype index = 0; index < other.paragraphCount(); ++index) {
        const Paragraph &one = other.paragraph(index);
        builder.append(one, 0, one.length(), std::ref(import));
        const bool last = index + 1 == other.paragraphCount();
        // What joins a paragraph that has text takes on how that one stands.
        const bool joinsFirst = index == 0 && place.offset > 0;
        const bool joinsLast = last && place.offset < there.length();
        const quint16 format = joinsFirst || joinsLast ? there.format() : import.paragraphFormat(one);
        if (last) {
            builder.append(there, place.offset, there.length(), same);
        }
        made.push_back(builder.take(format));
    }
    replace(place.paragraph, 1, std::move(made));
}

void RichDocument::append(const RichDocument &other)
{
    if (&other == this) {
        append(copy(0, m_length));
        return;
    }
    DocumentImport import(*this, other);
    bool replaces = paragraphCount() == 1 && m_length == 0;
    for (const Paragraph &one : other.m_paragraphs) {
        for (Paragraph &made : piecesOf(one, import)) {
            if (replaces) {
                replaceLast(std::move(made));
            } else {
                appendParagraph(std::move(made));
            }
            replaces = false;
        }
    }
}

/// The paragraph in this document's numbers: a long one in several, as if it were one still.
std::vector<Paragraph> RichDocument::piecesOf(const Paragraph &whole, DocumentImport &import)
{
    std::vector<Paragraph> pieces;
    ParagraphBuilder builder;
    const QStringView text = whole.text();
    const quint16 number = import.paragraphFormat(whole);
    ParagraphFormat format = paragraphFormat(number);
    qsizetype at = 0;
    Cut cut = cutBehind(text, 0);
    for (const Run &run : whole.runs()) {
        const Run imported = import(run);
        while (at < run.end) {
            const qsizetype end = qMin(qsizetype(run.end), cut.next);
            if (imported.picture != 0) {
                builder.appendPicture(imported.picture, imported.format);
            } else {
                builder.append(text.sliced(at, qMin(end, cut.end) - at), imported.format);
            }
            at = end;
            if (at == cut.next && at < text.size()) {
                ParagraphFormat inner = format;
                inner.spaceAfter = 0;
                pieces.push_back(builder.take(paragraphFormatNumber(inner)));
                format.spaceBefore = 0;
                format.firstLineIndent = 0;
                cut = cutBehind(text, at);
            }
        }
    }
    pieces.push_back(builder.take(pieces.empty() ? number : paragraphFormatNumber(format)));
    return pieces;
}

void RichDocument::remove(qsizetype from, qsizetype to)
{
    if (from >= to) {
        return;
    }
    const auto same = [](const Run &run) { return run; };
    const Place first = placeOf(from);
    const Place last = placeOf(to);
    ParagraphBuilder builder;
    builder.append(paragraph(first.paragraph), 0, first.offset, same);
    builder.append(paragraph(last.paragraph), last.offset, paragraph(last.paragraph).length(), same);
    std::vector<Paragraph> made;
    made.push_back(builder.take(paragraph(first.paragraph).format()));
    replace(first.paragraph, last.paragraph - first.paragraph + 1, std::move(made));
}

void RichDocument::putPictures(const std::vector<PicturePlace> &places)
{
    const auto same = [](const Run &run) { return run; };
    ParagraphBuilder builder;
    auto place = places.begin();
    qsizetype start = 0;
    for (std::size_t index = 0; index < m_paragraphs.size() && place != places.end(); ++index) {
        Paragraph &one = m_paragraphs[index];
        const qsizetype length = one.length();
        if (place->position < start + length) {
            qsizetype done = 0;
            auto run = one.runs().begin();
            for (; place != places.end() && place->position < start + length; ++place) {
                const qsizetype at = place->position - start;
                builder.append(one, done, at, same);
                while (qsizetype(run->end) <= at) {
                    ++run;
                }
                builder.appendPicture(place->picture, run->format);
                done = at + place->length;
                m_length -= place->length - 1;
            }
            builder.append(one, done, length, same);
            one = builder.take(one.format());
        }
        start += length + 1;
    }
}

RichDocument RichDocument::copy(qsizetype from, qsizetype to) const
{
    RichDocument part;
    DocumentImport import(part, *this);
    const Place first = placeOf(from);
    const Place last = placeOf(qMax(from, to));
    ParagraphBuilder builder;
    for (qsizetype index = first.paragraph; index <= last.paragraph; ++index) {
        const Paragraph &one = paragraph(index);
        builder.append(one, index == first.paragraph ? first.offset : 0,
                       index == last.paragraph ? last.offset : one.length(), std::ref(import));
        Paragraph made = builder.take(import.paragraphFormat(one));
        if (index == first.paragraph) {
            part.replaceLast(std::move(made));
        } else {
            part.appendParagraph(std::move(made));
        }
    }
    return part;
}

void RichDocument::changeFormats(qsizetype from, qsizetype to,
                                 const std::function<void(TextFormat &)> &change)
{
    if (from >= to) {
        return;
    }
    const Place first = placeOf(from);
    qsizetype start = qBound(qsizetype(0), from, m_length) - first.offset;
    std::vector<std::optional<quint16>> changed(m_formats.size());
    const auto renumber = [&](Run run) {
        auto &number = changed[run.format];
        if (!number) {
            TextFormat format = m_formats[run.format];
            change(format);
            number = formatNumber(format);
        }
        run.format = *number;
        return run;
    };
    const auto same = [](const Run &run) { return run; };
    ParagraphBuilder builder;
    for (qsizetype index = first.paragraph; index < paragraphCount() && start < to; ++index) {
        Paragraph &one = m_paragraphs[std::size_t(index)];
        const Stretch stretch = within(one, start, from, to);
        start += one.length() + 1;
        builder.append(one, 0, stretch.from, same);
        builder.append(one, stretch.from, stretch.to, renumber);
        builder.append(one, stretch.to, one.length(), same);
        one = builder.take(one.format());
    }
}

void RichDocument::changeParagraphFormats(qsizetype from, qsizetype to,
                                          const std::function<void(ParagraphFormat &)> &change)
{
    const qsizetype last = placeOf(to).paragraph;
    for (qsizetype index = placeOf(from).paragraph; index <= last; ++index) {
        Paragraph &one = m_paragraphs[std::size_t(index)];
        ParagraphFormat format = m_paragraphFormats[one.format()];
        change(format);
        one = Paragraph(one.text(), one.runs(), paragraphFormatNumber(format));
    }
}
