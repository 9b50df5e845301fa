#pragma once

#include "base/Error.h"

#include <string>

namespace quellbrook {

class HostEnvironment {
public:
    // File name of the executable of this process.
    static std::string ProcessName();
    // The standard failure of this number, with the host's text for it.
    static Error Errors(int32_t number, const std::string& source);
};

}  // namespace quellbrook
