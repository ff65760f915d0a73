#include "link/clsCommMsg.h"

colCommMsg::Pointer colCommMsg::Add(const QString &key, const QString &messageToSend,
                                    const QString &retString, qint64 dateTime)
{
    auto record = std::make_shared<clsCommMsg>();
    record->MsgKey = key;
    record->MessageToSend = messageToSend;
    record->RetString = retString;
    record->DateTime = dateTime;
    return insert(key, std::move(record));
}
