#pragma once

#include "base/Error.h"

#include <functional>
#include <utility>

namespace quellbrook {

// No error leaves a handler that Qt calls: a virtual, a slot, a filter or a timer. Each that can throw
// runs inside Guard.

// Handles an error that would otherwise leave a guarded function.
using ErrorReport = std::function<void(const Error&)>;

// Reports through the environment's reportUnexpected; while such a report is open, only to the log. Never throws.
void ReportUnexpected(const Error& error) noexcept;

template <typename Handler, typename Report>
void Guard(Handler&& handler, Report&& report) noexcept {
    try {
        try {
            std::forward<Handler>(handler)();
        } catch (...) {
            std::forward<Report>(report)(CurrentError());
        }
    } catch (...) {
        ReportUnexpected(CurrentError());
    }
}

template <typename Handler>
void Guard(Handler&& handler) noexcept {
    Guard(std::forward<Handler>(handler), [](const Error& error) { ReportUnexpected(error); });
}

// Reports as ReportUnexpected does, but from the event loop, and an equal error only once. Never throws.
void ReportPainting(const Error& error) noexcept;

// For painting, during which no dialog may open. A report at once would repaint the window, which fails again.
template <typename Handler>
void GuardPainting(Handler&& handler) noexcept {
    Guard(std::forward<Handler>(handler), [](const Error& error) { ReportPainting(error); });
}

// For handlers whose errors are ignored by design: layout, property persistence, focus.
template <typename Handler>
void GuardSilently(Handler&& handler) noexcept {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
    }
}

}  // namespace quellbrook
