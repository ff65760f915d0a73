#include "room/emoticon_replacer.h"

#include "core/options.h"
#include "emotions/emoticon_file.h"
#include "platform/image_list.h"

#include <algorithm>

EmoticonReplacer::EmoticonReplacer(const Options &options, EmoticonFile &emoticons, const ImageList &imgList)
    : m_options(options), m_emoticons(emoticons), m_imgList(imgList)
{}

void EmoticonReplacer::ReplaceEmoticons(RichDocument &text, ColourValue ground)
{
    const QString plain = text.plainText();
    if (!m_options.EMOTICONS || plain.isEmpty() || plain.size() != text.length()) {
        return; // a text that has pictures already is not gone through again
    }
    if (m_listVersion != m_imgList.version() || m_ground != ground) {
        m_pictures.clear();
        m_listVersion = m_imgList.version();
        m_ground = ground;
    }
    const clsEmoticons &table = m_emoticons.table();
    std::vector<RichDocument::PicturePlace> places;
    for (qsizetype end = plain.size(); end > 0;) {
        const qsizetype from = plain.lastIndexOf(u' ', end - 1) + 1;
        const QStringView word = QStringView(plain).sliced(from, end - from);
        const QString name = word.isEmpty() ? QString() : table.CheckEmotion(word);
        if (!name.isEmpty()) {
            const auto picture = pictureFor(name, word);
            if (!picture) {
                break;
            }
            places.push_back({from, word.size(), text.pictureNumber(picture)});
        }
        end = from - 1;
    }
    std::ranges::reverse(places);
    text.putPictures(places);
}

std::shared_ptr<const Picture> EmoticonReplacer::pictureFor(const QString &name, QStringView code)
{
    auto &picture = m_pictures[QString(code + u'\n' + name)];
    if (!picture) {
        const QRgb seen = qRgb(m_ground & 0xFF, (m_ground >> 8) & 0xFF, (m_ground >> 16) & 0xFF);
        if (const QImage image = m_imgList.imageOn(u'e' + name, seen); !image.isNull()) {
            picture = std::make_shared<const Picture>(Picture{image, code.toString(), name});
        }
    }
    return picture;
}
