#include "core/Dispatcher.h"

#include "base/Error.h"
#include "base/Screen.h"

#include <cstdint>
#include <utility>

namespace quellbrook {

namespace {

constexpr const char* TypeName = "Dispatcher";

std::shared_ptr<Dispatcher>& Running() {
    static std::shared_ptr<Dispatcher> dispatcher;
    return dispatcher;
}

[[noreturn]] void RefuseReentry() {
    const std::string text = std::string("Cannot call ") + TypeName +
                             ".Dispatch while another call to Dispatch is in progress. [Forms.Count = " +
                             std::to_string(GetScreen().OpenFormCount()) + "]";
    GetScreen().ShowPlainMessage(text, "Unexpected Error");
    Raise(ErrorNumber::General, TypeName, text);
}

}  // namespace

std::string Dispatcher::KeyOf(const DispatcherCallback* callback) {
    return "K" + std::to_string(reinterpret_cast<uintptr_t>(callback));
}

void Dispatcher::Register(std::shared_ptr<DispatcherCallback> callback) {
    if (!callback) Raise(ErrorNumber::General, std::string(TypeName) + ".Register", "callback is Nothing");
    const std::string key = KeyOf(callback.get());
    m_callbacks.Add(std::move(callback), key);
}

void Dispatcher::Unregister(const DispatcherCallback* callback) {
    const std::string key = KeyOf(callback);
    if (m_callbacks.Contains(key)) m_callbacks.Remove(key);
}

void Dispatcher::UnregisterAll() { m_callbacks.Clear(); }

void Dispatcher::Dispatch(const Action& action) {
    std::string serving = "Nothing";
    try {
        if (m_isDispatching) RefuseReentry();
        m_isDispatching = true;
        for (const auto& callback : m_callbacks.Values()) {
            if (!m_callbacks.Contains(KeyOf(callback.get()))) continue;
            serving = callback->CallbackTypeName();
            callback->Handle(action);
        }
        m_isDispatching = false;
    } catch (...) {
        m_isDispatching = false;
        const Error error = CurrentError();
        Raise(error.Number(), TypeName, "Error executing callback '" + serving + "': " + error.Description());
    }
}

std::shared_ptr<Dispatcher> GetDispatcher() {
    if (!Running()) Running() = std::make_shared<Dispatcher>();
    return Running();
}

void DiscardDispatcher() {
    if (const auto discarded = std::exchange(Running(), nullptr)) discarded->UnregisterAll();
}

}  // namespace quellbrook
