#pragma once

#include <QStringView>

#include <span>

/// What a key of a skin holds.
enum class SkinKind
{
    Colour,
    Number,
    Text,
    Font,
    Bitmap
};

/// Which part of the program a key's value belongs to: an accessor of the skin description, or the icons.
enum class SkinGroup
{
    FormDefaults,
    DefaultButton,
    Frame,
    PopupMenu,
    ContactList,
    ChatRoom,
    OptionsForm,
    MessagingForm,
    ProgramIcons,
};

/// When the program reads a key.
enum class SkinReading
{
    AtStart,
    OnDemand
};

struct SkinKey
{
    QStringView name;
    SkinKind kind;
    int item; ///< the accessor's item; for icons 0
    SkinReading reading = SkinReading::AtStart;
};

struct SkinSection
{
    QStringView name;
    SkinGroup group;
    QStringView purpose;           ///< what the section dresses, a line for skin authors
    std::span<const SkinKey> keys; ///< in reading order
};

/// Every section and key that the program asks of a skin, in the order in which they are read. The one list
/// behind the reader, the checks and the reference.
[[nodiscard]] std::span<const SkinSection> skinCatalogue();

/// The section of this name, or null.
[[nodiscard]] const SkinSection *findSkinSection(QStringView name);
