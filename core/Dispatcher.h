#pragma once

#include "base/KeyedCollection.h"
#include "base/TaggedValue.h"

#include <memory>
#include <string>

namespace quellbrook {

// One change of state. Created for every dispatch.
struct Action {
    std::string ActionType;  // one of ActionTypes, compared exactly
    TaggedValue Payload;
};

// Receives every action. Handle throws an Error if it fails.
class DispatcherCallback {
public:
    virtual ~DispatcherCallback() = default;
    virtual void Handle(const Action& action) = 0;
    virtual std::string CallbackTypeName() const = 0;  // for error texts: "CartStore"
};

// Delivers each action to every registered callback, in the order of registration, synchronously. Refuses re-entry.
// Owns a shared reference to each callback. An action goes to the callbacks that were registered when its delivery
// began, except those unregistered during the delivery.
class Dispatcher {
public:
    bool IsDispatching() const { return m_isDispatching; }

    // Error 5 "callback is Nothing" for null; 457 for a callback that is already registered.
    void Register(std::shared_ptr<DispatcherCallback> callback);
    // Ignores an unknown callback.
    void Unregister(const DispatcherCallback* callback);
    void UnregisterAll();
    // A callback that throws ends the delivery. Its error is rethrown, prefixed with the callback's type name.
    void Dispatch(const Action& action);

private:
    static std::string KeyOf(const DispatcherCallback* callback);

    KeyedCollection<std::shared_ptr<DispatcherCallback>> m_callbacks;
    bool m_isDispatching = false;
};

// The current dispatcher, created on first access. Do not store the reference: the gate discards the dispatcher. The
// reference keeps it alive for the duration of one call.
std::shared_ptr<Dispatcher> GetDispatcher();
// Drops the current dispatcher and every registration. A delivery in progress ends after the current callback.
void DiscardDispatcher();

}  // namespace quellbrook
