#pragma once

#include <QtGlobal>

class RichEdit;

/// How assistive programs see a RichEdit: as a text in which a message is a line, and a picture its name.

/// Makes the toolkit ask for it; once is enough, more does no harm.
void installRichEditAccessibility();

/// Paragraphs have been added to the box, from that one on.
void announceAppended(RichEdit &box, qsizetype firstParagraph);
/// The caret is elsewhere, or the selection is another.
void announceCaret(RichEdit &box, bool selectionToo);
/// The text that was there is gone.
void announceCleared(RichEdit &box, const QString &text);
