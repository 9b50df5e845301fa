#pragma once

#include <functional>
#include <memory>

namespace quellbrook {

// A repeating or single-shot timer on the user interface thread. Made by the factory in use, so that tests can turn
// time by hand.
class Timer {
public:
    virtual ~Timer() = default;

    virtual void SetInterval(int milliseconds) = 0;
    virtual void SetSingleShot(bool singleShot) = 0;
    // Starting a running timer starts its interval anew.
    virtual void Start() = 0;
    virtual void Stop() = 0;
    virtual bool IsRunning() const = 0;

    // Called at each elapsed interval. An Error that leaves it is caught and reported by the timer.
    std::function<void()> Elapsed;
};

using TimerFactory = std::function<std::unique_ptr<Timer>()>;

// Error 91 while no factory is installed.
std::unique_ptr<Timer> MakeTimer();
void SetTimerFactory(TimerFactory factory);

}  // namespace quellbrook
