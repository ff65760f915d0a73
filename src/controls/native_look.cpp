#include "controls/native_look.h"

#include "skin/clsSkinResourceNew.h"

namespace {

constexpr int inkShare = 40;      // of 100, in the colour of an edge; the rest is ground
constexpr int styleDarkens = 140; // of 100: what the style does to the window's colour

int mixed(int ink, int ground)
{
    return (ink * inkShare + ground * (100 - inkShare)) / 100;
}

} // namespace

QPalette listLook(const clsSkinResourceNew &skin, QPalette window)
{
    if (!skin.isRead()) {
        return window;
    }
    const QColor ink = window.color(QPalette::WindowText);
    const QColor ground = window.color(QPalette::Window);
    const QColor edge(mixed(ink.red(), ground.red()), mixed(ink.green(), ground.green()),
                      mixed(ink.blue(), ground.blue()));
    window.setColor(QPalette::Window, edge.lighter(styleDarkens));
    return window;
}

QPalette boxLook(const clsSkinResourceNew &skin, const QPalette &window)
{
    QPalette palette = listLook(skin, window);
    if (skin.isRead()) {
        palette.setColor(QPalette::Highlight, window.color(QPalette::Link));
        palette.setColor(QPalette::HighlightedText, window.color(QPalette::Base));
    }
    return palette;
}
