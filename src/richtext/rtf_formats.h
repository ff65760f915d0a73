#pragma once

#include "richtext/rtf_tables.h"
#include "richtext/rtf_words.h"
#include "richtext/text_format.h"

/// What control words do to the look of text and of paragraphs. Each function says whether the word was one
/// of its. Numbers are clamped to what makes sense.

[[nodiscard]] bool applyToText(const RtfWord &word, const RtfTables &tables, TextFormat &format);
[[nodiscard]] bool applyToParagraph(const RtfWord &word, ParagraphFormat &paragraph);

/// True for the destinations whose text is no part of what is shown.
[[nodiscard]] bool isPassedOver(const RtfWord &word);

/// The character that the word stands for; 0 for none.
[[nodiscard]] char16_t characterOf(const RtfWord &word);
