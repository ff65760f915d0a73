#include "platform/rich_printing.h"

#include "platform/shaped_paragraph.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <QScreen>

namespace {

double screenDotsPerInch()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->logicalDotsPerInchY() : 96;
}

/// Puts lines of paragraphs on pages, from top to bottom. Coordinates are the screen's, within the margins.
class PageFiller
{
public:
    PageFiller(QPrinter &printer, QPainter &painter, QRect page)
        : m_printer(printer), m_painter(painter), m_page(page)
    {}

    void add(const ShapedParagraph &paragraph)
    {
        int done = 0;  // of the paragraph's height
        int first = 0; // the line that its part of this page begins with
        for (int line = 0; line < paragraph.lineCount(); ++line) {
            const QRect place = paragraph.caretRect(paragraph.lineStart(line));
            if (m_y + place.bottom() + 1 - done > m_page.height() && (m_y > 0 || line > first)) {
                draw(paragraph, done, place.top());
                m_printer.newPage();
                m_y = 0;
                done = place.top();
                first = line;
            }
        }
        draw(paragraph, done, paragraph.height());
        m_y += paragraph.height() - done;
    }

private:
    /// The part of the paragraph between two heights.
    void draw(const ShapedParagraph &paragraph, int from, int to)
    {
        const QRect part(m_page.left(), m_page.top() + m_y, m_page.width(), to - from);
        m_painter.save();
        m_painter.setClipRect(part);
        paragraph.draw(m_painter, {part.left(), part.top() - from}, {}, part);
        m_painter.restore();
    }

    QPrinter &m_printer;
    QPainter &m_painter;
    QRect m_page;
    int m_y = 0;
};

} // namespace

bool printRichText(const RichDocument &text, const QFont &baseFont, QPrinter &printer, int marginTwips)
{
    const double scale = printer.logicalDpiY() / screenDotsPerInch();
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    painter.scale(scale, scale); // laid out as on the screen
    const int margin = twipsToPixels(marginTwips);
    const QSize paper(static_cast<int>(printer.width() / scale), static_cast<int>(printer.height() / scale));
    const QRect page = QRect(QPoint(), paper).adjusted(margin, margin, -margin, -margin);
    TextLooks looks(text);
    looks.setBaseFont(baseFont);
    PageFiller pages(printer, painter, page);
    for (qsizetype index = 0; index < text.paragraphCount(); ++index) {
        ShapedParagraph paragraph(text, text.paragraph(index), looks);
        paragraph.breakLines(page.width());
        pages.add(paragraph);
    }
    return painter.end();
}
