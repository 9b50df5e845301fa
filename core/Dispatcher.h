#pragma once

#include "base/KeyedCollection.h"
#include "base/TaggedValue.h"

#include <memory>
#include <string>

namespace quellbrook {

// One change of state on its way. Made new for every dispatch.
struct Action {
    std::string ActionType;  // one of ActionTypes, compared exactly
    TaggedValue Payload;
};

// Receives every action. A failure leaves Handle as an Error.
class DispatcherCallback {
public:
    virtual ~DispatcherCallback() = default;
    virtual void Handle(const Action& action) = 0;
    virtual std::string CallbackTypeName() const = 0;  // for failure texts: "CartStore"
};

// Delivers each action to every registered callback, in the order of registration, synchronously. Refuses re-entry.
// Callbacks are held by shared reference. Delivery walks over the callbacks registered when it began; one that is
// unregistered meanwhile is passed over.
class Dispatcher {
public:
    bool IsDispatching() const { return m_isDispatching; }

    // Error 5 "callback is Nothing"; 457 for a callback that is registered already.
    void Register(std::shared_ptr<DispatcherCallback> callback);
    // An unknown callback is no failure.
    void Unregister(const DispatcherCallback* callback);
    void UnregisterAll();
    // A failing callback ends the delivery; its error is raised again with the callback's type name in front.
    void Dispatch(const Action& action);

private:
    static std::string KeyOf(const DispatcherCallback* callback);

    KeyedCollection<std::shared_ptr<DispatcherCallback>> m_callbacks;
    bool m_isDispatching = false;
};

// The running dispatcher, created on first access. Keep the reference only for one call, which it keeps alive: the gate
// discards the dispatcher.
std::shared_ptr<Dispatcher> GetDispatcher();
// Drops the running dispatcher with every registration. A delivery that is under way ends with the callback being
// served.
void DiscardDispatcher();

}  // namespace quellbrook
