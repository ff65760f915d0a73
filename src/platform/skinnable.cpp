#include "platform/skinnable.h"

#include <algorithm>

void LoadedWindows::enter(Skinnable &window)
{
    if (std::ranges::find(m_windows, &window) == m_windows.end()) {
        m_windows.push_back(&window);
    }
}

void LoadedWindows::leave(Skinnable &window)
{
    std::erase(m_windows, &window);
}

void LoadedWindows::changeSkin()
{
    for (Skinnable *window : std::vector(m_windows)) {
        if (std::ranges::find(m_windows, window) != m_windows.end()) {
            window->DoSkinChange();
        }
    }
}
