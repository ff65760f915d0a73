#pragma once

#include "core/chat_colours.h"

/// Whose requests to join the owner's room are accepted without asking.
enum class AcceptMode : quint8
{
    Everyone = 1,
    AcceptList = 2,
    Contacts = 3
};

/// The user's options, with the values that hold until a file says otherwise.
struct Options
{
    ColourValue UNTC = ChatColours().username.text; ///< the user's own name …
    ColourValue UNBC = ChatColours().username.background;
    ColourValue MMTC = ChatColours().message.text; ///< … and own words
    ColourValue MMBC = ChatColours().message.background;
    ColourValue CNTC = ChatColours().chattersName.text; ///< the names of the others …
    ColourValue CNBC = ChatColours().chattersName.background;
    ColourValue CMTC = ChatColours().chattersMessage.text; ///< … and their words
    ColourValue CMBC = ChatColours().chattersMessage.background;
    ColourValue EMTC = ChatColours().emotions.text;
    ColourValue EMBC = ChatColours().emotions.background;
    ColourValue SNORMAL = ChatColours().server; ///< notices
    ColourValue SWARNING = ChatColours().serverWarning;
    ColourValue SERROR = ChatColours().serverError;
    ColourValue HIGHLIGHT = 65535; ///< behind the words of highlighted members

    bool SHOWEMOTIONS = true;                          ///< the list of emotions stands beside the board
    bool IGNORECOL = false;                            ///< the skin's colours instead of these
    quint8 WORDFILER = 0;                              ///< how far words are filtered: kept, and not used
    bool EMOTICONS = true;                             ///< show pictures in the place of codes
    bool ShowEnterLeave = true;                        ///< post a notice when a member enters or leaves
    bool ShowFriendOnline = true;                      ///< post a notice when a contact comes online
    enum AcceptMode AcceptMode = AcceptMode::Everyone; ///< any other number: the owner decides each time
};

/// The options of a user who has chosen nothing, under a skin with these colours. Where the skin gives words
/// and their ground the same colour, the ground becomes the inverse.
[[nodiscard]] Options defaultOptions(const ChatColours &skin);
