#include "skin/skin_chat_colours.h"

#include "skin/clsSkinResourceNew.h"

ChatColours chatColoursOf(const clsSkinResourceNew &skin)
{
    if (!skin.isRead()) {
        return {};
    }
    const auto colour = [&](RoomItem item) { return skin.ChatRoom(item).colour(); };
    return {
        .message = {colour(RoomItem::MessageForeColour), colour(RoomItem::MessageBackColour)},
        .chattersMessage = {colour(RoomItem::ChattersMessageForeColour),
                            colour(RoomItem::ChattersMessageBackColour)},
        .server = colour(RoomItem::ServerMessage),
        .serverWarning = colour(RoomItem::ServerMessageWarning),
        .serverError = colour(RoomItem::ServerMessageError),
        .emotions = {colour(RoomItem::EmotionsForeColour), colour(RoomItem::EmotionsBackColour)},
        .username = {colour(RoomItem::UsernameForeColour), colour(RoomItem::UsernameBackColour)},
        .chattersName = {colour(RoomItem::ChattersNameForeColour), colour(RoomItem::ChattersNameBackColour)},
    };
}
