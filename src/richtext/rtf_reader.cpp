#include "richtext/rtf_reader.h"

#include "core/attribute_text.h"
#include "richtext/rtf_body.h"
#include "richtext/rtf_code_pages.h"
#include "richtext/rtf_formats.h"
#include "richtext/rtf_pictures.h"
#include "richtext/rtf_tables.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr std::size_t deepestGroup = 64;

/// The characters that end a stretch of plain text: controls, braces, backslash.
constexpr auto isSpecial = [] {
    std::array<bool, 128> table{};
    std::fill_n(table.begin(), 32, true);
    for (const char16_t c : {u'\\', u'{', u'}'}) {
        table[c] = true;
    }
    return table;
}();

using Destination = RtfDestination;

class Reader
{
public:
    Reader(QStringView rtf, bool fromBytes, RichDocument &document)
        : m_begin(rtf.utf16()),
          m_at(m_begin),
          m_end(m_begin + rtf.size()),
          m_fromBytes(fromBytes),
          m_body(document),
          m_tables(document)
    {}

    RtfStatus read();

private:
    using Problem = RtfStatus::Problem;

    void openGroup();
    void closeGroup();
    void skipDeepGroup();
    void readControl();
    void readSymbol();
    void readText();
    void readHexByte();

    void obey(const RtfWord &word);
    [[nodiscard]] bool obeyDestination(const RtfWord &word);
    [[nodiscard]] bool obeyText(const RtfWord &word);
    [[nodiscard]] bool obeyAnywhere(const RtfWord &word);
    void obeyOutsideText(const RtfWord &word);
    void obeyUnicode(qint32 number);
    void chooseFont(qint32 number);

    void takeText(QStringView text);
    void takeCharacter(char16_t c) { takeText(QStringView(&c, 1)); }
    void flushBytes();
    void finishPicture();
    void note(Problem problem);

    const char16_t *m_begin;
    const char16_t *m_at;
    const char16_t *m_end;
    bool m_fromBytes;
    RtfStatus m_status;

    RtfState m_state;
    std::vector<RtfState> m_groups;
    bool m_ignorable = false; ///< \* was read: a destination that is not known is to be skipped
    qint32 m_toSkip = 0;      ///< characters left of a \u's fallback
    int m_codePage = 1252;
    QByteArray m_bytes; ///< read as bytes, not yet decoded: characters may be made of several

    RtfBody m_body;
    RtfTables m_tables;
    qint32 m_defaultFont = 0;
    RtfPictures m_pictures;
};

void Reader::note(Problem problem)
{
    if (m_status.isOk()) {
        m_status = {problem, m_at - m_begin};
    }
}

RtfStatus Reader::read()
{
    if (!QStringView(m_begin, m_end).startsWith(u"{\\rtf")) {
        note(Problem::NotRtf);
        return m_status;
    }
    do {
        switch (*m_at) {
        case u'{':
            openGroup();
            break;
        case u'}':
            closeGroup();
            break;
        case u'\\':
            readControl();
            break;
        default:
            readText();
        }
    } while (m_at != m_end && !m_groups.empty());
    flushBytes();
    if (!m_groups.empty()) {
        note(Problem::Unbalanced);
        m_body.end(m_state);
    }
    if (m_pictures.refusedAny()) {
        note(Problem::TooManyPixels);
    }
    return m_status;
}

void Reader::openGroup()
{
    flushBytes();
    m_toSkip = 0;
    if (m_groups.size() >= deepestGroup) {
        note(Problem::TooDeep);
        skipDeepGroup();
        return;
    }
    m_groups.push_back(m_state);
    m_ignorable = false;
    ++m_at;
}

/// Passes over a group without looking into it.
void Reader::skipDeepGroup()
{
    qsizetype depth = 0;
    do {
        const char16_t c = *m_at++;
        if (c == u'\\' && m_at != m_end) {
            ++m_at;
        }
        depth += c == u'{' ? 1 : 0;
        depth -= c == u'}' ? 1 : 0;
    } while (depth > 0 && m_at != m_end);
}

void Reader::closeGroup()
{
    flushBytes();
    m_toSkip = 0;
    m_ignorable = false;
    if (m_groups.size() == 1) {
        m_body.end(m_state);
    }
    const RtfState inner = m_state;
    m_state = m_groups.back();
    m_groups.pop_back();
    ++m_at;
    if (inner.destination == Destination::FontTable) {
        m_tables.finishFont();
        if (m_state.destination != Destination::FontTable) {
            chooseFont(m_defaultFont);
        }
    } else if (inner.destination == Destination::Picture && m_state.destination != Destination::Picture) {
        finishPicture();
    }
}

