#include "privmsg/message_edit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextCursor>
#include <QTextDocument>

#include <cmath>

namespace {

QString onOneLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (const QChar end : {QChar(u'\r'), QChar(u'\n'), QChar(u'\v'), QChar(u'\f'), QChar(u'\x85'),
                            QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)}) {
        text.replace(end, u' ');
    }
    return text;
}

} // namespace

MessageEdit::MessageEdit(QWidget *parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
}

QString MessageEdit::text() const
{
    return onOneLine(toPlainText());
}

bool MessageEdit::isEmpty() const
{
    return document()->isEmpty();
}

void MessageEdit::removeSent(const QString &sent)
{
    if (text().startsWith(sent)) {
        QTextCursor cursor(document());
        cursor.setPosition(static_cast<int>(sent.size()), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
}

int MessageEdit::heightOf(int lines) const
{
    const double around = 2 * (document()->documentMargin() + frameWidth());
    return static_cast<int>(std::ceil(lines * QFontMetricsF(font()).lineSpacing() + around));
}

void MessageEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            Q_EMIT returnPressed();
        }
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

bool MessageEdit::canInsertFromMimeData(const QMimeData *source) const
{
    return source->hasText();
}

void MessageEdit::insertFromMimeData(const QMimeData *source)
{
    insertPlainText(onOneLine(source->text()));
    ensureCursorVisible();
}
