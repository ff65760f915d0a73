#pragma once

#include <vector>

/// A loaded window that wears the skin.
class Skinnable
{
public:
    Skinnable() = default;
    Skinnable(const Skinnable &) = delete;
    Skinnable &operator=(const Skinnable &) = delete;
    virtual ~Skinnable() = default;

    virtual void DoSkinChange() = 0;
};

/// The windows that wear the skin, in the order in which they were loaded. A window enters when it loads and
/// leaves when it unloads; the list owns none of them.
class LoadedWindows
{
public:
    void enter(Skinnable &window);
    void leave(Skinnable &window);

    /// Runs DoSkinChange of each. A window may load or unload others meanwhile: those that left are passed
    /// over.
    void changeSkin();

private:
    std::vector<Skinnable *> m_windows;
};
