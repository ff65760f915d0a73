#include "platform/rich_edit.h"

#include "platform/find_bar.h"
#include "platform/rich_edit_accessible.h"
#include "platform/rich_printing.h"
#include "richtext/text_search.h"

#include <QAccessible>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <limits>

namespace {

constexpr int frameMilliseconds = 16;

int toInt(qint64 pixels)
{
    return static_cast<int>(std::min(pixels, qint64(std::numeric_limits<int>::max())));
}

QTextLayout::FormatRange mark(qsizetype from, qsizetype to, const QBrush &text, const QBrush &background)
{
    QTextCharFormat format;
    format.setForeground(text);
    format.setBackground(background);
    return {static_cast<int>(from), static_cast<int>(to - from), format};
}

} // namespace

RichEdit::RichEdit(QWidget *parent) : QAbstractScrollArea(parent)
{
    installRichEditAccessibility();
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setMouseTracking(true);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
    m_layout.setBaseFont(font());
    connect(verticalScrollBar(), &QScrollBar::sliderReleased, this, &RichEdit::syncScrollBar);
}

RichEdit::~RichEdit() = default;

void RichEdit::append(const RichDocument &text)
{
    const bool wasEmpty = m_document.paragraphCount() == 1 && m_document.length() == 0;
    const qsizetype before = m_document.paragraphCount();
    const bool caretAtEnd = m_selection.isEmpty() && m_selection.caret() == m_document.end();
    m_document.append(text);
    m_editing.forget();
    if (wasEmpty) {
        m_layout.takeChanged(0);
        m_spoken.takeChanged(0);
    } else {
        m_layout.takeAppended();
    }
    if (caretAtEnd) {
        m_selection.collapseTo(m_document.end());
    }
    m_view.letGoOfEnd();
    nextFrame();
    announceAppended(*this, wasEmpty ? 0 : before);
    if (caretAtEnd) {
        announceCaret(*this, false);
    }
    Q_EMIT textChanged();
}

void RichEdit::clear()
{
    const QString before = QAccessible::isActive() ? m_spoken.text(0, m_spoken.length()) : QString();
    m_document.clear();
    m_editing.forget();
    m_layout.takeCleared();
    textWasChanged(0);
    announceCleared(*this, before);
    select(0, 0);
    m_view.toEnd();
}

void RichEdit::textWasChanged(qsizetype firstParagraph)
{
    m_layout.takeChanged(firstParagraph);
    m_spoken.takeChanged(firstParagraph);
    m_view.takeChanged();
    nextFrame();
    Q_EMIT textChanged();
}

void RichEdit::select(qsizetype anchor, qsizetype caret)
{
    select(m_document.placeOf(anchor), m_document.placeOf(caret));
}

void RichEdit::select(Place anchor, Place caret)
{
    m_selection.select(anchor, caret);
    selectionWasChanged();
}

void RichEdit::selectionWasChanged()
{
    nextFrame();
    startBlinking();
    announceCaret(*this, hasSelection() || m_hadSelection);
    m_hadSelection = hasSelection();
    Q_EMIT selectionChanged();
}

QString RichEdit::selectedText() const
{
    return m_document.plainText(selectionStart(), selectionEnd());
}

void RichEdit::setFontIn(qsizetype from, qsizetype to, const QString &family, double points)
{
    const quint16 font = m_document.fontNumber(family);
    const auto halfPoints = halfPointsOf(points);
    m_document.changeFormats(from, to, [&](TextFormat &format) {
        format.font = font;
        format.halfPoints = halfPoints;
    });
    textWasChanged(m_document.placeOf(from).paragraph);
}

void RichEdit::setTextColour(const QColor &colour)
{
    QPalette colours = palette();
    colours.setColor(QPalette::Text, colour);
    setPalette(colours);
}

void RichEdit::setBackgroundColour(const QColor &colour)
{
    QPalette colours = palette();
    colours.setColor(QPalette::Base, colour);
    setPalette(colours);
}

QColor RichEdit::backgroundColour() const
{
    return palette().color(QPalette::Base);
}

void RichEdit::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    setAttribute(Qt::WA_InputMethodEnabled, !readOnly);
    startBlinking();
}

void RichEdit::toEnd()
{
    if (m_selection.isEmpty() && !hasFocus()) {
        m_selection.collapseTo(m_document.end());
    }
    m_view.toEnd();
    nextFrame();
}

void RichEdit::showPlace(Place place)
{
    m_view.show(place);
    userScrolled();
}

RichEdit::Place RichEdit::placeAt(QPoint viewportPoint)
{
    m_view.settle();
    return m_view.placeAt(viewportPoint);
}

