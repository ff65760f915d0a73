#include "room/saved_settings.h"

#include "core/clsMyApp.h"
#include "core/lists_text.h"
#include "platform/text_file.h"

#include <QFileInfo>

namespace {

QString listsFile(const clsMyApp &myApp)
{
    return myApp.Path() + QStringView(listsFileName);
}

/// Empty when there is no such file. One that is there and cannot be read is to be kept as it is: in it is
/// what the program does not know.
QString textOf(const QString &file, bool &keep)
{
    const std::optional<QString> text = readTextFile(file);
    keep = !text && QFileInfo::exists(file);
    return text.value_or(QString());
}

} // namespace

void SavedSettings::load(const ChatColours &skin, const ComposeFont &designed)
{
    m_optionsFile = optionsFile(m_myApp.Path(), m_myApp.SkinName());
    const SavedOptions saved =
        readOptions(textOf(m_optionsFile, m_keepsOptions), {defaultOptions(skin), designed, {}});
    m_options = saved.options;
    m_font = saved.font;
    m_unknownOptions = saved.unknownLines;
    m_unknownLists = readLists(textOf(listsFile(m_myApp), m_keepsLists), m_lists);
}

bool SavedSettings::SaveOptions(const ComposeFont &font)
{
    m_font = font;
    return !m_keepsOptions &&
           writeTextFile(m_optionsFile, optionsText({m_options, m_font, m_unknownOptions}));
}

bool SavedSettings::SaveLists()
{
    return !m_keepsLists && writeTextFile(listsFile(m_myApp), listsText(m_lists, m_unknownLists));
}