void Reader::readControl()
{
    ++m_at;
    if (m_at == m_end) {
        return;
    }
    if (*m_at != u'\'') {
        flushBytes();
    }
    if (!isRtfLetter(*m_at)) {
        readSymbol();
        return;
    }
    const RtfWord word = readRtfWord(m_at, m_end);
    if (word.hash == "bin"_rtf) {
        m_at += std::clamp(qsizetype(word.numberOr(0)), qsizetype(0), qsizetype(m_end - m_at));
    } else if (m_toSkip > 0) {
        --m_toSkip;
    } else if (m_state.destination != Destination::Skipped) {
        obey(word);
    }
}

void Reader::readSymbol()
{
    const char16_t symbol = *m_at++;
    if (symbol == u'*') {
        m_ignorable = true;
        return;
    }
    if (symbol == u'\'') {
        readHexByte();
        return;
    }
    switch (symbol) {
    case u'\\':
    case u'{':
    case u'}':
        takeCharacter(symbol);
        break;
    case u'~':
        takeCharacter(u'\u00A0');
        break;
    case u'_':
        takeCharacter(u'\u2011');
        break;
    case u'-':
        takeCharacter(u'\u00AD');
        break;
    case u'\r':
    case u'\n':
        obey({"par"_rtf, std::nullopt});
        break;
    default:
        break;
    }
}

/// \'hh: one byte, which may be a part of a character.
void Reader::readHexByte()
{
    const int high = m_end - m_at >= 2 ? hexValue(m_at[0]) : -1;
    const int low = high >= 0 ? hexValue(m_at[1]) : -1;
    if (low < 0) {
        return;
    }
    m_at += 2;
    if (m_toSkip > 0) {
        --m_toSkip;
    } else if (m_state.destination == Destination::Body || m_state.destination == Destination::FontTable) {
        m_bytes.append(static_cast<char>(high * 16 + low));
    }
}

void Reader::flushBytes()
{
    if (!m_bytes.isEmpty()) {
        const QByteArray bytes = std::exchange(m_bytes, {});
        takeText(withoutControlCharacters(
            decodeRtfBytes(bytes, m_state.codePage != 0 ? m_state.codePage : m_codePage)));
    }
}

/// A stretch of characters up to the next one that means something.
void Reader::readText()
{
    const char16_t *const start = m_at;
    if (*m_at < 32) {
        ++m_at;
        if (*start == u'\t') {
            takeCharacter(u'\t');
        }
        return;
    }
    m_at = std::find_if(start, m_end, [](char16_t c) { return c < isSpecial.size() && isSpecial[c]; });
    if (!m_fromBytes) {
        takeText(QStringView(start, m_at));
        return;
    }
    for (const char16_t *at = start; at != m_at;) {
        const char16_t *const ascii = std::find_if(at, m_at, [](char16_t c) { return c < 0x80; });
        for (; at != ascii; ++at) {
            if (m_toSkip > 0) {
                --m_toSkip;
            } else {
                m_bytes.append(static_cast<char>(*at));
            }
        }
        const char16_t *const high = std::find_if(ascii, m_at, [](char16_t c) { return c >= 0x80; });
        if (ascii != high) {
            takeText(QStringView(ascii, high));
        }
        at = high;
    }
}

void Reader::takeText(QStringView text)
{
    if (!m_bytes.isEmpty()) {
        flushBytes();
    }
    if (m_toSkip > 0) {
        const qsizetype skipped = qMin(qsizetype(m_toSkip), text.size());
        m_toSkip -= static_cast<qint32>(skipped);
        text = text.sliced(skipped);
    }
    switch (m_state.destination) {
    case Destination::Body:
        m_body.append(text, m_state);
        break;
    case Destination::FontTable:
        m_tables.takeFontNames(text);
        break;
    case Destination::ColourTable:
        m_tables.takeColours(text);
        break;
    case Destination::Picture:
        m_pictures.takeHex(text);
        break;
    case Destination::PropertyName:
        m_pictures.takePropertyName(text);
        break;
    case Destination::PropertyValue:
        m_pictures.takePropertyValue(text);
        break;
    case Destination::Skipped:
    case Destination::PictureProperties:
        break;
    }
}

/// A picture that cannot be shown leaves the code that it stands for.
void Reader::finishPicture()
{
    const auto [picture, code] = m_pictures.finish();
    const bool shown = m_state.destination == Destination::Body && !m_state.hidden;
    if (shown && !m_body.appendPicture(picture, m_state)) {
        m_body.append(code, m_state);
    }
}

