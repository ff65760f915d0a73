#pragma once

#include "core/options_text.h"
#include "room/input_history.h"
#include "room/name_completion.h"

#include <QFont>
#include <QObject>

#include <functional>

class Prompts;
class QKeyEvent;
class QLineEdit;
class clsEmoticons;
struct RoomControls;

/// The box that the user writes in, and the buttons that format it. It has one font for all that is written.
class ComposeBox final : public QObject
{
    Q_OBJECT

public:
    ComposeBox(RoomControls &controls, Prompts &prompts);

    void setFont(const ComposeFont &font);
    [[nodiscard]] ComposeFont font() const;

    /// Appends the code of the emoticon whose picture has this key: "eHappy". Spaces part it from what is
    /// there and from what follows.
    void WriteEmotion(const QString &key, const clsEmoticons &emoticons);

    /// Takes what was sent out of the box and leaves what has been typed behind it meanwhile; the text can be
    /// had again with Ctrl+Up.
    void sent(const QString &text);
    /// The names that Tab completes.
    void setNames(const std::function<QStringList()> &names) { m_names = names; }

Q_SIGNALS:
    /// The font, or one of its styles, is another one now.
    void fontChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool handleKey(const QKeyEvent &key);
    [[nodiscard]] bool completeName();
    void addStyleButton(class SkinButton &button, bool (QFont::*isOn)() const, void (QFont::*turn)(bool));
    void chooseFont();
    void apply(const QFont &font);

    RoomControls &m_controls;
    Prompts &m_prompts;
    QLineEdit &rtfText;
    InputHistory m_history;
    NameCompletion m_completion;
    std::function<QStringList()> m_names;
};
