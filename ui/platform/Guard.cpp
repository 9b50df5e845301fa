#include "ui/platform/Guard.h"

#include "base/Environment.h"

#include <QCoreApplication>

#include <set>
#include <string>

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

void ReportPainting(const Error& error) noexcept {
    GuardSilently([&] {
        static std::set<std::string> reported;
        if (!reported.insert(error.Source() + "\n" + error.Description()).second) return;
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [error] { ReportUnexpected(error); }, Qt::QueuedConnection);
    });
}

}  // namespace quellbrook
