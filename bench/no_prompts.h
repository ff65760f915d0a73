#pragma once

#include "platform/prompts.h"

/// Nobody is there: every question is declined.
class NoPrompts final : public Prompts
{
public:
    PromptAnswer ask(const QString &, const QString &, PromptIcon, PromptButtons) override
    {
        return PromptAnswer::No;
    }
    QString ShowSave(const QString &, const QString &, const QString &) override { return {}; }
    std::optional<QFont> ShowFont(const QFont &, int, int) override { return {}; }
    std::optional<ColourValue> ShowColor(ColourValue) override { return {}; }
};
