#include "skin/skin_palette.h"

#include "platform/text_looks.h"
#include "skin/clsSkinResourceNew.h"

namespace {

constexpr int faintness = 128; // of 255, for what is disabled

QColor between(const QColor &a, const QColor &b)
{
    return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

} // namespace

QPalette skinPalette(clsSkinResourceNew &skin, const QPalette &withoutSkin)
{
    if (!skin.isRead()) {
        return withoutSkin;
    }
    const auto form = [&](FormItem item) { return toColor(skin.FormDefaults(item).colour()); };
    const QColor ground = form(FormItem::BackColour);
    const QColor ink = form(FormItem::ForeColour);
    QPalette palette(ground, ground); // works the shades of borders out
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::Base, form(FormItem::InputBackColour));
    palette.setColor(QPalette::AlternateBase, between(ground, form(FormItem::InputBackColour)));
    palette.setColor(QPalette::Text, form(FormItem::InputForeColour));
    palette.setColor(QPalette::PlaceholderText, between(form(FormItem::InputForeColour), ground));
    palette.setColor(QPalette::ToolTipBase, form(FormItem::InputBackColour));
    palette.setColor(QPalette::ToolTipText, form(FormItem::InputForeColour));
    palette.setColor(QPalette::Highlight, toColor(skin.ContactList(ListItem::HighlightBackColour).colour()));
    palette.setColor(QPalette::HighlightedText,
                     toColor(skin.ContactList(ListItem::HighlightForeColour).colour()));
    palette.setColor(QPalette::Link, form(FormItem::BoldForeColour));
    palette.setColor(QPalette::BrightText, form(FormItem::BoldForeColour));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        QColor faint = palette.color(role);
        faint.setAlpha(faintness);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}
