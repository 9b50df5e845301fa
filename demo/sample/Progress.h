#pragma once

#include "demo/sample/SampleDepartment.h"

namespace quellbrook::sample {

// The progress of one part, whose 0 to 100 percent map to `begin` to `end` of the whole.
inline SampleProgress PartOf(const SampleProgress& whole, int begin, int end) {
    if (!whole) return {};
    return [whole, begin, end](int percent) { whole(begin + (end - begin) * percent / 100); };
}

}  // namespace quellbrook::sample
