#include "platform/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace {

constexpr int spacing = 4;

QToolButton *addButton(QHBoxLayout &row, Qt::ArrowType arrow, const QString &name)
{
    auto *button = new QToolButton;
    button->setAutoRaise(true);
    button->setArrowType(arrow);
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setFocusPolicy(Qt::TabFocus);
    row.addWidget(button);
    return button;
}

} // namespace

FindBar::FindBar(QWidget *parent) : QWidget(parent), m_words(new QLineEdit), m_notFound(new QLabel)
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);
    setCursor(Qt::ArrowCursor);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(spacing, spacing, spacing, spacing);
    row->setSpacing(spacing);
    m_words->setPlaceholderText(tr("Find"));
    m_words->setAccessibleName(tr("Find"));
    m_words->setClearButtonEnabled(true);
    m_words->setMinimumWidth(160);
    m_notFound->setText(tr("Not found"));
    m_notFound->hide();
    row->addWidget(m_words, 1);
    row->addWidget(m_notFound);
    const QToolButton *previous = addButton(*row, Qt::UpArrow, tr("Previous"));
    const QToolButton *next = addButton(*row, Qt::DownArrow, tr("Next"));
    QToolButton *close = addButton(*row, Qt::NoArrow, tr("Close find bar"));
    close->setText(QStringLiteral("\u00D7"));
    connect(m_words, &QLineEdit::textChanged, this, &FindBar::wordsChanged);
    connect(previous, &QToolButton::clicked, this, &FindBar::previousAsked);
    connect(next, &QToolButton::clicked, this, &FindBar::nextAsked);
    connect(close, &QToolButton::clicked, this, &FindBar::dismiss);
    hide();
}

QString FindBar::words() const
{
    return m_words->text();
}

void FindBar::open(const QString &words)
{
    if (!words.isEmpty()) {
        m_words->setText(words);
    }
    show();
    raise();
    m_words->setFocus(Qt::ShortcutFocusReason);
    m_words->selectAll();
}

void FindBar::showFound(bool found)
{
    m_notFound->setVisible(!found);
}

/// Enter goes on upwards, where the older messages are; with Shift it comes back.
void FindBar::keyPressEvent(QKeyEvent *event)
{
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (event->key() == Qt::Key_Escape) {
        dismiss();
    } else if (event->matches(QKeySequence::FindNext)) {
        Q_EMIT nextAsked();
    } else if (event->matches(QKeySequence::FindPrevious)) {
        Q_EMIT previousAsked();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT(shift ? nextAsked() : previousAsked());
    }
    event->accept(); // nothing typed here reaches the text behind
}

void FindBar::dismiss()
{
    parentWidget()->setFocus(); // before it could go to the next widget
    hide();
    Q_EMIT closed();
}
