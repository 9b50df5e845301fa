#pragma once

#include "base/Event.h"
#include "base/Timer.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <string>

namespace quellbrook {

struct LinearAnimationOptions {
    QPointer<QObject> Target;  // an animation ends when it is destroyed
    std::string PropertyName;  // of a numeric property
    float StartValue = 0;
    float FinalValue = 0;
    float Increment = 0;  // step per tick; its sign is ignored
};

// Moves one numeric property of an object in steps, one every 10 milliseconds.
class LinearAnimation {
public:
    LinearAnimation();
    LinearAnimation(const LinearAnimation&) = delete;
    LinearAnimation& operator=(const LinearAnimation&) = delete;

    // Sets the first value at once. A running animation continues with the new options. Error 5 without a target.
    void Start(const LinearAnimationOptions& options);
    bool InProgress() const { return m_inProgress; }

    Event<> Finished;

private:
    void Timer_Elapsed();
    void Step();
    void SetTargetProperty();
    void Stop();

    std::unique_ptr<Timer> m_timer;
    LinearAnimationOptions m_options;
    float m_currentValue = 0;
    bool m_isIncreasing = false;
    bool m_inProgress = false;
};

}  // namespace quellbrook
