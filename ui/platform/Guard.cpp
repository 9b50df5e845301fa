#include "ui/platform/Guard.h"

#include "base/Screen.h"
#include "host/ErrorLog.h"

namespace quellbrook {

namespace {

ErrorReport& InstalledReport() {
    static ErrorReport report;
    return report;
}

// While one report is open, as a dialog with a loop of its own, further errors are only logged: a failing paint handler
// would otherwise open dialogs without end.
bool reporting = false;

void LogError(const Error& error) { LogFailure(error.Source(), error.Description()); }

void ReportByDefault(const Error& error) {
    LogError(error);
    GetScreen().ShowMessage(error.Description(), MessageStyle::Critical, "Unexpected Error");
}

}  // namespace

void ReportUnexpected(const Error& error) {
    const bool nested = reporting;
    GuardSilently([&] {
        if (nested) return LogError(error);
        reporting = true;
        const ErrorReport report = InstalledReport();
        report ? report(error) : ReportByDefault(error);
    });
    reporting = nested;
}

void SetUnexpectedReport(ErrorReport report) { InstalledReport() = std::move(report); }

}  // namespace quellbrook
