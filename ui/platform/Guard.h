#pragma once

#include "base/Error.h"

#include <string>
#include <utility>
#include <vector>

namespace quellbrook {

// No error leaves a handler that Qt calls: a virtual, a slot, a filter or a timer. Each that can throw
// runs inside Guard.

// Collects the unexpected errors of one handler and reports them at its end, so that one outage that many subscribers
// of an event notice is reported once, and no dialog opens before the change is complete. Guards inside the handler use
// the same scope. A handler that runs in a nested event loop, such as a dialog's, has its own.
class ReportScope {
public:
    ReportScope() noexcept;
    ~ReportScope();
    ReportScope(const ReportScope&) = delete;
    ReportScope& operator=(const ReportScope&) = delete;

    void Collect(const Error& error) { m_errors.push_back(error); }
    void NoteReported(const std::string& description) { m_reported.push_back(description); }

private:
    bool WasReported(const std::string& description) const;

    ReportScope* m_outer;
    int m_loopLevel;
    std::vector<Error> m_errors;
    std::vector<std::string> m_reported;
};

// Reports through the environment's reportUnexpected, inside a guard when the handler ends; while such a report is
// open, only to the log. Never throws.
void ReportUnexpected(const Error& error) noexcept;

// The current handler has shown a message with this description. Unexpected errors that have the same description, or
// only add what was attempted before it, are then not reported. Never throws.
void NoteReported(const std::string& description) noexcept;

template <typename Handler, typename Report>
void Guard(Handler&& handler, Report&& report) noexcept {
    const ReportScope scope;
    try {
        try {
            std::forward<Handler>(handler)();
        } catch (...) {
            const Error error = CurrentError();
            std::forward<Report>(report)(error);
            NoteReported(error.Description());
        }
    } catch (...) {
        ReportUnexpected(CurrentError());
    }
}

template <typename Handler>
void Guard(Handler&& handler) noexcept {
    const ReportScope scope;
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        ReportUnexpected(CurrentError());
    }
}

// Reports as ReportUnexpected does, but from the event loop, and an equal error only once. Never throws.
void ReportPainting(const Error& error) noexcept;

// For painting, during which no dialog may open. A report at once would repaint the window, which fails again.
template <typename Handler>
void GuardPainting(Handler&& handler) noexcept {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        ReportPainting(CurrentError());
    }
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
