#include "tools/skin/key_notes.h"

#include "tools/skin/key_words.h"

#include <algorithm>

namespace {

struct Note
{
    QStringView section;
    QStringView key;
    QStringView purpose;
    QStringView plainValue = {};
};

constexpr QStringView borders[] = {u"Defaults", u"Default Frame"};

constexpr Note notes[] = {
    {u"Defaults", u"BackColour", u"the ground of windows", u"\"#f3f5f8\""},
    {u"Defaults", u"UnFocusColour", u"the ground of what does not have the keyboard", u"\"#e3e7ed\""},
    {u"Defaults", u"FormCaptionForeColour", u"the caption in the title strip", u"\"#1f2933\""},
    {u"Defaults", u"FormCaptionShadowColour", u"the caption's shadow", u"\"#ffffff\""},
    {u"Defaults", u"FormCaptionShadowOffset",
     u"how far right of and below the caption its shadow stands, in pixels", u"1"},
    {u"Defaults", u"FormCaptionBackColour", u"a box behind the caption; \"none\" for no box", u"\"none\""},
    {u"Defaults", u"FormCaptionFont", u"the caption"},
    {u"Defaults", u"FormForeColour", u"text in windows", u"\"#1f2933\""},
    {u"Defaults", u"Font", u"text in windows"},
    {u"Defaults", u"FormBoldForeColour", u"headings and links in windows", u"\"#1d4f91\""},
    {u"Defaults", u"BoldFont", u"headings in windows"},
    {u"Defaults", u"FormInputForeColour", u"text in boxes that are typed in, and in tool tips",
     u"\"#1f2933\""},
    {u"Defaults", u"FormInputBackColour", u"the ground of boxes that are typed in, and of tool tips",
     u"\"#ffffff\""},
    {u"Defaults", u"InputFont", u"what is typed"},
    {u"Defaults", u"MaskColour", u"the colour of its first pixel is cut out of the border's pieces"},

    {u"Default Button", u"Font", u"captions of buttons"},
    {u"Default Button", u"ForeColour", u"captions of buttons", u"\"#1f2933\""},
    {u"Default Button", u"Shadow Colour", u"their shadow", u"\"#f0f4fa\""},
    {u"Default Button", u"Disabled Colour", u"captions of buttons that cannot be pressed", u"\"#737d89\""},
    {u"Default Button", u"Disabled Shadow Colour", u"their shadow", u"\"#ffffff\""},

    {u"Default Frame", u"BackColour", u"the ground below the frame's pieces", u"\"#ffffff\""},

    {u"Menu", u"Font", u"entries of menus"},
    {u"Menu", u"BackGround", u"tiles the ground of menus"},
    {u"Menu", u"BackColour", u"the ground of menus", u"\"#ffffff\""},
    {u"Menu", u"TextColour", u"entries of menus", u"\"#1f2933\""},
    {u"Menu", u"TextDisabledColour", u"entries that cannot be chosen", u"\"#737d89\""},
    {u"Menu", u"TextShadowColour", u"the shadow of entries that cannot be chosen", u"\"#ffffff\""},
    {u"Menu", u"TextHighlightColour", u"the entry below the pointer", u"\"#123c6e\""},
    {u"Menu", u"GradientColour", u"the ground of the entry below the pointer", u"\"#dbe8f7\""},
    {u"Menu", u"HeaderBackColour", u"the ground of headings in menus", u"\"#e3e7ed\""},
    {u"Menu", u"HeaderTextColour", u"headings in menus", u"\"#1f2933\""},

    {u"MainForm Frame", u"BackColour", u"the ground of the member list", u"\"#ffffff\""},

    {u"MainForm Contact List", u"ForeColour", u"text in the member list", u"\"#1f2933\""},
    {u"MainForm Contact List", u"OnlineForeColour", u"members that are online", u"\"#1d4f91\""},
    {u"MainForm Contact List", u"OfflineForeColour", u"members that are away", u"\"#5f6b7a\""},
    {u"MainForm Contact List", u"HeadingBackColour", u"the ground of headings", u"\"#e3e7ed\""},
    {u"MainForm Contact List", u"HeadingForeColour", u"headings", u"\"#1f2933\""},
    {u"MainForm Contact List", u"ContactListFont", u"text in the member list; headings are a point larger"},
    {u"MainForm Contact List", u"Highlight BackColour", u"the ground of what is chosen, in lists and in text",
     u"\"#dbe8f7\""},
    {u"MainForm Contact List", u"Highlight ForeColour", u"what is chosen, in lists and in text",
     u"\"#123c6e\""},
    {u"MainForm Contact List", u"SearchBackColour", u"the ground of the box that searches the list",
     u"\"#fff8dc\""},
    {u"MainForm Contact List", u"SearchForeColour", u"what is searched for", u"\"#3b3110\""},
    {u"MainForm Contact List", u"SearchFont", u"what is searched for"},

    {u"Add Friend Window", u"Button Font", u"captions of the buttons that choose a page of the options"},
    {u"Add Friend Window", u"Button Forecolour", u"captions of these buttons", u"\"#1f2933\""},
    {u"Add Friend Window", u"Button Shadow Colour", u"their shadow", u"\"#f0f4fa\""},
    {u"Add Friend Window", u"Button Disabled Colour", u"captions of those that cannot be pressed",
     u"\"#737d89\""},
    {u"Add Friend Window", u"Button Disabled Shadow Colour", u"their shadow", u"\"#ffffff\""},

    {u"Chat Rooms", u"Message Board Background", u"tiles the ground of the board"},
    {u"Chat Rooms", u"Message Board BackColour", u"the ground of the board", u"\"#ffffff\""},
    {u"Chat Rooms", u"Message Board Font", u"messages"},
    {u"Chat Rooms", u"Username ForeColour", u"the user's own name", u"\"#123c6e\""},
    {u"Chat Rooms", u"Username BackColour", u"behind the user's own name", u"\"#edf3fb\""},
    {u"Chat Rooms", u"Message ForeColour", u"the user's own messages", u"\"#1f2933\""},
    {u"Chat Rooms", u"Message BackColour", u"behind the user's own messages", u"\"#edf3fb\""},
    {u"Chat Rooms", u"Chatters Name ForeColour", u"the names of the others", u"\"#7a3b10\""},
    {u"Chat Rooms", u"Chatters Name BackColour", u"behind the names of the others", u"\"#ffffff\""},
    {u"Chat Rooms", u"Chatters Message ForeColour", u"the messages of the others", u"\"#1f2933\""},
    {u"Chat Rooms", u"Chatters Message BackColour",
     u"behind the messages of the others, and the board's ground", u"\"#ffffff\""},
    {u"Chat Rooms", u"Server Message", u"notices on the board", u"\"#566270\""},
    {u"Chat Rooms", u"Server Message Warning", u"warnings on the board", u"\"#8a5300\""},
    {u"Chat Rooms", u"Server Message Error", u"errors on the board", u"\"#b3202c\""},
    {u"Chat Rooms", u"Emotions ForeColour", u"emotions: what somebody does", u"\"#5b2d8f\""},
    {u"Chat Rooms", u"Emotions BackColour", u"behind emotions", u"\"#ffffff\""},
    {u"Chat Rooms", u"Button Font", u"read, but the room's buttons take theirs from [Default Button]"},
    {u"Chat Rooms", u"Button Forecolour", u"read, but the room's buttons take theirs from [Default Button]",
     u"\"#1f2933\""},
    {u"Chat Rooms", u"Button Shadow Colour",
     u"read, but the room's buttons take theirs from [Default Button]", u"\"#f0f4fa\""},
    {u"Chat Rooms", u"Button Disabled Colour",
     u"read, but the room's buttons take theirs from [Default Button]", u"\"#737d89\""},
    {u"Chat Rooms", u"Button Disabled Shadow Colour",
     u"read, but the room's buttons take theirs from [Default Button]", u"\"#ffffff\""},
    {u"Chat Rooms", u"Bold Overlay", u"the letter in the middle of the button Bold"},
    {u"Chat Rooms", u"Italic Overlay", u"the letter in the middle of the button Italic"},
    {u"Chat Rooms", u"Underline Overlay", u"the letter in the middle of the button Underline"},
    {u"Chat Rooms", u"Emoticon Overlay", u"the face in the middle of the button Emoticons"},
    {u"Chat Rooms", u"Emoticon to Website", u"the last cell of the emoticons: leads to a page about them"},
    {u"Chat Rooms", u"Font Button Text", u"caption; \"&\" stands before the access key", u"\"Font\""},
    {u"Chat Rooms", u"Emotions Button Text", u"caption; \"&\" stands before the access key", u"\"Emotions\""},
    {u"Chat Rooms", u"Send Button Text", u"caption; \"&\" stands before the access key", u"\"&Send\""},
    {u"Chat Rooms", u"Menu Button Text", u"caption; \"&\" stands before the access key", u"\"&Menu\""},
    {u"Chat Rooms", u"Exit Button Text", u"caption; \"&\" stands before the access key", u"\"E&xit\""},

    {u"Mood and Status MaskColour", u"MaskColour",
     u"the colour of its first pixel is transparent in all icons"},
    {u"Contact List Heading Bitmaps", u"HeadingHide", u"before a heading whose members are shown"},
    {u"Contact List Heading Bitmaps", u"HeadingShow", u"before a heading whose members are hidden"},
};

/// A part of a name and the words for it.
struct Words
{
    QStringView name;
    QStringView words;
};

constexpr Words pieces[] = {{u"TopLeft", u"upper left corner"},   {u"Top", u"upper edge, tiled"},
                            {u"TopRight", u"upper right corner"}, {u"Left", u"left edge, tiled"},
                            {u"Right", u"right edge, tiled"},     {u"BottomLeft", u"lower left corner"},
                            {u"Bottom", u"lower edge, tiled"},    {u"BottomRight", u"lower right corner"}};

constexpr Words states[] = {{u"Normal", u"at rest"},
                            {u"Over", u"below the pointer"},
                            {u"Clicked", u"while it is pressed"},
                            {u"Disabled", u"when it cannot be pressed"},
                            {u"HasFocus", u"when it has the keyboard"},
                            {u"Down", u"when it is latched"},
                            {u"Mask", u"its shape: white is cut away"}};

/// By the key without the state.
constexpr Words buttons[] = {{u" Button", u"the ordinary button"},
                             {u"SysClose", u"the button that closes a window"},
                             {u"SysMin", u"the button that minimises a window"},
                             {u"SysHelp", u"the button that helps"},
                             {u"SelectButton", u"a button that chooses a page of the options"},
                             {u" BIU Button", u"Bold, Italic, Underline and Emoticons"},
                             {u" Font Button", u"the button Font"},
                             {u" Emotions Button", u"the button Emotions"},
                             {u" Send Button", u"the button Send"},
                             {u" Menu Button", u"the button Menu"},
                             {u" Exit Button", u"the button Exit"},
                             {u"InfoMsgButton", u"the button User details"}};

constexpr Words icons[] = {{u"Mood Bitmaps", u"the mood"},
                           {u"Main Menu Bitmaps", u"the entry of the main menu"},
                           {u"User Menu Bitmaps", u"the entry of the member menu"},
                           {u"Group Menu Bitmaps", u"the entry of a group's menu"},
                           {u"Status Bitmaps", u"the status"},
                           {u"Chat Room Smileys", u"the emoticon"}};

template <std::size_t Count>
QStringView wordsFor(const Words (&table)[Count], QStringView name)
{
    const auto *found = std::ranges::find(table, name, &Words::name);
    return found == std::end(table) ? QStringView() : found->words;
}

const Note *noteOn(SkinKeyName name)
{
    const auto *found = std::ranges::find_if(
        notes, [&](const Note &note) { return note.section == name.section && note.key == name.key; });
    return found == std::end(notes) ? nullptr : found;
}

/// "eHeart Broken" is "Heart Broken".
QStringView spoken(SkinKeyName icon)
{
    return icon.section == u"Chat Room Smileys" ? icon.key.sliced(1) : icon.key;
}

} // namespace

QString purposeOf(SkinKeyName name)
{
    if (const Note *note = noteOn(name)) {
        return note->purpose.toString();
    }
    if (const QStringView state = stateOf(name); !state.isEmpty()) {
        return QString(wordsFor(buttons, name.key.sliced(state.size())) % u": " % wordsFor(states, state));
    }
    if (std::ranges::find(borders, name.section) != std::end(borders)) {
        return wordsFor(pieces, name.key).toString();
    }
    const QStringView icon = wordsFor(icons, name.section);
    return icon.isEmpty() ? QString() : QString(icon % u" \"" % spoken(name) % u'"');
}

QString plainValueOf(SkinKeyName name)
{
    const Note *note = noteOn(name);
    return note == nullptr ? QString() : note->plainValue.toString();
}
