#pragma once

#include "core/options_text.h"

#include <QFont>
#include <QObject>

class Prompts;
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

Q_SIGNALS:
    /// The font, or one of its styles, is another one now.
    void fontChanged();

private:
    void addStyleButton(class SkinButton &button, bool (QFont::*isOn)() const, void (QFont::*turn)(bool));
    void chooseFont();
    void apply(const QFont &font);

    RoomControls &m_controls;
    Prompts &m_prompts;
    QLineEdit &rtfText;
};
