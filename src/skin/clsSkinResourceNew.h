#pragma once

#include "skin/skin_catalogue.h"
#include "skin/skin_item_value.h"
#include "skin/skin_items.h"

#include <QStringList>

#include <array>
#include <memory>
#include <vector>

class SkinStorage;
class clsMyApp;

/// The skin's description: what the windows need of a skin, read once and shared with them. Each accessor
/// covers one part of the interface; an item that it does not have is empty. Where the skin file is not there
/// everything is empty. Reading throws SkinError for a file that is not fit to be used.
class clsSkinResourceNew
{
public:
    /// The application helper names the skin file.
    explicit clsSkinResourceNew(const clsMyApp &myApp) : m_myApp(myApp) {}

    /// Reads the skin. Once in an object's life.
    void Initialize();

    /// The mask colour is -1 where the skin has no picture for it. Two items are actions: the system buttons
    /// are read again if they have been released, and released.
    SkinItemValue FormDefaults(FormItem item);
    [[nodiscard]] SkinItemValue DefaultButton(ButtonItem item) const;
    [[nodiscard]] SkinItemValue Frame(FrameItem item) const;
    [[nodiscard]] SkinItemValue PopupMenu(MenuItem item) const;
    [[nodiscard]] SkinItemValue ContactList(ListItem item) const;
    [[nodiscard]] SkinItemValue ChatRoom(RoomItem item) const;
    /// The select button's bitmaps are there between the two actions that load and release them.
    SkinItemValue OptionsForm(OptionsItem item);
    /// The details button's bitmaps are there while anyone has acquired them. Acquiring opens the skin in the
    /// caller's storage if that is null and something is to be read; it stays open.
    SkinItemValue MessagingForm(PrivateItem item, std::unique_ptr<SkinStorage> &storage);

    /// Whether a skin has been read.
    [[nodiscard]] bool isRead() const { return m_hasOverlays; }
    /// What was passed over in reading, a line each.
    [[nodiscard]] const QStringList &notes() const { return m_notes; }

private:
    using Items = std::vector<SkinItemValue>;

    [[nodiscard]] bool openIfThere(SkinStorage &storage) const;
    void readSection(SkinStorage &storage, const SkinSection &section, SkinReading reading);
    static void tryOnDemand(SkinStorage &storage);
    void readSystemButtons();
    void loadSelectButton();
    void acquireInfoButton(std::unique_ptr<SkinStorage> &storage);
    void releaseInfoButton();
    void drop(SkinGroup group, int first, int last);
    [[nodiscard]] SkinItemValue item(SkinGroup group, int number) const;
    void setItem(SkinGroup group, int number, SkinItemValue value);

    const clsMyApp &m_myApp;
    std::array<Items, 9> m_items; ///< by group
    bool m_hasOverlays = false;
    qint16 m_infoButtonUses = 0;
    QStringList m_notes;
};
