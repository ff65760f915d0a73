#pragma once

#include "richtext/rtf_tables.h"
#include "richtext/rtf_words.h"
#include "richtext/text_format.h"

/// What control words do to the look of text and of paragraphs. Each function says whether the word was one
/// of its. Numbers are clamped to what makes sense.

[[nodiscard]] bool applyToText(const RtfWord &word, const RtfTables &tables, TextFormat &format);
[[nodiscard]] bool applyToParagraph(const RtfWord &word, ParagraphFormat &paragraph);
