#pragma once

#include "richtext/rtf_words.h"

#include <QByteArray>
#include <QString>

/// Text in the code pages that RTF names by number.

/// The bytes as text; windows-1252 for a page that is not known. Bytes that mean nothing become the
/// replacement character.
[[nodiscard]] QString decodeRtfBytes(const QByteArray &bytes, int codePage);

/// The code page of a font's character set; the document's own for a set that names none.
[[nodiscard]] int codePageOfCharset(int charset, int documentCodePage);

/// The code page of a document, when the word names one.
[[nodiscard]] std::optional<int> codePageNamedBy(const RtfWord &word);
