#pragma once

#include "demo/sample/DepartmentWriter.h"
#include "demo/sample/SampleDepartment.h"

namespace quellbrook::sample {

// Locations, incidents and items with their chains, 0 to 100 percent of them told to the progress.
void WriteSmallDepartment(DepartmentWriter& writer, const SampleProgress& progress);
void WriteLargeDepartment(DepartmentWriter& writer, int32_t items, const SampleProgress& progress);

}  // namespace quellbrook::sample
