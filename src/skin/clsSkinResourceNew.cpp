#include "skin/clsSkinResourceNew.h"

#include "core/clsMyApp.h"
#include "platform/skin_storage.h"
#include "skin/skin_reading.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int firstSystemButton = static_cast<int>(FormItem::NormalSysClose);
constexpr int lastSystemButton = static_cast<int>(FormItem::ClickedSysHelp);
constexpr qint32 noMaskColour = -1;

bool isSystemButton(const SkinSection &section, const SkinKey &key)
{
    return section.group == SkinGroup::FormDefaults && key.item >= firstSystemButton &&
           key.item <= lastSystemButton;
}

const SkinSection &sectionOf(SkinGroup group)
{
    return *std::ranges::find(skinCatalogue(), group, &SkinSection::group);
}

} // namespace

void clsSkinResourceNew::Initialize()
{
    SkinStorage storage;
    if (!openIfThere(storage)) {
        return;
    }
    for (const SkinSection &section : skinCatalogue()) {
        readSection(storage, section, SkinReading::AtStart);
    }
    m_hasOverlays = true;
    tryOnDemand(storage);
    m_notes = storage.notes();
}

/// What is read later must not turn out to be unfit when windows wear the skin already.
void clsSkinResourceNew::tryOnDemand(SkinStorage &storage)
{
    for (const SkinSection &section : skinCatalogue()) {
        storage.SetSection(section.name.toString());
        for (const SkinKey &key : section.keys) {
            if (key.reading == SkinReading::OnDemand) {
                static_cast<void>(storage.GetValue(key.name.toString(), SkinType::Object));
            }
        }
    }
}

bool clsSkinResourceNew::openIfThere(SkinStorage &storage) const
{
    if (!clsMyApp::IsFile(m_myApp.Skin)) {
        return false;
    }
    storage.OpenFile(clsMyApp::localPath(m_myApp.Skin));
    return true;
}

void clsSkinResourceNew::readSection(SkinStorage &storage, const SkinSection &section, SkinReading reading)
{
    storage.SetSection(section.name.toString());
    for (const SkinKey &key : section.keys) {
        if (key.reading == reading) {
            setItem(section.group, key.item, readSkinValue(storage, key.name.toString(), key.kind));
        }
    }
}

SkinItemValue clsSkinResourceNew::FormDefaults(FormItem item)
{
    switch (item) {
    case FormItem::MaskColour: {
        const SkinBitmap bitmap = this->item(SkinGroup::FormDefaults, 0).bitmap();
        return SkinItemValue(bitmap == nullptr ? noMaskColour : bitmap->GetPixel(0, 0));
    }
    case FormItem::ReloadSystemButtons:
        readSystemButtons();
        return {};
    case FormItem::ReleaseSystemButtons:
        drop(SkinGroup::FormDefaults, firstSystemButton, lastSystemButton);
        return {};
    default:
        return this->item(SkinGroup::FormDefaults, static_cast<int>(item));
    }
}

SkinItemValue clsSkinResourceNew::DefaultButton(ButtonItem item) const
{
    return this->item(SkinGroup::DefaultButton, static_cast<int>(item));
}

SkinItemValue clsSkinResourceNew::Frame(FrameItem item) const
{
    return this->item(SkinGroup::Frame, static_cast<int>(item));
}

SkinItemValue clsSkinResourceNew::PopupMenu(MenuItem item) const
{
    return this->item(SkinGroup::PopupMenu, static_cast<int>(item));
}

SkinItemValue clsSkinResourceNew::ContactList(ListItem item) const
{
    return this->item(SkinGroup::ContactList, static_cast<int>(item));
}

SkinItemValue clsSkinResourceNew::ChatRoom(RoomItem item) const
{
    if (item == RoomItem::HasOverlays) {
        return SkinItemValue(m_hasOverlays ? 1 : 0);
    }
    return this->item(SkinGroup::ChatRoom, static_cast<int>(item));
}

SkinItemValue clsSkinResourceNew::OptionsForm(OptionsItem item)
{
    switch (item) {
    case OptionsItem::LoadSelectButton:
        loadSelectButton();
        return {};
    case OptionsItem::ReleaseSelectButton:
        drop(SkinGroup::OptionsForm, static_cast<int>(OptionsItem::NormalSelect),
             static_cast<int>(OptionsItem::DownSelect));
        return {};
    default:
        return this->item(SkinGroup::OptionsForm, static_cast<int>(item));
    }
}

SkinItemValue clsSkinResourceNew::MessagingForm(PrivateItem item, std::unique_ptr<SkinStorage> &storage)
{
    switch (item) {
    case PrivateItem::AcquireInfoButton:
        acquireInfoButton(storage);
        return {};
    case PrivateItem::ReleaseInfoButton:
        releaseInfoButton();
        return {};
    default:
        return this->item(SkinGroup::MessagingForm, static_cast<int>(item));
    }
}

void clsSkinResourceNew::readSystemButtons()
{
    SkinStorage storage;
    if (!item(SkinGroup::FormDefaults, firstSystemButton).isEmpty() || !openIfThere(storage)) {
        return;
    }
    const SkinSection &section = sectionOf(SkinGroup::FormDefaults);
    storage.SetSection(section.name.toString());
    for (const SkinKey &key : section.keys) {
        if (isSystemButton(section, key)) {
            setItem(section.group, key.item, readSkinValue(storage, key.name.toString(), key.kind));
        }
    }
}

void clsSkinResourceNew::loadSelectButton()
{
    SkinStorage storage;
    if (openIfThere(storage)) {
        readSection(storage, sectionOf(SkinGroup::OptionsForm), SkinReading::OnDemand);
    }
}

void clsSkinResourceNew::acquireInfoButton(std::unique_ptr<SkinStorage> &storage)
{
    if (m_infoButtonUses == std::numeric_limits<qint16>::max()) {
        throw SkinError(QStringLiteral("the details button is in use too often"));
    }
    ++m_infoButtonUses;
    if (m_infoButtonUses > 1) {
        return;
    }
    if (storage == nullptr) {
        auto opened = std::make_unique<SkinStorage>();
        opened->OpenFile(clsMyApp::localPath(m_myApp.Skin));
        storage = std::move(opened);
    }
    readSection(*storage, sectionOf(SkinGroup::MessagingForm), SkinReading::OnDemand);
}

void clsSkinResourceNew::releaseInfoButton()
{
    if (m_infoButtonUses == std::numeric_limits<qint16>::min()) {
        throw SkinError(QStringLiteral("the details button has been released too often"));
    }
    --m_infoButtonUses;
    if (m_infoButtonUses < 1) {
        drop(SkinGroup::MessagingForm, static_cast<int>(PrivateItem::NormalInfo),
             static_cast<int>(PrivateItem::MaskInfo));
    }
}

void clsSkinResourceNew::drop(SkinGroup group, int first, int last)
{
    for (int number = first; number <= last; ++number) {
        setItem(group, number, {});
    }
}

SkinItemValue clsSkinResourceNew::item(SkinGroup group, int number) const
{
    const Items &items = m_items[static_cast<std::size_t>(group)];
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < items.size() ? items[index] : SkinItemValue();
}

void clsSkinResourceNew::setItem(SkinGroup group, int number, SkinItemValue value)
{
    Items &items = m_items[static_cast<std::size_t>(group)];
    const auto index = static_cast<std::size_t>(number);
    if (index >= items.size()) {
        items.resize(index + 1);
    }
    items[index] = std::move(value);
}
