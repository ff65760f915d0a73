#pragma once

#include "platform/prompts.h"

#include <QList>

#include <functional>

/// Answers message boxes and keeps what they said.
class FakePrompts final : public Prompts
{
public:
    struct Box
    {
        QString caption;
        QString text;
        PromptIcon icon;

        friend bool operator==(const Box &, const Box &) = default;
    };

    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                     PromptButtons buttons) override
    {
        boxes.append({caption, text, icon});
        if (whileOpen) {
            whileOpen();
        }
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : answer;
    }

    QList<Box> boxes;
    PromptAnswer answer = PromptAnswer::Yes;
    std::function<void()> whileOpen; ///< what happens while a box stands
};
