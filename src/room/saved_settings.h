#pragma once

#include "core/options_text.h"

struct ChatColours;
struct UserLists;
class clsMyApp;

/// The options file, one for each skin, and the lists file. It fills and saves the options and lists that all
/// windows share; all three must stay.
class SavedSettings
{
public:
    SavedSettings(const clsMyApp &myApp, Options &options, UserLists &lists)
        : m_myApp(myApp), m_options(options), m_lists(lists)
    {}

    /// Reads both files; what they do not say is as the skin and the designed font have it. From now on the
    /// options belong to this skin. A file that is there and cannot be read is not written over later.
    void load(const ChatColours &skin, const ComposeFont &designed);

    /// Writes the options with this font. False when the file cannot be written, or could not be
    /// read: nothing else changes.
    bool SaveOptions(const ComposeFont &font);
    bool SaveLists();

    /// The font to write in, as the file has it.
    [[nodiscard]] const ComposeFont &font() const { return m_font; }

private:
    const clsMyApp &m_myApp;
    Options &m_options;
    UserLists &m_lists;
    ComposeFont m_font;
    QString m_optionsFile;
    bool m_keepsOptions = false; ///< the file, as it is
    bool m_keepsLists = false;
    QStringList m_unknownOptions; ///< lines that stay as they are
    QStringList m_unknownLists;
};
