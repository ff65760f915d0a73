#include "room/colChatters.h"

colChatters::Pointer colChatters::Add(const QString &id, const QString &nickname, qint32 status, qint32 mood,
                                      bool owner, const QString &invitedBy, const QDateTime &joined,
                                      bool pending, const QString &toUserId)
{
    auto record = std::make_shared<clsChatters>();
    record->ID = id;
    record->Nickname = nickname;
    record->OriginalName = nickname;
    record->Joined = joined;
    record->InvitedBy = invitedBy;
    record->Status = status;
    record->Mood = mood;
    record->Owner = owner;
    record->Pending = pending;
    record->ToUserID = toUserId;
    return insert(keyOf(id), std::move(record));
}

colChatters::Pointer colChatters::AddObject(const clsChatters &source)
{
    return Add(source.ID, source.Nickname, source.Status, source.Mood, source.Owner, source.InvitedBy,
               source.Joined, source.Pending, source.ToUserID);
}

colChatters::Pointer colChatters::addUnknown(const QString &id)
{
    return Add(id, {}, 0, 0, false, {}, QDateTime::currentDateTime(), false, {});
}
