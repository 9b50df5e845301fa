#pragma once

#include "base/Error.h"

#include <utility>

class QWidget;

namespace quellbrook {

// Logs a failure in the host's own code and shows it to the user. Never throws.
void ReportHostFailure(QWidget* parent, const Error& error) noexcept;

// Runs a slot or event handler; reports its exceptions.
template <typename Handler>
void GuardHost(QWidget* parent, Handler&& handler) noexcept {
    try {
        std::forward<Handler>(handler)();
    } catch (...) {
        ReportHostFailure(parent, CurrentError());
    }
}

}  // namespace quellbrook
