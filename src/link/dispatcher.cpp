#include "link/dispatcher.h"

#include "link/request_queue.h"
#include "link/room_event_handler.h"
#include "link/xml_codec.h"

#include <algorithm>

namespace {

enum class Key
{
    Any,
    Unsolicited, ///< the message carries no request's key
    Reply,
};

enum class Action
{
    StoreElement, ///< into the request's record …
    StoreValue,   ///< … the text of "value" …
    StoreCode,    ///< … the text of "r" …
    StoreArrival, ///< … or that it was answered
    ChangeSkin,
    Tell,      ///< the handler, with the element
    TellAlone, ///< the handler, without it
};

struct Rule
{
    QStringView name;
    Key key = Key::Any;
    Action action = Action::StoreArrival;
    void (RoomEventHandler::*tell)(const clsXMLMessage &) = nullptr;
    void (RoomEventHandler::*tellAlone)() = nullptr;
};

/// The first rule with the element's name and kind of key holds; without one there is nothing to do.
constexpr Rule rules[] = {
    {u"RCMSG", Key::Any, Action::Tell, &RoomEventHandler::ReceiveMessage},
    {u"SKIN", Key::Any, Action::StoreValue},
    {u"SKINCHANGE", Key::Any, Action::ChangeSkin},
    {u"MYDETAILS", Key::Any, Action::StoreElement},
    {u"CTL", Key::Any, Action::StoreElement},
    {u"CHL", Key::Any, Action::StoreElement},
    {u"ACC", Key::Any, Action::StoreElement},
    {u"PYLOXUSERS", Key::Any, Action::StoreElement},
    {u"KCC", Key::Unsolicited, Action::Tell, &RoomEventHandler::UpdateChannelContents},
    {u"KCC", Key::Reply, Action::StoreElement},
    {u"AJC", Key::Unsolicited, Action::Tell, &RoomEventHandler::AllowToJoinChat},
    {u"AJC", Key::Reply, Action::StoreElement},
    {u"QJC", Key::Any, Action::Tell, &RoomEventHandler::RequestingChatter},
    {u"NJC", Key::Any, Action::StoreCode},
    {u"KLC", Key::Any, Action::StoreCode},
    {u"ADC", Key::Any, Action::StoreCode},
    {u"CLD", Key::Unsolicited, Action::Tell, &RoomEventHandler::ChannelClosed},
    {u"ACKSM", Key::Any, Action::StoreArrival},
    {u"ACKSC", Key::Any, Action::StoreArrival},
    {u"RCCMD", Key::Any, Action::Tell, &RoomEventHandler::ReceiveCommand},
    {u"STATUSMOOD", Key::Any, Action::Tell, &RoomEventHandler::ReceiveStatusMood},
    {u"USERONLINE", Key::Any, Action::Tell, &RoomEventHandler::ReceiveUserOnline},
    {u"NAMECHANGE", Key::Any, Action::Tell, &RoomEventHandler::ReceiveNameChange},
    {u"OFFLINE", Key::Any, Action::TellAlone, nullptr, &RoomEventHandler::PyloxOffline},
    {u"ONLINE", Key::Any, Action::TellAlone, nullptr, &RoomEventHandler::PyloxOnline},
};

const Rule *ruleFor(QStringView name, QStringView key)
{
    const Key kind = key == u"MSG" ? Key::Unsolicited : Key::Reply;
    const auto *rule = std::ranges::find_if(rules, [&](const Rule &candidate) {
        return candidate.name == name && (candidate.key == Key::Any || candidate.key == kind);
    });
    return rule != std::end(rules) ? rule : nullptr;
}

} // namespace

/// A message and its tree, whose texts are views of it.
struct Dispatcher::Received
{
    explicit Received(const QString &message) : text(message) {}

    QString text;
    XMLDocument tree;
};

Dispatcher::Dispatcher(RequestQueue &queue, SkinChange changeSkin)
    : m_queue(queue), m_changeSkin(std::move(changeSkin))
{}

void Dispatcher::HandleIncoming(const QString &text)
{
    const auto message = std::make_shared<Received>(text);
    qsizetype position = 1;
    if (!ParseElement(message->text, message->tree.root, position)) {
        return;
    }
    const clsXMLMessage *mark = message->tree.root.XMLMessage.Item(1);
    const auto key = mark != nullptr && mark->MsgName == u"V" ? mark->value(u"mk") : std::nullopt;
    if (key) {
        DispatchElements(message, message->tree.root.XMLMessage, key->toString());
    }
}

/// As deep as the parser lets elements nest.
void Dispatcher::DispatchElements(const Message &message, const colXMLMessage &elements, const QString &key)
{
    for (const clsXMLMessage &element : elements) {
        DispatchElements(message, element.XMLMessage, key);
        dispatch(message, element, key);
    }
}

void Dispatcher::dispatch(const Message &message, const clsXMLMessage &element, const QString &key)
{
    if (element.MsgName == u"MSG") {
        return;
    }
    const RequestQueue::Record record = m_queue.find(key);
    if (record && record->Terminate) {
        return; // too late
    }
    if (record) {
        record->Processed = true;
    }
    const Rule *rule = ruleFor(element.MsgName, key);
    if (rule == nullptr) {
        return;
    }
    const auto store = [&](std::optional<QStringView> text) {
        if (record && text) {
            record->RetCode = RetCode::Replied;
            record->RetString = text->toString();
        }
    };
    switch (rule->action) {
    case Action::StoreElement:
        if (record) {
            record->RetCode = RetCode::Replied;
            record->RetXML = std::shared_ptr<const clsXMLMessage>(message, &element);
        }
        break;
    case Action::StoreValue:
        store(element.value(u"value"));
        break;
    case Action::StoreCode:
        store(element.value(u"r"));
        break;
    case Action::StoreArrival:
        if (record) {
            record->RetCode = RetCode::Replied;
        }
        break;
    case Action::ChangeSkin:
        if (const auto skinFile = element.value(u"value")) {
            m_changeSkin(skinFile->toString());
        }
        break;
    case Action::Tell:
        if (m_room != nullptr) {
            (m_room->*rule->tell)(element);
        }
        break;
    case Action::TellAlone:
        if (m_room != nullptr) {
            (m_room->*rule->tellAlone)();
        }
        break;
    }
}
