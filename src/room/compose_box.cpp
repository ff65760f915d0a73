#include "room/compose_box.h"

#include "controls/SkinButton.h"
#include "emotions/clsEmoticons.h"
#include "platform/prompts.h"
#include "room/room_controls.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

constexpr int smallestSize = 8; // points
constexpr int largestSize = 12;

} // namespace

ComposeBox::ComposeBox(RoomControls &controls, Prompts &prompts)
    : m_controls(controls), m_prompts(prompts), rtfText(*controls.rtfText)
{
    addStyleButton(*controls.smdBold, &QFont::bold, &QFont::setBold);
    addStyleButton(*controls.smdItalic, &QFont::italic, &QFont::setItalic);
    addStyleButton(*controls.smdUnderline, &QFont::underline, &QFont::setUnderline);
    connect(controls.smdFont, &QAbstractButton::clicked, this, &ComposeBox::chooseFont);
    rtfText.installEventFilter(this);
}

void ComposeBox::addStyleButton(SkinButton &button, bool (QFont::*isOn)() const, void (QFont::*turn)(bool))
{
    connect(&button, &QAbstractButton::clicked, this, [this, isOn, turn] {
        QFont font = rtfText.font();
        (font.*turn)(!(font.*isOn)());
        apply(font);
        rtfText.setFocus();
    });
}

void ComposeBox::setFont(const ComposeFont &saved)
{
    QFont font(saved.name);
    font.setPointSizeF(saved.size);
    font.setBold(saved.bold);
    font.setItalic(saved.italic);
    font.setUnderline(saved.underlined);
    apply(font);
}

ComposeFont ComposeBox::font() const
{
    const QFont font = rtfText.font();
    return {font.family(), font.pointSizeF(), font.bold(), font.italic(), font.underline()};
}

/// The box is as high as one line of its font.
void ComposeBox::apply(const QFont &font)
{
    rtfText.setFont(font);
    rtfText.resize(rtfText.width(), rtfText.sizeHint().height());
    m_controls.smdBold->setLatched(font.bold());
    m_controls.smdItalic->setLatched(font.italic());
    m_controls.smdUnderline->setLatched(font.underline());
    Q_EMIT fontChanged();
}

void ComposeBox::chooseFont()
{
    if (const auto font = m_prompts.ShowFont(rtfText.font(), smallestSize, largestSize)) {
        apply(*font);
        rtfText.setFocus();
    }
}

void ComposeBox::WriteEmotion(const QString &key, const clsEmoticons &emoticons)
{
    const QString code = emoticons.GetKeyFromEmotion(QStringView(key).mid(1));
    if (code.isEmpty()) {
        return;
    }
    const QString text = rtfText.text();
    const QString space = text.isEmpty() || text.endsWith(u' ') ? QString() : QStringLiteral(" ");
    rtfText.end(false);
    rtfText.insert(space % code % u' ');
}

void ComposeBox::sent(const QString &text)
{
    m_history.add(text);
    if (const QString now = rtfText.text(); now.startsWith(text)) {
        const int caret = rtfText.cursorPosition() - static_cast<int>(text.size());
        rtfText.setText(now.sliced(text.size()));
        rtfText.setCursorPosition(qMax(0, caret));
    }
    rtfText.setFocus();
}

bool ComposeBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && handleKey(*static_cast<QKeyEvent *>(event))) {
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool ComposeBox::handleKey(const QKeyEvent &key)
{
    const bool control = key.modifiers().testFlag(Qt::ControlModifier);
    if (control && key.key() == Qt::Key_Up) {
        rtfText.setText(m_history.older(rtfText.text()));
        return true;
    }
    if (control && key.key() == Qt::Key_Down) {
        rtfText.setText(m_history.newer(rtfText.text()));
        return true;
    }
    return key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier && completeName();
}

/// Where no name fits, Tab leads to the next control as ever.
bool ComposeBox::completeName()
{
    const QString text = rtfText.text();
    const qsizetype caret = rtfText.cursorPosition();
    const QString completed = m_names ? m_completion.complete(text.first(caret), m_names()) : QString();
    if (completed.isEmpty()) {
        return false;
    }
    rtfText.setText(completed % text.sliced(caret));
    rtfText.setCursorPosition(static_cast<int>(completed.size()));
    return true;
}
