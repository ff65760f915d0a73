#include "link/request_queue.h"

namespace {

constexpr qint64 giveUpAfterSeconds = 30;
constexpr qint64 removeAfterSeconds = 40;

} // namespace

RequestQueue::Record RequestQueue::add(const QString &request, bool connected, qint64 now)
{
    const QString key = u'C' + QString::number(++m_requestCounter);
    QString text = u"<MSG><V mk=\"" + key + u"\"/>" + request + u"</MSG>";
    text.remove(QChar(u'\0')); // one inside would end the message and begin another
    text += QChar(u'\0');
    Record record = m_records.Add(key, text, text, now);
    if (!connected) {
        record->RetCode = RetCode::NotSent;
        record->Processed = true;
        record->Terminate = true;
    }
    return record;
}

RequestQueue::Record RequestQueue::nextToSend() const
{
    for (qsizetype at = 1; at <= m_records.Count(); ++at) {
        Record record = m_records.Item(at);
        if (record->Sent && !record->Processed && !record->Terminate) {
            return nullptr;
        }
        if (!record->Sent && !record->Processed && !record->Terminate) {
            return record;
        }
    }
    return nullptr;
}

void RequestQueue::cleanUp(qint64 now)
{
    for (qsizetype at = m_records.Count(); at >= 1; --at) {
        if (m_records.Item(at)->Terminate) {
            m_records.Remove(at);
        }
    }
    for (qsizetype at = 1; at <= m_records.Count();) {
        const Record record = m_records.Item(at);
        const qint64 seconds = (now - record->DateTime) / 1000;
        record->Terminate = record->Terminate || seconds > removeAfterSeconds;
        if (seconds > giveUpAfterSeconds && record->Terminate) {
            m_records.Remove(at);
            continue;
        }
        if (seconds > giveUpAfterSeconds && !record->Processed) {
            record->Terminate = true;
            record->RetCode = RetCode::NoReply;
        }
        ++at;
    }
}

void RequestQueue::failLast()
{
    if (const Record last = m_records.Item(m_records.Count())) {
        last->Processed = true;
        last->RetCode = RetCode::ConnectionReset;
    }
}

void RequestQueue::failAll()
{
    for (qsizetype at = 1; at <= m_records.Count(); ++at) {
        const Record record = m_records.Item(at);
        if (!record->Processed && !record->Terminate) {
            record->Processed = true;
            record->RetCode = RetCode::NotSent;
        }
    }
}
