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

    QStringList boxes;
    QString file; ///< what is chosen to be written; empty is Cancel
    PromptAnswer answer = PromptAnswer::Yes;
    std::function<void()> whileOpen; ///< what happens while a box stands
};
