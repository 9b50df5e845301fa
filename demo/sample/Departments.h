#pragma once

#include "demo/sample/DepartmentWriter.h"
#include "demo/sample/SampleDepartment.h"

namespace quellbrook::sample {

// Write locations, incidents and items with their chains, and report progress from 0 to 100 percent.
void WriteSmallDepartment(DepartmentWriter& writer, const SampleProgress& progress);
void WriteUncategorizedDepartment(DepartmentWriter& writer, const SampleProgress& progress);
void WriteLargeDepartment(DepartmentWriter& writer, int32_t items, const SampleProgress& progress);

}  // namespace quellbrook::sample
