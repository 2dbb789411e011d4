// Event handlers on targets, events with typed parameters, and dispatch.
#include "platform/internal.h"

#include <algorithm>
#include <cstring>

namespace platform::detail {

namespace {

bool wants(const OpaqueEventHandlerRef& handler, UInt32 eventClass, UInt32 eventKind) {
    return std::any_of(handler.types.begin(), handler.types.end(),
                       [&](const EventTypeSpec& t) { return t.eventClass == eventClass && t.eventKind == eventKind; });
}

OSStatus runChain(OpaqueEventHandlerCallRef& call, EventRef event) {
    while (call.next < call.chain.size()) {
        std::shared_ptr<OpaqueEventHandlerRef> handler = call.chain[call.next++];
        if (handler->removed)
            continue;  // removed by an earlier handler of this dispatch
        OSStatus status = handler->proc(&call, event, handler->userData);
        if (status != eventNotHandledErr)
            return status;
    }
    return eventNotHandledErr;
}

OpaqueEventRef* liveEvent(EventRef event) {
    if (!event)
        return nullptr;
    return state().events.count(event) ? event : nullptr;
}

// Finds the target's owner, holding it in memory while its handlers run.
std::shared_ptr<void> keepOwner(OpaqueEventTargetRef* target) {
    switch (target->owner) {
        case OpaqueEventTargetRef::Owner::window:
            return liveWindow(static_cast<WindowRef>(target->object));
        case OpaqueEventTargetRef::Owner::control:
            return sharedControl(static_cast<ControlRef>(target->object));
        case OpaqueEventTargetRef::Owner::application:
            return std::shared_ptr<void>(&state(), [](void*) {});
    }
    return nullptr;
}

bool isKnownTarget(EventTargetRef target) {
    if (!target)
        return false;
    if (target == &state().application)
        return true;
    return keepOwner(target) != nullptr;
}

}  // namespace

void clearHandlers(OpaqueEventTargetRef& target) {
    for (auto& handler : target.handlers) {
        handler->removed = true;
        state().handlers.erase(handler.get());
    }
    target.handlers.clear();
}

OSStatus dispatch(EventRef event, OpaqueEventTargetRef* target) {
    std::shared_ptr<void> keep = keepOwner(target);
    if (!keep)
        return eventNotHandledErr;
    OpaqueEventHandlerCallRef call;
    for (auto it = target->handlers.rbegin(); it != target->handlers.rend(); ++it) {
        if (wants(**it, event->eventClass, event->eventKind))
            call.chain.push_back(*it);
    }
    return runChain(call, event);
}

OSStatus dispatchUpward(EventRef event, OpaqueControlRef* control) {
    // The path is fixed before the first handler runs; views disposed on the way are skipped.
    std::vector<std::shared_ptr<OpaqueControlRef>> path;
    for (OpaqueControlRef* c = control; c; c = c->parent)
        path.push_back(sharedControl(c));
    std::shared_ptr<OpaqueWindowPtr> window = liveWindow(ownerWindow(control));
    for (auto& c : path) {
        if (!c || c->dead)
            continue;
        OSStatus status = dispatch(event, &c->target);
        if (status != eventNotHandledErr)
            return status;
    }
    if (window && !window->dead) {
        OSStatus status = dispatch(event, &window->target);
        if (status != eventNotHandledErr)
            return status;
    }
    return dispatch(event, &state().application);
}

EventRef newEvent(UInt32 eventClass, UInt32 eventKind) {
    auto event = std::make_unique<OpaqueEventRef>();
    event->eventClass = eventClass;
    event->eventKind = eventKind;
    EventRef ref = event.get();
    state().events.emplace(ref, std::move(event));
    return ref;
}

void setParam(EventRef event, EventParamName name, EventParamType type, const void* data, std::size_t size) {
    OpaqueEventRef::Param param;
    param.type = type;
    param.bytes.resize(size);
    if (size)
        std::memcpy(param.bytes.data(), data, size);
    event->params[name] = std::move(param);
}

}  // namespace platform::detail

using namespace platform::detail;

