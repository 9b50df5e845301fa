#include "ui/platform/Guard.h"

#include "base/Environment.h"

namespace quellbrook {

namespace {

// A report can run an event loop. Without this limit, a failing paint handler would then open dialogs endlessly.
bool reporting = false;

}  // namespace

void ReportUnexpected(const Error& error) noexcept {
    if (reporting) return LogFailure(error.Source(), error.Description());
    reporting = true;
    GuardSilently([&] {
        const auto report = GetEnvironment().reportUnexpected;
        report(error);
    });
    reporting = false;
}

}  // namespace quellbrook
