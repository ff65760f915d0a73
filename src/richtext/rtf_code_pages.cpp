#include "richtext/rtf_code_pages.h"

#include <QStringConverter>

#include <algorithm>
#include <iterator>

namespace {

struct CharsetPage
{
    int charset;
    int codePage;
};

constexpr CharsetPage charsetPages[] = {{77, 10000}, {128, 932},  {129, 949},  {134, 936},  {136, 950},
                                        {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256},
                                        {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {255, 437}};

QByteArray nameOf(int codePage)
{
    switch (codePage) {
    case 932:
        return "Shift_JIS";
    case 936:
        return "GBK";
    case 950:
        return "Big5";
    case 10000:
        return "macintosh";
    case 65001:
        return "UTF-8";
    default:
        break;
    }
    return (codePage < 874 ? "IBM" : "windows-") + QByteArray::number(codePage);
}

} // namespace

QString decodeRtfBytes(const QByteArray &bytes, int codePage)
{
    QStringDecoder decoder(nameOf(codePage).constData(), QStringConverter::Flag::Stateless);
    if (!decoder.isValid()) {
        decoder = QStringDecoder("windows-1252", QStringConverter::Flag::Stateless);
    }
    return decoder.decode(bytes);
}

int codePageOfCharset(int charset, int documentCodePage)
{
    const auto *page = std::ranges::find(charsetPages, charset, &CharsetPage::charset);
    return page != std::end(charsetPages) ? page->codePage : documentCodePage;
}

std::optional<int> codePageNamedBy(const RtfWord &word)
{
    switch (word.hash) {
    case "ansicpg"_rtf:
        return word.numberOr(1252);
    case "mac"_rtf:
        return 10000;
    case "pc"_rtf:
        return 437;
    case "pca"_rtf:
        return 850;
    default:
        return std::nullopt;
    }
}
