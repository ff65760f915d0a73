#include "skin/clsSkinResourceNew.h"

#include "core/clsMyApp.h"
#include "platform/skin_storage.h"
#include "skin/skin_reading.h"

#include <limits>

void clsSkinResourceNew::Initialize(FinePictures fine)
{
    if (!clsMyApp::IsFile(m_myApp.Skin)) {
        return;
    }
    SkinStorage storage(fine);
    storage.OpenFile(clsMyApp::localPath(m_myApp.Skin));
    for (const SkinSection &section : skinCatalogue()) {
        readSection(storage, section);
    }
    m_hasOverlays = true;
    m_notes = storage.notes();
}

void clsSkinResourceNew::readSection(SkinStorage &storage, const SkinSection &section)
{
    storage.SetSection(section.name.toString());
    for (const SkinKey &key : section.keys) {
        SkinItemValue value = readSkinValue(storage, key.name.toString(), key.kind);
        if (section.group == SkinGroup::ProgramIcons) {
            m_icons.insert({section.name, key.name}, value.bitmap());
        } else {
            m_items[static_cast<std::size_t>(section.group)].emplace(key.item, std::move(value));
        }
    }
}

SkinItemValue clsSkinResourceNew::FormDefaults(FormItem item)
{
    switch (item) {
    case FormItem::MaskColour:
        return SkinItemValue(maskColourOf(this->item(SkinGroup::FormDefaults, item).bitmap()));
    case FormItem::ReloadSystemButtons:
        m_showsSystemButtons = true;
        return {};
    case FormItem::ReleaseSystemButtons:
        m_showsSystemButtons = false;
        return {};
    default:
        break;
    }
    const bool isHidden =
        item >= FormItem::NormalSysClose && item <= FormItem::ClickedSysHelp && !m_showsSystemButtons;
    return isHidden ? SkinItemValue() : this->item(SkinGroup::FormDefaults, item);
}

SkinItemValue clsSkinResourceNew::DefaultButton(ButtonItem item) const
{
    return this->item(SkinGroup::DefaultButton, item);
}

SkinItemValue clsSkinResourceNew::Frame(FrameItem item) const
{
    return this->item(SkinGroup::Frame, item);
}

SkinItemValue clsSkinResourceNew::PopupMenu(MenuItem item) const
{
    return this->item(SkinGroup::PopupMenu, item);
}

SkinItemValue clsSkinResourceNew::ContactList(ListItem item) const
{
    return this->item(SkinGroup::ContactList, item);
}

SkinItemValue clsSkinResourceNew::ChatRoom(RoomItem item) const
{
    if (item == RoomItem::HasOverlays) {
        return SkinItemValue(m_hasOverlays ? 1 : 0);
    }
    return this->item(SkinGroup::ChatRoom, item);
}

SkinItemValue clsSkinResourceNew::OptionsForm(OptionsItem item)
{
    switch (item) {
    case OptionsItem::LoadSelectButton:
    case OptionsItem::ReleaseSelectButton:
        m_showsSelectButton = item == OptionsItem::LoadSelectButton;
        return {};
    default:
        break;
    }
    const bool isHidden = item >= OptionsItem::NormalSelect && !m_showsSelectButton;
    return isHidden ? SkinItemValue() : this->item(SkinGroup::OptionsForm, item);
}

SkinItemValue clsSkinResourceNew::MessagingForm(PrivateItem item)
{
    switch (item) {
    case PrivateItem::AcquireInfoButton:
        countInfoButton(+1);
        m_showsInfoButton = true;
        return {};
    case PrivateItem::ReleaseInfoButton:
        countInfoButton(-1);
        m_showsInfoButton = m_showsInfoButton && m_infoButtonUses > 0;
        return {};
    default:
        return m_showsInfoButton ? this->item(SkinGroup::MessagingForm, item) : SkinItemValue();
    }
}

void clsSkinResourceNew::countInfoButton(int change)
{
    const int uses = m_infoButtonUses + change;
    if (uses < std::numeric_limits<qint16>::min() || uses > std::numeric_limits<qint16>::max()) {
        throw SkinError(QStringLiteral("the details button is in use, or released, too often to be counted"));
    }
    m_infoButtonUses = static_cast<qint16>(uses);
}

SkinBitmap clsSkinResourceNew::icon(QStringView section, QStringView name) const
{
    return m_icons.value({section, name});
}

template <typename Item>
SkinItemValue clsSkinResourceNew::item(SkinGroup group, Item number) const
{
    const auto &items = m_items[static_cast<std::size_t>(group)];
    const auto found = items.find(static_cast<int>(number));
    return found == items.end() ? SkinItemValue() : found->second;
}
