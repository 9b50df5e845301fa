#pragma once

#include <cstdint>

namespace quellbrook {

// Shows the user how many labels were sent, and to which printer or folder.
void ReportPrintedLabels(int32_t count);

}  // namespace quellbrook
