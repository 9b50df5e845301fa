#pragma once

#include <functional>

namespace quellbrook::bench {

// The processor time of this thread, in microseconds. Other programs on the machine do not count.
double MicrosecondsOf(const std::function<void()>& operation);

// Constant work: Qt paints a text many times. Its time indicates the current speed of the machine. On a shared machine,
// the speed can change by a factor of two during the run.
void PaintYardstick();

// A median of processor times, and that of the constant work done before and after each of them.
struct TimeBesideYardstick {
    double time;       // microseconds
    double yardstick;  // microseconds

    // A bar for the time that was set on a machine of this speed, in microseconds.
    double Bar(double microseconds) const;
};
// Runs `prepare`, untimed, before each operation.
TimeBesideYardstick MeasureBesideYardstick(const std::function<void()>& prepare, const std::function<void()>& operation,
                                           int turns);

}  // namespace quellbrook::bench
