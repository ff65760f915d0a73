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

struct SkinKey
{
    QStringView name;
    SkinKind kind;
    int item; ///< the accessor's item; for icons 0
};

struct SkinSection
{
    QStringView name;
    SkinGroup group;
    QStringView purpose;           ///< what the section dresses, a line for skin authors
    std::span<const SkinKey> keys; ///< in reading order
};

/// The section of the icons' transparent colour, which is no icon.
inline constexpr QStringView iconMaskSection = u"Mood and Status MaskColour";

/// Every section and key that the program asks of a skin, in the order in which they are read. The one list
/// behind the reader, the checks and the reference.
[[nodiscard]] std::span<const SkinSection> skinCatalogue();

/// The section of this name, or null.
[[nodiscard]] const SkinSection *findSkinSection(QStringView name);
