#pragma once

#include "base/DateTime.h"
#include "host/HostServices.h"

#include <string>

namespace quellbrook {

// The date and the time in the host's formats, separated by a space: "11/20/2026 1:14 PM". For texts that are composed
// without a user interface: months are always numbers, and "AP" is always AM or PM.
std::string MomentText(const DateTime& moment, const HostFormats& formats);

}  // namespace quellbrook
