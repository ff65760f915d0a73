#pragma once

#include "link/clsXMLMessage.h"

#include <QString>

/// The language on the wire: elements with attributes, text and children, escaped with backslashes. It looks
/// like XML and is not: an escape is a backslash, a closing tag's name is not looked at, an element that ends
/// with the text is complete, and one text is kept per element.

/// Elements deeper than this fail the parse; the outermost one has depth 1.
inline constexpr int maximumDepth = 64;

/// Parses one element of the text into an empty element, in one pass. The position counts from 1 and is left
/// on the last character taken, or at 0 when a closing ">" was looked for and is not there. The element keeps
/// views of the text, which must outlive it. False for malformed text, for an attribute that occurs twice,
/// and beyond the depth; the element then holds what was read so far.
[[nodiscard]] bool ParseElement(QStringView text, clsXMLMessage &element, qsizetype &position);

/// The element as text: its attributes in order, then its children, then its own text.
[[nodiscard]] QString BuildXML(const clsXMLMessage &element);

/// A backslash is put before each backslash, "/", ">", "=", double quote and "<".
[[nodiscard]] QString EscapeXML(QStringView text);

/// Drops each backslash and keeps the character after it as it is.
[[nodiscard]] QString UnescapeXML(QStringView text);
