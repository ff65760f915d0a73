#include "skin/skin_catalogue.h"

#include <algorithm>

namespace {

using enum SkinKind;

constexpr SkinKey icon(QStringView name)
{
    return {name, Bitmap, 0};
}

constexpr SkinKey defaultsKeys[] = {
    {u"BackColour", Colour, 10},
    {u"UnFocusColour", Colour, 11},
    {u"FormCaptionForeColour", Colour, 12},
    {u"FormCaptionShadowColour", Colour, 13},
    {u"FormCaptionShadowOffset", Number, 14},
    {u"FormCaptionBackColour", Colour, 15},
    {u"FormCaptionFont", Font, 16},
    {u"FormForeColour", Colour, 17},
    {u"Font", Font, 18},
    {u"FormBoldForeColour", Colour, 19},
    {u"BoldFont", Font, 20},
    {u"FormInputForeColour", Colour, 21},
    {u"FormInputBackColour", Colour, 22},
    {u"InputFont", Font, 23},
    {u"MaskColour", Bitmap, 0},
    {u"TopLeft", Bitmap, 2},
    {u"Top", Bitmap, 3},
    {u"TopRight", Bitmap, 4},
    {u"Left", Bitmap, 5},
    {u"Right", Bitmap, 6},
    {u"BottomLeft", Bitmap, 7},
    {u"Bottom", Bitmap, 8},
    {u"BottomRight", Bitmap, 9},
    {u"NormalSysClose", Bitmap, 24},
    {u"OverSysClose", Bitmap, 25},
    {u"ClickedSysClose", Bitmap, 26},
    {u"NormalSysMin", Bitmap, 27},
    {u"OverSysMin", Bitmap, 28},
    {u"ClickedSysMin", Bitmap, 29},
    {u"NormalSysHelp", Bitmap, 30},
    {u"OverSysHelp", Bitmap, 31},
    {u"ClickedSysHelp", Bitmap, 32},
};

constexpr SkinKey defaultButtonKeys[] = {
    {u"Font", Font, 0},
    {u"ForeColour", Colour, 1},
    {u"Shadow Colour", Colour, 2},
    {u"Disabled Colour", Colour, 3},
    {u"Disabled Shadow Colour", Colour, 4},
    {u"Normal Button", Bitmap, 5},
    {u"Over Button", Bitmap, 6},
    {u"Clicked Button", Bitmap, 7},
    {u"Disabled Button", Bitmap, 8},
    {u"HasFocus Button", Bitmap, 9},
    {u"Mask Button", Bitmap, 10},
};

constexpr SkinKey defaultFrameKeys[] = {
    {u"BackColour", Colour, 8}, {u"TopLeft", Bitmap, 0}, {u"Top", Bitmap, 1},
    {u"TopRight", Bitmap, 2},   {u"Left", Bitmap, 3},    {u"Right", Bitmap, 4},
    {u"BottomLeft", Bitmap, 5}, {u"Bottom", Bitmap, 6},  {u"BottomRight", Bitmap, 7},
};

constexpr SkinKey menuKeys[] = {
    {u"Font", Font, 0},
    {u"BackGround", Bitmap, 1},
    {u"BackColour", Colour, 2},
    {u"TextColour", Colour, 3},
    {u"TextDisabledColour", Colour, 4},
    {u"TextShadowColour", Colour, 5},
    {u"TextHighlightColour", Colour, 6},
    {u"GradientColour", Colour, 7},
    {u"HeaderBackColour", Colour, 8},
    {u"HeaderTextColour", Colour, 9},
};

constexpr SkinKey mainformFrameKeys[] = {
    {u"BackColour", Colour, 0},
};

constexpr SkinKey mainformContactListKeys[] = {
    {u"ForeColour", Colour, 1},
    {u"OnlineForeColour", Colour, 2},
    {u"OfflineForeColour", Colour, 3},
    {u"HeadingBackColour", Colour, 4},
    {u"HeadingForeColour", Colour, 5},
    {u"ContactListFont", Font, 6},
    {u"Highlight BackColour", Colour, 7},
    {u"Highlight ForeColour", Colour, 8},
    {u"SearchBackColour", Colour, 9},
    {u"SearchForeColour", Colour, 10},
    {u"SearchFont", Font, 11},
};

constexpr SkinKey addFriendWindowKeys[] = {
    {u"Button Font", Font, 2},
    {u"Button Forecolour", Colour, 3},
    {u"Button Shadow Colour", Colour, 4},
    {u"Button Disabled Colour", Colour, 5},
    {u"Button Disabled Shadow Colour", Colour, 6},
    {u"NormalSelectButton", Bitmap, 7},
    {u"OverSelectButton", Bitmap, 8},
    {u"ClickedSelectButton", Bitmap, 9},
    {u"DisabledSelectButton", Bitmap, 10},
    {u"HasFocusSelectButton", Bitmap, 11},
    {u"MaskSelectButton", Bitmap, 12},
    {u"DownSelectButton", Bitmap, 13},
};

constexpr SkinKey chatRoomsKeys[] = {
    {u"Message Board Background", Bitmap, 0},
    {u"Message Board BackColour", Colour, 1},
    {u"Message Board Font", Font, 2},
    {u"Username ForeColour", Colour, 12},
    {u"Username BackColour", Colour, 13},
    {u"Message ForeColour", Colour, 3},
    {u"Message BackColour", Colour, 4},
    {u"Chatters Name ForeColour", Colour, 14},
    {u"Chatters Name BackColour", Colour, 15},
    {u"Chatters Message ForeColour", Colour, 5},
    {u"Chatters Message BackColour", Colour, 6},
    {u"Server Message", Colour, 7},
    {u"Server Message Warning", Colour, 8},
    {u"Server Message Error", Colour, 9},
    {u"Emotions ForeColour", Colour, 10},
    {u"Emotions BackColour", Colour, 11},
    {u"Button Font", Font, 16},
    {u"Button Forecolour", Colour, 17},
    {u"Button Shadow Colour", Colour, 18},
    {u"Button Disabled Colour", Colour, 19},
    {u"Button Disabled Shadow Colour", Colour, 20},
    {u"Normal BIU Button", Bitmap, 21},
    {u"Over BIU Button", Bitmap, 22},
    {u"Clicked BIU Button", Bitmap, 23},
    {u"Disabled BIU Button", Bitmap, 24},
    {u"HasFocus BIU Button", Bitmap, 25},
    {u"Down BIU Button", Bitmap, 26},
    {u"Mask BIU Button", Bitmap, 27},
    {u"Bold Overlay", Bitmap, 28},
    {u"Italic Overlay", Bitmap, 29},
    {u"Underline Overlay", Bitmap, 30},
    {u"Emoticon Overlay", Bitmap, 31},
    {u"Emoticon to Website", Bitmap, 33},
    {u"Normal Font Button", Bitmap, 34},
    {u"Over Font Button", Bitmap, 35},
    {u"Clicked Font Button", Bitmap, 36},
    {u"Disabled Font Button", Bitmap, 37},
    {u"HasFocus Font Button", Bitmap, 38},
    {u"Mask Font Button", Bitmap, 39},
    {u"Font Button Text", Text, 40},
    {u"Normal Emotions Button", Bitmap, 41},
    {u"Over Emotions Button", Bitmap, 42},
    {u"Clicked Emotions Button", Bitmap, 43},
    {u"Disabled Emotions Button", Bitmap, 44},
    {u"HasFocus Emotions Button", Bitmap, 45},
    {u"Mask Emotions Button", Bitmap, 46},
    {u"Emotions Button Text", Text, 47},
    {u"Normal Send Button", Bitmap, 48},
    {u"Over Send Button", Bitmap, 49},
    {u"Clicked Send Button", Bitmap, 50},
    {u"Disabled Send Button", Bitmap, 51},
    {u"HasFocus Send Button", Bitmap, 52},
    {u"Mask Send Button", Bitmap, 53},
    {u"Send Button Text", Text, 54},
    {u"Normal Menu Button", Bitmap, 55},
    {u"Over Menu Button", Bitmap, 56},
    {u"Clicked Menu Button", Bitmap, 57},
    {u"Disabled Menu Button", Bitmap, 58},
    {u"HasFocus Menu Button", Bitmap, 59},
    {u"Mask Menu Button", Bitmap, 60},
    {u"Menu Button Text", Text, 61},
    {u"Normal Exit Button", Bitmap, 62},
    {u"Over Exit Button", Bitmap, 63},
    {u"Clicked Exit Button", Bitmap, 64},
    {u"Disabled Exit Button", Bitmap, 65},
    {u"HasFocus Exit Button", Bitmap, 66},
    {u"Mask Exit Button", Bitmap, 67},
    {u"Exit Button Text", Text, 68},
};

constexpr SkinKey messagingWindowKeys[] = {
    {u"NormalInfoMsgButton", Bitmap, 2},   {u"OverInfoMsgButton", Bitmap, 3},
    {u"ClickedInfoMsgButton", Bitmap, 4},  {u"DisabledInfoMsgButton", Bitmap, 5},
    {u"HasFocusInfoMsgButton", Bitmap, 6}, {u"MaskInfoMsgButton", Bitmap, 7},
};

constexpr SkinKey moodAndStatusMaskcolourKeys[] = {icon(u"MaskColour")};

constexpr SkinKey contactListHeadingBitmapsKeys[] = {icon(u"HeadingHide"), icon(u"HeadingShow")};

constexpr SkinKey moodBitmapsKeys[] = {
    icon(u"Happy"),     icon(u"Sad"),     icon(u"Angry"), icon(u"Excited"),     icon(u"Chatty"),
    icon(u"Depressed"), icon(u"Chillin"), icon(u"Bored"), icon(u"Indifferent"), icon(u"Silly")};

constexpr SkinKey mainMenuBitmapsKeys[] = {
    icon(u"My Details"),  icon(u"Password"),     icon(u"Lock"),           icon(u"Change Skin"),
    icon(u"Preferences"), icon(u"Create User"),  icon(u"Delete User"),    icon(u"Change User"),
    icon(u"User Lists"),  icon(u"Visible List"), icon(u"Invisible List"), icon(u"Ignore List"),
    icon(u"Tempt"),       icon(u"Exit"),         icon(u"About")};

constexpr SkinKey userMenuBitmapsKeys[] = {icon(u"History"),   icon(u"User Details"), icon(u"Move Group"),
                                           icon(u"Group"),     icon(u"User Rename"),  icon(u"User Delete"),
                                           icon(u"User Lists")};

constexpr SkinKey groupMenuBitmapsKeys[] = {icon(u"Group Add"), icon(u"Group Rename"), icon(u"Group Delete"),
                                            icon(u"Move Up"), icon(u"Move Down")};

constexpr SkinKey statusBitmapsKeys[] = {
    icon(u"Online"),    icon(u"Offline"),        icon(u"Away"),         icon(u"Not Available"),
    icon(u"Invisible"), icon(u"Do Not Disturb"), icon(u"Authorise"),    icon(u"SysMessage"),
    icon(u"Message"),   icon(u"Chat Request"),   icon(u"File Request"), icon(u"URL"),
    icon(u"Birthday"),  icon(u"Contacts")};

constexpr SkinKey chatRoomSmileysKeys[] = {
    icon(u"eAngel"),      icon(u"eAngry"),        icon(u"eBored"),       icon(u"eChatty"),
    icon(u"eChillin"),    icon(u"eCool"),         icon(u"eDepressed"),   icon(u"ePylox"),
    icon(u"eEmbarrased"), icon(u"eExcited"),      icon(u"eGasp"),        icon(u"eHappy"),
    icon(u"eHeart"),      icon(u"eHeart Broken"), icon(u"eIndifferent"), icon(u"eNyah"),
    icon(u"eNyeh"),       icon(u"eQuestion"),     icon(u"eSad"),         icon(u"eSilly"),
    icon(u"eSuprised"),   icon(u"eTongue Tied"),  icon(u"eUnimpressed"), icon(u"eWink"),
    icon(u"eWorried"),    icon(u"eYum"),          icon(u"eKiss"),        icon(u"eCat"),
    icon(u"eDog"),        icon(u"eCoffee"),       icon(u"eGift")};

constexpr SkinSection sections[] = {
    {u"Defaults", SkinGroup::FormDefaults,
     u"every window: its border, title strip, system buttons, colours and fonts", defaultsKeys},
    {u"Default Button", SkinGroup::DefaultButton, u"the ordinary button of every window", defaultButtonKeys},
    {u"Default Frame", SkinGroup::Frame, u"the frames round the panels of the room window and of the options",
     defaultFrameKeys},
    {u"Menu", SkinGroup::PopupMenu, u"pop-up menus", menuKeys},
    {u"MainForm Frame", SkinGroup::ContactList, u"the ground of the member list", mainformFrameKeys},
    {u"MainForm Contact List", SkinGroup::ContactList, u"the member list", mainformContactListKeys},
    {u"Add Friend Window", SkinGroup::OptionsForm, u"the buttons of the options", addFriendWindowKeys},
    {u"Chat Rooms", SkinGroup::ChatRoom, u"the room window: its board, message colours and buttons",
     chatRoomsKeys},
    {u"Messaging Window", SkinGroup::MessagingForm, u"the details button of a private window",
     messagingWindowKeys},
    {iconMaskSection, SkinGroup::ProgramIcons,
     u"the icons' transparent colour: that of the picture's first pixel", moodAndStatusMaskcolourKeys},
    {u"Contact List Heading Bitmaps", SkinGroup::ProgramIcons,
     u"what the headings of the member list show when folded and unfolded", contactListHeadingBitmapsKeys},
    {u"Mood Bitmaps", SkinGroup::ProgramIcons, u"moods", moodBitmapsKeys},
    {u"Main Menu Bitmaps", SkinGroup::ProgramIcons, u"icons of the main menu", mainMenuBitmapsKeys},
    {u"User Menu Bitmaps", SkinGroup::ProgramIcons, u"icons of the member menu", userMenuBitmapsKeys},
    {u"Group Menu Bitmaps", SkinGroup::ProgramIcons, u"icons of group menus", groupMenuBitmapsKeys},
    {u"Status Bitmaps", SkinGroup::ProgramIcons, u"statuses", statusBitmapsKeys},
    {u"Chat Room Smileys", SkinGroup::ProgramIcons, u"emoticons", chatRoomSmileysKeys},
};

} // namespace

std::span<const SkinSection> skinCatalogue()
{
    return sections;
}

const SkinSection *findSkinSection(QStringView name)
{
    const auto *found = std::ranges::find(sections, name, &SkinSection::name);
    return found == std::end(sections) ? nullptr : found;
}
