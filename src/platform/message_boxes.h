#pragma once

#include "platform/prompts.h"

/// The toolkit's own message boxes, over the window that is active.
class MessageBoxes final : public Prompts
{
public:
    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                     PromptButtons buttons) override;
};