QRect RichEdit::caretRectAt(Place place)
{
    m_view.settle();
    return m_view.caretRect(place);
}

bool RichEdit::print(QPrinter &printer, qsizetype from, qsizetype to, int marginTwips) const
{
    return printRichText(m_document.copy(from, to), font(), printer, marginTwips);
}

/// What changes from now on is seen with the next frame, in one go.
void RichEdit::nextFrame()
{
    if (!m_frameTimer.isActive()) {
        const qint64 since = m_sinceFrame.isValid() ? m_sinceFrame.elapsed() : frameMilliseconds;
        m_frameTimer.start(static_cast<int>(std::max(frameMilliseconds - since, qint64(0))), Qt::PreciseTimer,
                           this);
    }
}

void RichEdit::showNow()
{
    m_frameTimer.stop();
    m_sinceFrame.start();
    m_view.settle();
    syncScrollBar();
    viewport()->update();
}

void RichEdit::syncScrollBar()
{
    QScrollBar *bar = verticalScrollBar();
    if (bar->isSliderDown()) {
        return;
    }
    m_syncing = true;
    bar->setRange(0, toInt(m_view.maximum()));
    bar->setPageStep(std::max(viewport()->height() - fontMetrics().height(), 1));
    bar->setSingleStep(fontMetrics().height());
    bar->setValue(toInt(m_view.value()));
    m_syncing = false;
}

void RichEdit::userScrolled()
{
    showNow();
    Q_EMIT scrolled(m_view.isAtEnd());
}

/// Short ways are gone exactly; long ones by what is known of the heights.
void RichEdit::scrollContentsBy([[maybe_unused]] int dx, int dy)
{
    if (m_syncing) {
        return;
    }
    if (verticalScrollBar()->value() == verticalScrollBar()->maximum()) {
        m_view.toEnd();
    } else if (std::abs(dy) <= 2 * viewport()->height() && !verticalScrollBar()->isSliderDown()) {
        m_view.moveBy(-dy);
    } else {
        m_view.toValue(verticalScrollBar()->value());
    }
    userScrolled();
}

void RichEdit::resizeEvent(QResizeEvent *event)
{
    const bool wasAtEnd = m_view.isAtEnd();
    m_view.setSize(event->size());
    placeFindBar();
    showNow();
    if (m_view.isAtEnd() && !wasAtEnd) {
        Q_EMIT scrolled(true); // a larger view has reached it
    }
}

void RichEdit::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        m_layout.setBaseFont(font());
        TextFormat format;
        format.halfPoints = halfPointsOf(font().pointSizeF());
        format.bold = font().bold();
        format.italic = font().italic();
        format.underline = font().underline();
        m_editing.setFormat(format, {});
        nextFrame();
    } else if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange ||
               event->type() == QEvent::ActivationChange) {
        if (!isActiveWindow()) {
            endDrag(); // the release of the button may never be told
        }
        viewport()->update();
    }
}

QList<QTextLayout::FormatRange> RichEdit::marksIn(qsizetype paragraph) const
{
    QList<QTextLayout::FormatRange> marks;
    const Paragraph &text = m_document.paragraph(paragraph);
    if (m_findBar != nullptr && m_findBar->isVisible()) {
        const qsizetype length = m_findBar->words().size();
        for (const qsizetype at : findAll(text.text(), m_findBar->words())) {
            marks += mark(at, at + length, QColor(Qt::black), QColor(255, 224, 112));
        }
    }
    const Place first = std::max(m_selection.from(), Place{paragraph, 0});
    const Place last = std::min(m_selection.to(), Place{paragraph, text.length()});
    if (first < last) {
        marks += mark(first.offset, last.offset, palette().highlightedText(), palette().highlight());
    }
    return marks;
}

void RichEdit::paintEvent(QPaintEvent *event)
{
    m_view.settle();
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    const QRect clip = event->rect();
    for (const RichView::Row &row : m_view.rows()) {
        const ShapedParagraph &shape = m_layout.shaped(row.paragraph);
        if (row.top <= clip.bottom() && row.top + shape.height() >= clip.top()) {
            shape.draw(painter, {RichView::margin, row.top}, marksIn(row.paragraph), clip);
        }
    }
    if (hasFocus() && m_caretShown && (!m_readOnly || m_caretWanted)) {
        const Place caret = m_selection.caret();
        const QRect place = m_view.caretRect({caret.paragraph, caret.offset + m_preeditCaret});
        painter.fillRect(place, palette().color(QPalette::Text));
    }
}
