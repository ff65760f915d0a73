#pragma once

#include "fuzzing.h"
#include "platform/skin_storage.h"
#include "platform/skin_toml.h"

#include <QLoggingCategory>

/// Decoders tell the log of every damaged picture; that would be most of the time.
inline void silenceLog()
{
    static const bool once = (QLoggingCategory::setFilterRules(QStringLiteral("*=false")), true);
    (void)once;
}

/// What the storage hands out is what it promises.
inline void checkValue(const SkinValue &value, SkinType type)
{
    constexpr ColourValue none = 0xEFFFFFFF;
    if (const auto *colour = std::get_if<ColourValue>(&value)) {
        require(type == SkinType::Colour && (*colour <= 0xFFFFFF || *colour == none));
    } else if (const auto *font = std::get_if<QFont>(&value)) {
        require(font->pointSizeF() >= 1 && font->pointSizeF() <= 200);
    } else if (const auto *picture = std::get_if<SkinPicture>(&value)) {
        require(picture->image.format() == QImage::Format_ARGB32_Premultiplied);
        require(picture->image2x.isNull() || picture->image2x.size() == 2 * picture->image.size());
    }
}

/// Opens the archive and asks for every key of every table as everything.
inline void askEverything(const QByteArray &archive)
{
    silenceLog();
    SkinStorage storage;
    try {
        storage.openBytes(archive, QStringLiteral("a.skn"));
        const SkinTables tables = storage.tables();
        for (auto section = tables.sections.begin(); section != tables.sections.end(); ++section) {
            storage.SetSection(section.key());
            for (const QString &key : section->keys()) {
                for (const SkinType type : {SkinType::Colour, SkinType::Text, SkinType::Object}) {
                    checkValue(storage.GetValue(key, type), type);
                }
            }
        }
    } catch (const SkinError &error) {
        require(!error.reason().isEmpty() && storage.tables().sections.isEmpty());
    }
}