void Reader::chooseFont(qint32 number)
{
    const RtfTables::Font font = m_tables.font(number);
    m_state.format.font = font.number;
    m_state.codePage = font.codePage;
}

void Reader::obey(const RtfWord &word)
{
    const bool ignorable = std::exchange(m_ignorable, false);
    if (obeyDestination(word)) {
        return;
    }
    if (ignorable) {
        m_state.destination = Destination::Skipped;
        return;
    }
    if (obeyAnywhere(word)) {
        return;
    }
    if (m_state.destination != Destination::Body) {
        obeyOutsideText(word);
        return;
    }
    if (!obeyText(word) && !applyToText(word, m_tables, m_state.format) &&
        !applyToParagraph(word, m_state.paragraph)) {
        obeyOutsideText(word);
    }
}

bool Reader::obeyDestination(const RtfWord &word)
{
    switch (word.hash) {
    case "fonttbl"_rtf:
        m_state.destination = Destination::FontTable;
        m_tables.startFonts();
        return true;
    case "colortbl"_rtf:
        m_state.destination = Destination::ColourTable;
        return true;
    case "pict"_rtf:
        m_state.destination = Destination::Picture;
        m_pictures.start();
        return true;
    case "picprop"_rtf:
        m_state.destination = Destination::PictureProperties;
        return true;
    case "sn"_rtf:
    case "sv"_rtf:
        if (m_state.destination == Destination::PictureProperties) {
            const bool name = word.hash == "sn"_rtf;
            m_state.destination = name ? Destination::PropertyName : Destination::PropertyValue;
            m_pictures.startProperty(name);
        }
        return true;
    case "shppict"_rtf: // the picture inside is as good as any
        return true;
    default:
        if (isPassedOver(word)) {
            m_state.destination = Destination::Skipped;
            return true;
        }
        return false;
    }
}

bool Reader::obeyText(const RtfWord &word)
{
    switch (word.hash) {
    case "v"_rtf:
        m_state.hidden = word.isOn();
        return true;
    case "f"_rtf:
        chooseFont(word.numberOr(0));
        return true;
    case "plain"_rtf:
        m_state.format = TextFormat();
        m_state.hidden = false;
        chooseFont(m_defaultFont);
        return true;
    case "par"_rtf:
    case "sect"_rtf:
    case "page"_rtf:
    case "row"_rtf:
        if (!m_state.hidden) {
            m_body.endParagraph(m_state.paragraph);
        }
        return true;
    case "cell"_rtf:
        takeCharacter(u'\t');
        return true;
    default:
        if (const char16_t character = characterOf(word)) {
            takeCharacter(character);
            return true;
        }
        return false;
    }
}

/// Characters that are words may be part of a picture's description too.
bool Reader::obeyAnywhere(const RtfWord &word)
{
    switch (word.hash) {
    case "u"_rtf:
        obeyUnicode(word.numberOr(0));
        return true;
    case "line"_rtf:
        takeCharacter(lineBreakCharacter);
        return true;
    case "tab"_rtf:
        takeCharacter(u'\t');
        return true;
    default:
        return false;
    }
}

void Reader::obeyUnicode(qint32 number)
{
    const qint32 unit = number < 0 ? number + 0x10000 : number;
    if (unit >= 32 && unit <= 0xFFFF) {
        takeCharacter(static_cast<char16_t>(unit));
    }
    m_toSkip = m_state.unicodeFallback;
}

/// What holds for the whole document, and what tables and pictures are made of.
void Reader::obeyOutsideText(const RtfWord &word)
{
    switch (word.hash) {
    case "deff"_rtf:
        m_defaultFont = word.numberOr(0);
        break;
    case "uc"_rtf:
        m_state.unicodeFallback = std::clamp(word.numberOr(1), 0, 100);
        break;
    case "pngblip"_rtf:
        m_pictures.setKind(RtfPictures::Kind::Png);
        break;
    case "picwgoal"_rtf:
        m_pictures.setWidthOnPaper(word.numberOr(0));
        break;
    case "jpegblip"_rtf:
        m_pictures.setKind(RtfPictures::Kind::Jpeg);
        break;
    default:
        m_codePage = codePageNamedBy(word).value_or(m_codePage);
        m_tables.apply(word);
    }
}

} // namespace

RtfStatus readRtf(QStringView rtf, RichDocument &document)
{
    return Reader(rtf, false, document).read();
}

RtfStatus readRtf(QByteArrayView rtf, RichDocument &document)
{
    return Reader(QString::fromLatin1(rtf), true, document).read();
}
