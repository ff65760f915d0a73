#pragma once

class QFont;
class QPrinter;
class RichDocument;

/// Prints a text on as many pages as it takes, with margins in twips on all sides. False when the printer
/// cannot begin.
[[nodiscard]] bool printRichText(const RichDocument &text, const QFont &baseFont, QPrinter &printer,
                                 int marginTwips);
