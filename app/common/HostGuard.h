#pragma once

#include "base/Error.h"

#include <utility>

class QWidget;

namespace quellbrook {

// Tells the user of a failure in the host's own code, and the error log. Never throws.
void ReportHostFailure(QWidget* parent, const Error& error) noexcept;

// Runs what the toolkit calls; no exception leaves it.
template <typename Handler>
void GuardHost(QWidget* parent, Handler&& handler) noexcept {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        ReportHostFailure(parent, CurrentError());
    }
}

}  // namespace quellbrook
