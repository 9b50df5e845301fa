#include "base/Timer.h"

#include "base/Error.h"

namespace quellbrook {

namespace {

TimerFactory& Factory() {
    static TimerFactory factory;
    return factory;
}

}  // namespace

std::unique_ptr<Timer> MakeTimer() {
    if (!Factory()) Raise(ErrorNumber::NullObject, "MakeTimer");
    return Factory()();
}

void SetTimerFactory(TimerFactory factory) { Factory() = std::move(factory); }

}  // namespace quellbrook
