#pragma once

#include "link/clsXMLMessage.h"

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <memory>

class RequestQueue;
class RoomEventHandler;

/// Brings every received message where it belongs: a reply into its request's record, anything else to its
/// handler. Before the room window exists there is no handler, and events are dropped.
class Dispatcher
{
public:
    using SkinChange = std::function<void(const QString &skinFile)>;

    /// Called with the file that a skin change names.
    Dispatcher(RequestQueue &queue, SkinChange changeSkin);

    /// The handler is not owned; null to have none.
    void setRoomEvents(RoomEventHandler *handler) { m_room = handler; }
    [[nodiscard]] RoomEventHandler *roomEvents() const { return m_room; }

    /// Handles one message. One that does not parse, or whose first child is not "V" with a key, is dropped.
    void HandleIncoming(const QString &text);

private:
    struct Received;
    using Message = std::shared_ptr<const Received>;

    void DispatchElements(const Message &message, const colXMLMessage &elements, const QString &key);
    void dispatch(const Message &message, const clsXMLMessage &element, const QString &key);

    RequestQueue &m_queue;
    SkinChange m_changeSkin;
    RoomEventHandler *m_room = nullptr;
};
