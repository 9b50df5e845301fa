#include "ui/platform/Guard.h"

#include "base/Environment.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <set>
#include <string_view>

namespace quellbrook {

namespace {

// A report can run an event loop. Without this limit, a failing paint handler would then open dialogs endlessly.
bool reporting = false;

ReportScope* current = nullptr;  // of the innermost handler

// Callers add what they attempted in front of the description of a failure.
bool HaveSameCause(std::string_view one, std::string_view other) {
    return one.ends_with(other) || other.ends_with(one);
}

void Report(const Error& error) noexcept {
    if (reporting) return LogFailure(error.Source(), error.Description());
    reporting = true;
    GuardSilently([&] {
        const auto report = GetEnvironment().reportUnexpected;
        report(error);
    });
    reporting = false;
}

}  // namespace

ReportScope::ReportScope() noexcept : m_outer(current), m_loopLevel(QThread::currentThread()->loopLevel()) {
    if (!m_outer || m_outer->m_loopLevel != m_loopLevel) current = this;
}

ReportScope::~ReportScope() {
    if (current != this) return;
    current = m_outer;
    for (const Error& error : m_errors) {
        if (WasReported(error.Description())) continue;
        GuardSilently([&] { NoteReported(error.Description()); });
        Report(error);
    }
}

bool ReportScope::WasReported(const std::string& description) const {
    return std::any_of(m_reported.begin(), m_reported.end(),
                       [&](const std::string& reported) { return HaveSameCause(reported, description); });
}

void ReportUnexpected(const Error& error) noexcept {
    if (reporting || !current) return Report(error);
    GuardSilently([&] { current->Collect(error); });
}

void NoteReported(const std::string& description) noexcept {
    if (current) GuardSilently([&] { current->NoteReported(description); });
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
