#pragma once

#include "platform/prompts.h"

/// The toolkit's own message boxes and dialogs, over the window that is active.
class MessageBoxes final : public Prompts
{
public:
    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                     PromptButtons buttons) override;
    QString ShowSave(const QString &title, const QString &proposedName, const QString &filter) override;
    std::optional<QFont> ShowFont(const QFont &current, int smallest, int largest) override;
};
