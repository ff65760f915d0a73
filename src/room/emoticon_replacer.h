#pragma once

#include "core/colours.h"
#include "richtext/document.h"

#include <QHash>

class EmoticonFile;
class ImageList;
struct Options;

/// Puts pictures in the place of emoticon codes. A picture is made once for each code and ground.
class EmoticonReplacer
{
public:
    /// All of them must stay. The list holds the picture of an emoticon under "e" and its name.
    EmoticonReplacer(const Options &options, EmoticonFile &emoticons, const ImageList &imgList);

    /// Codes that stand between spaces, or between one and an end of the text, become pictures, the last one
    /// first; where a picture is missing, that code and those before it stay. Where a picture has the list's
    /// mask colour, the ground is seen. Nothing happens while the user does not want pictures.
    void ReplaceEmoticons(RichDocument &text, ColourValue ground);

private:
    [[nodiscard]] std::shared_ptr<const Picture> pictureFor(const QString &name, QStringView code);

    const Options &m_options;
    EmoticonFile &m_emoticons;
    const ImageList &m_imgList;
    QHash<QString, std::shared_ptr<const Picture>> m_pictures; ///< by code, line feed and name
    quint64 m_listVersion = 0;
    ColourValue m_ground = 0;
};
