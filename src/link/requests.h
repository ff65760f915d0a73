#pragma once

#include <QString>

/// The text of every request. Values that people typed are escaped, except a room's name: that is sent as
/// typed. Ids, and the name in an invitation, are escaped only where they would break the request.
namespace Requests {

[[nodiscard]] QString getSkin();
[[nodiscard]] QString getMyDetails();
[[nodiscard]] QString getCategories();
[[nodiscard]] QString getChannels(QStringView groupingCode, int start);
[[nodiscard]] QString createChannel(QStringView groupingCode, QStringView roomName, bool isPrivate);
[[nodiscard]] QString getChannelContents(qint32 roomId, int start);
[[nodiscard]] QString requestJoinChannel(qint32 roomId, QStringView myId, QStringView myNickname);
[[nodiscard]] QString allowJoinChannel(qint32 roomId, QStringView userId, QStringView myId, bool reject);
[[nodiscard]] QString dropUser(qint32 roomId, QStringView myId, QStringView userId, QStringView nickname);
[[nodiscard]] QString leaveChannel(qint32 roomId);
[[nodiscard]] QString destroyChannel(qint32 roomId);
[[nodiscard]] QString notifyJoinChannel(qint32 roomId, QStringView myId, QStringView targetId,
                                        QStringView roomName);
/// An empty target sends the message to the whole room.
[[nodiscard]] QString message(qint32 roomId, QStringView myId, QStringView text, QStringView targetId);
[[nodiscard]] QString getPyloxUsers();
[[nodiscard]] QString userDetails(QStringView userId);
[[nodiscard]] QString inviteUser(QStringView userId, QStringView nickname);

} // namespace Requests
