#pragma once

#include "core/colours.h"

#include <QFont>
#include <QString>

#include <optional>

enum class PromptIcon
{
    Stop,
    Warning,
    Question,
    Information
};
enum class PromptButtons
{
    Ok,
    YesNo
};
enum class PromptAnswer
{
    Ok,
    Yes,
    No
};

/// Message boxes, and the dialogs that ask for a file, a font or a colour. Asking blocks the caller while
/// events go on; a box closed without an answer says No, or Ok where there is nothing to decline.
class Prompts
{
public:
    Prompts() = default;
    Prompts(const Prompts &) = delete;
    Prompts &operator=(const Prompts &) = delete;
    virtual ~Prompts() = default;

    virtual PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                             PromptButtons buttons) = 0;

    /// The file to be written, whose folder exists; before one that is there is chosen, the user is asked.
    /// Empty when the user cancels. The filter is the toolkit's: "Description (*.ext)".
    virtual QString ShowSave(const QString &title, const QString &proposedName, const QString &filter) = 0;

    /// A font of the screen in a whole size between the two, in points; none when the user cancels.
    virtual std::optional<QFont> ShowFont(const QFont &current, int smallest, int largest) = 0;

    /// A colour; none when the user cancels.
    virtual std::optional<ColourValue> ShowColor(ColourValue current) = 0;

    /// A box with nothing to decide.
    void tell(const QString &text, const QString &caption, PromptIcon icon)
    {
        ask(text, caption, icon, PromptButtons::Ok);
    }
};