extern "C" {

EventHandlerUPP NewEventHandlerUPP(EventHandlerProcPtr userRoutine) { return userRoutine; }

void DisposeEventHandlerUPP(EventHandlerUPP) {}

OSStatus InstallEventHandler(EventTargetRef inTarget, EventHandlerUPP inHandler, ItemCount inNumTypes,
                             const EventTypeSpec* inList, void* inUserData, EventHandlerRef* outRef) {
    if (!isKnownTarget(inTarget) || !inHandler || (inNumTypes && !inList))
        return paramErr;
    auto handler = std::make_shared<OpaqueEventHandlerRef>();
    handler->proc = inHandler;
    handler->types.assign(inList, inList + inNumTypes);
    handler->userData = inUserData;
    handler->target = inTarget;
    inTarget->handlers.push_back(handler);
    state().handlers.emplace(handler.get(), handler);
    if (outRef)
        *outRef = handler.get();
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef inHandlerRef) {
    auto& handlers = state().handlers;
    auto it = handlers.find(inHandlerRef);
    if (it == handlers.end())
        return paramErr;
    std::shared_ptr<OpaqueEventHandlerRef> handler = it->second;
    handlers.erase(it);
    handler->removed = true;
    auto& list = handler->target->handlers;
    list.erase(std::remove(list.begin(), list.end(), handler), list.end());
    return noErr;
}

EventTargetRef GetWindowEventTarget(WindowRef inWindow) {
    auto window = liveWindow(inWindow);
    return window ? &window->target : nullptr;
}

EventTargetRef GetControlEventTarget(ControlRef inControl) {
    OpaqueControlRef* control = liveControl(inControl);
    return control ? &control->target : nullptr;
}

EventTargetRef GetApplicationEventTarget(void) { return &state().application; }

UInt32 GetEventClass(EventRef inEvent) {
    OpaqueEventRef* event = liveEvent(inEvent);
    return event ? event->eventClass : 0;
}

UInt32 GetEventKind(EventRef inEvent) {
    OpaqueEventRef* event = liveEvent(inEvent);
    return event ? event->eventKind : 0;
}

OSStatus GetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inDesiredType,
                           EventParamType* outActualType, ByteCount inBufferSize, ByteCount* outActualSize,
                           void* outData) {
    OpaqueEventRef* event = liveEvent(inEvent);
    if (!event)
        return paramErr;
    auto it = event->params.find(inName);
    if (it == event->params.end())
        return eventParameterNotFoundErr;
    const OpaqueEventRef::Param& param = it->second;
    if (inDesiredType != typeWildCard && inDesiredType != param.type)
        return errAECoercionFail;
    if (outActualType)
        *outActualType = param.type;
    if (outActualSize)
        *outActualSize = param.bytes.size();
    if (outData)
        std::memcpy(outData, param.bytes.data(), std::min<std::size_t>(inBufferSize, param.bytes.size()));
    return noErr;
}

OSStatus CreateEvent(CFAllocatorRef, UInt32 inClassID, UInt32 inKind, EventTime, EventAttributes, EventRef* outEvent) {
    if (!outEvent)
        return paramErr;
    *outEvent = newEvent(inClassID, inKind);
    return noErr;
}

OSStatus SetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inType, ByteCount inSize,
                           const void* inDataPtr) {
    OpaqueEventRef* event = liveEvent(inEvent);
    if (!event || (inSize && !inDataPtr))
        return paramErr;
    setParam(event, inName, inType, inDataPtr, inSize);
    return noErr;
}

EventRef RetainEvent(EventRef inEvent) {
    if (OpaqueEventRef* event = liveEvent(inEvent))
        ++event->refs;
    return inEvent;
}

void ReleaseEvent(EventRef inEvent) {
    OpaqueEventRef* event = liveEvent(inEvent);
    if (event && --event->refs == 0)
        state().events.erase(event);
}

OSStatus SendEventToEventTarget(EventRef inEvent, EventTargetRef inTarget) {
    OpaqueEventRef* event = liveEvent(inEvent);
    if (!event || !isKnownTarget(inTarget))
        return paramErr;
    if (event->eventClass == kEventClassCommand && inTarget->owner == OpaqueEventTargetRef::Owner::control) {
        return dispatchUpward(event, static_cast<OpaqueControlRef*>(inTarget->object));
    }
    return dispatch(event, inTarget);
}

OSStatus CallNextEventHandler(EventHandlerCallRef inCallRef, EventRef inEvent) {
    if (!inCallRef || !liveEvent(inEvent))
        return paramErr;
    return runChain(*inCallRef, inEvent);
}

}  // extern "C"
