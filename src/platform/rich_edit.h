#pragma once

#include "platform/rich_layout.h"
#include "platform/rich_selection.h"
#include "platform/rich_view.h"
#include "platform/spoken_text.h"
#include "platform/text_editing.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>

class FindBar;
class QMenu;
class QPrinter;

/// A box of rich text: the message board, a private conversation, or what one writes in. It shows a document
/// of its own; what arrives is painted once a frame, however much it is. Positions count characters as the
/// document does. The widget's font is that of text that names none. Enter only makes returnPressed();
/// Shift+Enter breaks the line where one may write.
class RichEdit final : public QAbstractScrollArea
{
    Q_OBJECT

public:
    using Place = RichDocument::Place;

    explicit RichEdit(QWidget *parent = nullptr);
    ~RichEdit() override;

    // The text. What is put in from here cannot be undone by the user.
    [[nodiscard]] const RichDocument &document() const { return m_document; }
    [[nodiscard]] QString toPlainText() const { return m_document.plainText(); }
    /// As paragraphs of their own behind the last. The view and the selection stay where they are; a caret at
    /// the end stays at the end.
    void append(const RichDocument &text);
    void clear();

    // The selection; its end is where the caret is.
    void select(qsizetype anchor, qsizetype caret);
    void selectAll() { select(0, m_document.length()); }
    [[nodiscard]] bool hasSelection() const { return !m_selection.isEmpty(); }
    [[nodiscard]] qsizetype selectionStart() const { return m_document.positionOf(m_selection.from()); }
    [[nodiscard]] qsizetype selectionEnd() const { return m_document.positionOf(m_selection.to()); }
    [[nodiscard]] qsizetype caret() const { return m_document.positionOf(m_selection.caret()); }
    [[nodiscard]] QString selectedText() const;
    [[nodiscard]] Place anchorPlace() const { return m_selection.anchor(); }
    [[nodiscard]] Place caretPlace() const { return m_selection.caret(); }
    void select(Place anchor, Place caret);
    /// The user has the mouse button down on a selection in the making.
    [[nodiscard]] bool isSelecting() const { return m_dragging; }

    // Looks over a range.
    void setFontIn(qsizetype from, qsizetype to, const QString &family, double points);
    /// Of text that has no colour of its own.
    void setTextColour(const QColor &colour);
    void setBackgroundColour(const QColor &colour);
    [[nodiscard]] QColor backgroundColour() const;

    void setReadOnly(bool readOnly);
    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }

    // The view.
    /// The view to the end, and the caret unless the user has selected something or is about with the caret.
    void toEnd();
    [[nodiscard]] bool isAtEnd() const { return m_view.isAtEnd(); }
    /// Into view, moving as little as needed.
    void showPlace(Place place);
    [[nodiscard]] Place placeAt(QPoint viewportPoint);
    /// In the viewport; empty when it is not in view.
    [[nodiscard]] QRect caretRectAt(Place place);
    /// The text as those have it who hear it.
    [[nodiscard]] const SpokenText &spokenText() const { return m_spoken; }

    void openFindBar();
    /// Prints the characters of a range, with margins in twips. False when the printer cannot begin.
    bool print(QPrinter &printer, qsizetype from, qsizetype to, int marginTwips) const;

    [[nodiscard]] QSize sizeHint() const override { return {400, 200}; }
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

public Q_SLOTS:
    void copy() const;
    void cut();
    void paste();
    void undo();
    void redo();

Q_SIGNALS:
    void linkActivated(const QUrl &address);
    /// The user has moved the view.
    void scrolled(bool atEnd);
    void returnPressed();
    void textChanged();
    void selectionChanged();

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    void textWasChanged(qsizetype firstParagraph);
    void nextFrame();
    void showNow();
    void syncScrollBar();
    void userScrolled();
    [[nodiscard]] QList<QTextLayout::FormatRange> marksIn(qsizetype paragraph) const;

    bool runCommand(QKeyEvent *event);
    bool moveCaret(QKeyEvent *event);
    void type(QStringView text);
    void deleteTowards(CaretMove move);
    void takeStep(qsizetype behind);
    void selectionWasChanged();
    void pressAt(QPoint point, RichSelection::Unit unit, bool extend);
    void dragTo(QPoint point);
    void scrollWhileDragging();
    void endDrag();
    void offerSelection() const;
    void scrollSmoothly();
    void startBlinking();
    void fillMenu(QMenu &menu, const QUrl &link);
    void showPointerFor(QPoint point);
    [[nodiscard]] QUrl linkAt(QPoint point);

    void find(bool backwards, bool again);
    void placeFindBar();

    RichDocument m_document;
    RichLayout m_layout{m_document};
    RichView m_view{m_layout};
    RichSelection m_selection{m_layout};
    TextEditing m_editing{m_document};
    SpokenText m_spoken{m_document};
    FindBar *m_findBar = nullptr;
    bool m_readOnly = false;
    bool m_hadSelection = false; ///< when that was last told to assistive programs

    QBasicTimer m_frameTimer;
    QElapsedTimer m_sinceFrame;
    bool m_syncing = false; ///< the scroll bar is told where the view is, not the other way round

    QBasicTimer m_wheelTimer;
    double m_wheelLeft = 0; ///< pixels still to go

    QBasicTimer m_dragTimer;
    bool m_dragging = false;
    QPoint m_dragPoint;
    QUrl m_pressedLink;
    QElapsedTimer m_sinceDoubleClick;
    QPoint m_doubleClickPoint;

    QBasicTimer m_blinkTimer;
    bool m_caretWanted = false; ///< in a box that is only read: the keyboard is being used in it
    bool m_caretShown = true;
    qsizetype m_preeditCaret = 0; ///< from the caret's place
};
