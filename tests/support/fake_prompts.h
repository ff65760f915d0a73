#pragma once

#include "platform/prompts.h"

#include <QStringList>

#include <functional>

/// Answers message boxes and keeps what they said, as "icon: caption: text".
class FakePrompts final : public Prompts
{
public:
    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                     PromptButtons buttons) override
    {
        static constexpr QStringView icons[] = {u"Stop", u"Warning", u"Question", u"Information"};
        boxes.append(icons[static_cast<int>(icon)] + u": " + caption + u": " + text);
        if (whileOpen) {
            whileOpen();
        }
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : answer;
    }

    QString ShowSave(const QString &title, const QString &proposedName, const QString &filter) override
    {
        boxes.append(u"Save: " + title + u": " + proposedName + u": " + filter);
        return file;
    }

    std::optional<QFont> ShowFont(const QFont & /*current*/, int smallest, int largest) override
    {
        boxes.append(u"Font: " + QString::number(smallest) + u" to " + QString::number(largest));
        return font;
    }

    std::optional<ColourValue> ShowColor(ColourValue current) override
    {
        boxes.append(u"Color: " + QString::number(current));
        return colour;
    }

    QStringList boxes;
    std::optional<ColourValue> colour; ///< what is chosen; none is Cancel
    std::optional<QFont> font;         ///< what is chosen; none is Cancel
    QString file;                      ///< what is chosen to be written; empty is Cancel
    PromptAnswer answer = PromptAnswer::Yes;
    std::function<void()> whileOpen; ///< what happens while a box stands
};
