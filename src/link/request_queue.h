#pragma once

#include "link/clsCommMsg.h"

/// The requests on their way and the rules of their life. It neither sends nor waits: the link asks which
/// record is to be sent next, and tells what became of it. A record that
/// is removed stays whole for whoever shares it, its reply included. Times are the clock's steady
/// milliseconds.
class RequestQueue
{
public:
    using Record = colCommMsg::Pointer;

    /// Wraps the request into its envelope and appends its record. Without a connection the record is failed
    /// and finished with at once.
    Record add(const QString &request, bool connected, qint64 now);

    /// The oldest record that was not sent, provided that no other one awaits its reply; null when there is
    /// none.
    [[nodiscard]] Record nextToSend() const;

    /// The record with this key, or null.
    [[nodiscard]] Record find(const QString &key) const { return m_records.Item(key); }

    /// Removes what is finished with, gives up on what has waited for more than 30 seconds and removes
    /// everything that is older than 40.
    void cleanUp(qint64 now);

    /// The connection was reset: the record at the end of the queue has failed.
    void failLast();

    /// The connection has ended: every record that still waits has failed.
    void failAll();

    [[nodiscard]] const colCommMsg &records() const { return m_records; }

private:
    colCommMsg m_records;
    qint32 m_requestCounter = 0;
};

/// Marks a record as finished with when the caller's use of it ends.
class RecordUse
{
public:
    explicit RecordUse(RequestQueue::Record record) : m_record(std::move(record)) {}
    RecordUse(RecordUse &&) = default;
    RecordUse(const RecordUse &) = delete;
    RecordUse &operator=(const RecordUse &) = delete;
    RecordUse &operator=(RecordUse &&) = delete;
    ~RecordUse()
    {
        if (m_record) {
            m_record->Terminate = true;
        }
    }

    const clsCommMsg *operator->() const { return m_record.get(); }
    const clsCommMsg &operator*() const { return *m_record; }

private:
    RequestQueue::Record m_record;
};
