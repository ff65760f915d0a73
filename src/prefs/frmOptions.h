#pragma once

#include "controls/titled_window.h"
#include "core/options_text.h"

#include <array>

class OptionsPage;
class Prompts;
class SavedSettings;
class SkinFrame;
struct UserLists;

/// What the dialogs of the preferences show and change. All of them must stay.
struct Preferences
{
    Options &options;
    UserLists &lists;
    SavedSettings &saved;
};

/// The options dialog: two pages in a frame, of which a tab chooses one. What is changed in it is the user's
/// until OK makes it the program's; the dialog of the lists, which it opens, has a life of its own.
class frmOptions final : public TitledWindow
{
    Q_OBJECT

public:
    /// The font is what the user writes in; it is saved with the options.
    frmOptions(const WindowDress &dress, const Preferences &preferences, const ComposeFont &font,
               Prompts &prompts, QWidget *owner);

Q_SIGNALS:
    /// The shared options have changed. They have been saved; where they could not be they hold until the
    /// program ends.
    void optionsChanged();

protected:
    void SetupFormSkin() override;
    void layOut() override;
    void closeEvent(QCloseEvent *event) override;

private:
    void connectControls();
    [[nodiscard]] QSize clientSize() const;
    void showPage(std::size_t chosen);
    void showLists();
    void accept();

    WindowDress m_dress;
    Preferences m_preferences;
    ComposeFont m_font;
    Prompts &m_prompts;

    SkinFrame *skfOptions;
    std::array<SkinButton *, 2> smcType;
    std::array<OptionsPage *, 2> m_pages; ///< picNormal and picColours, each for the tab at its place
    SkinButton *smdIgnore;
    SkinButton *smdOk;
    SkinButton *smdCancel;
};
