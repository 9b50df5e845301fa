#pragma once

#include "demo/sample/CompanionFiles.h"

namespace quellbrook::sample {

// The templates of the evidence and the location label, 4 x 2 inches, from the folder labels.
std::vector<CompanionFile> LabelTemplates();

}  // namespace quellbrook::sample
