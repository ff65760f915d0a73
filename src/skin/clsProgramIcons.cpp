#include "skin/clsProgramIcons.h"

#include "skin/clsSkinResourceNew.h"

void clsProgramIcons::LoadBitmaps()
{
    if (!m_skin.isRead()) {
        return;
    }
    const qint32 mask = maskColourOf(m_skin.icon(iconMaskSection, u"MaskColour"));
    Q_EMIT MaskColour(mask == noMaskColour ? noColour : static_cast<ColourValue>(mask));
    for (const SkinSection &section : skinCatalogue()) {
        if (section.group != SkinGroup::ProgramIcons || section.name == iconMaskSection) {
            continue;
        }
        for (const SkinKey &key : section.keys) {
            if (const SkinBitmap bitmap = m_skin.icon(section.name, key.name)) {
                Q_EMIT BitmapLoad(bitmap, key.name.toString());
            }
        }
    }
}
