#pragma once

#include "core/keyed_collection.h"
#include "link/clsXMLMessage.h"

#include <QString>

#include <memory>

/// How a request ended.
enum class RetCode : qint32
{
    NoReply = 0, ///< none yet, or given up
    Replied = 1,
    ConnectionReset = 3,
    NotSent = 4, ///< not connected, the write failed, or the connection ended
};

/// One request on its way: queued, sent, processed, terminated. The queue owns it; a caller that waits for it
/// shares it, so that it outlives its removal.
struct clsCommMsg
{
    QString MsgKey;        ///< "C" and a number; the reply carries the same key
    QString MessageToSend; ///< envelope, request and the final NUL
    qint64 DateTime = 0;   ///< when it was queued, in the clock's steady milliseconds
    bool Sent = false;
    bool Processed = false; ///< answered or failed: the waiting caller may go on
    bool Terminate = false; ///< finished with: a reply is ignored and the clean-up removes it
    enum RetCode RetCode = RetCode::NoReply;
    QString RetString;                           ///< a reply's text; the request's own text until then
    std::shared_ptr<const clsXMLMessage> RetXML; ///< a reply's element, which keeps its whole message alive
};

/// The queue's records in the order of queueing, under their MsgKey.
class colCommMsg : public KeyedCollection<clsCommMsg>
{
public:
    Pointer Add(const QString &key, const QString &messageToSend, const QString &retString, qint64 dateTime);
};
