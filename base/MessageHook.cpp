#include "base/MessageHook.h"

#include "base/Error.h"

namespace quellbrook {

namespace {

MessageHookFactory& Factory() {
    static MessageHookFactory factory;
    return factory;
}

}  // namespace

std::unique_ptr<MessageHook> MakeMessageHook() {
    if (!Factory()) Raise(ErrorNumber::NullObject, "MakeMessageHook");
    return Factory()();
}

void SetMessageHookFactory(MessageHookFactory factory) { Factory() = std::move(factory); }

}  // namespace quellbrook
