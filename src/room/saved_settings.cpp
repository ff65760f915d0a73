#include "room/saved_settings.h"

#include "core/clsMyApp.h"
#include "core/lists_text.h"
#include "platform/text_file.h"

namespace {

QString listsFile(const clsMyApp &myApp)
{
    return myApp.Path() + QStringView(listsFileName);
}

} // namespace

void SavedSettings::load(const ChatColours &skin, const ComposeFont &designed)
{
    m_optionsFile = optionsFile(m_myApp.Path(), m_myApp.SkinName());
    const SavedOptions saved =
        readOptions(readTextFile(m_optionsFile).value_or(QString()), {defaultOptions(skin), designed, {}});
    m_options = saved.options;
    m_font = saved.font;
    m_unknownOptions = saved.unknownLines;
    m_unknownLists = readLists(readTextFile(listsFile(m_myApp)).value_or(QString()), m_lists);
}

bool SavedSettings::SaveOptions(const ComposeFont &font)
{
    m_font = font;
    return writeTextFile(m_optionsFile, optionsText({m_options, m_font, m_unknownOptions}));
}

bool SavedSettings::SaveLists()
{
    return writeTextFile(listsFile(m_myApp), listsText(m_lists, m_unknownLists));
}
