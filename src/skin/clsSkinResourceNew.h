#pragma once

#include "skin/skin_catalogue.h"
#include "skin/skin_item_value.h"
#include "skin/skin_items.h"

#include <QHash>
#include <QStringList>

#include <array>
#include <map>

class SkinStorage;
class clsMyApp;

/// The skin's description: what the program needs of a skin, read once and shared with its windows. Each
/// accessor covers one part of the interface; an item that it does not have is empty. Where the skin file is
/// not there everything is empty.
class clsSkinResourceNew
{
public:
    /// The application helper names the skin file.
    explicit clsSkinResourceNew(const clsMyApp &myApp) : m_myApp(myApp) {}

    /// Reads the whole skin; the file is not looked at again. Once in an object's life. Throws SkinError for
    /// a file that is not fit to be used.
    void Initialize(FinePictures fine = FinePictures::Read);

    /// The mask colour is noMaskColour where the skin has no picture for it. Two items are actions: the
    /// system buttons are there, as from the beginning, until they are released and again when they have been
    /// reloaded.
    SkinItemValue FormDefaults(FormItem item);
    [[nodiscard]] SkinItemValue DefaultButton(ButtonItem item) const;
    [[nodiscard]] SkinItemValue Frame(FrameItem item) const;
    [[nodiscard]] SkinItemValue PopupMenu(MenuItem item) const;
    [[nodiscard]] SkinItemValue ContactList(ListItem item) const;
    [[nodiscard]] SkinItemValue ChatRoom(RoomItem item) const;
    /// The select button's bitmaps are there between the two actions that load and release them.
    SkinItemValue OptionsForm(OptionsItem item);
    /// The details button's bitmaps are there while anyone has acquired them. Throws SkinError for a use that
    /// can no longer be counted.
    SkinItemValue MessagingForm(PrivateItem item);

    /// The icon under this name, or the picture of the icons' transparent colour, in a section of the
    /// catalogue; null when the skin has none.
    [[nodiscard]] SkinBitmap icon(QStringView section, QStringView name) const;

    /// Whether a skin has been read.
    [[nodiscard]] bool isRead() const { return m_hasOverlays; }
    /// What was passed over in reading, a line each.
    [[nodiscard]] const QStringList &notes() const { return m_notes; }

private:
    void readSection(SkinStorage &storage, const SkinSection &section);
    void countInfoButton(int change);
    template <typename Item>
    [[nodiscard]] SkinItemValue item(SkinGroup group, Item number) const;

    const clsMyApp &m_myApp;
    std::array<std::map<int, SkinItemValue>, 8> m_items;            ///< by group, then item
    QHash<std::pair<QStringView, QStringView>, SkinBitmap> m_icons; ///< by section and name of the catalogue
    bool m_hasOverlays = false;
    bool m_showsSystemButtons = true;
    bool m_showsSelectButton = false;
    bool m_showsInfoButton = false;
    qint16 m_infoButtonUses = 0;
    QStringList m_notes;
};
