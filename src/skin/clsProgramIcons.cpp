#include "skin/clsProgramIcons.h"

#include "core/clsMyApp.h"
#include "platform/skin_storage.h"
#include "skin/skin_catalogue.h"
#include "skin/skin_reading.h"

void clsProgramIcons::LoadBitmaps()
{
    if (!clsMyApp::IsFile(m_myApp.Skin)) {
        return;
    }
    SkinStorage storage;
    storage.OpenFile(clsMyApp::localPath(m_myApp.Skin));

    storage.SetSection(QStringLiteral("Mood and Status MaskColour"));
    const SkinBitmap mask = GetBitmap(storage, QStringLiteral("MaskColour"));
    Q_EMIT MaskColour(mask == nullptr ? noIconMaskColour : static_cast<ColourValue>(mask->GetPixel(0, 0)));

    for (const SkinSection &section : skinCatalogue()) {
        if (section.group != SkinGroup::ProgramIcons || section.name == u"Mood and Status MaskColour") {
            continue;
        }
        storage.SetSection(section.name.toString());
        for (const SkinKey &key : section.keys) {
            const QString name = key.name.toString();
            if (const SkinBitmap bitmap = GetBitmap(storage, name)) {
                Q_EMIT BitmapLoad(bitmap, name);
            }
        }
    }
}
