#pragma once

#include <functional>
#include <memory>

namespace quellbrook {

// A repeating or single-shot timer on the user interface thread.
class Timer {
public:
    virtual ~Timer() = default;

    virtual void SetInterval(int milliseconds) = 0;
    virtual void SetSingleShot(bool singleShot) = 0;
    // Restarts the interval of a running timer.
    virtual void Start() = 0;
    virtual void Stop() = 0;
    virtual bool IsRunning() const = 0;

    // Called after each interval. The timer catches and reports an Error from it.
    std::function<void()> Elapsed;
};

// Creates a timer from the environment. Error 91 if the environment provides none.
std::unique_ptr<Timer> MakeTimer();

}  // namespace quellbrook
