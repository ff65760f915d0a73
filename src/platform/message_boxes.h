#pragma once

#include "platform/prompts.h"

class QDialog;

/// Moves a dialog that is not yet shown over the middle of its owner, or of the screen when it has none;
/// as far as it is seen whole there.
void CentreDialog(QDialog &dialog);

/// The toolkit's own message boxes and dialogs, over the window that is active.
class MessageBoxes final : public Prompts
{
public:
    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                     PromptButtons buttons) override;
    QString ShowSave(const QString &title, const QString &proposedName, const QString &filter) override;
    std::optional<QFont> ShowFont(const QFont &current, int smallest, int largest) override;
    std::optional<ColourValue> ShowColor(ColourValue current) override;
};
