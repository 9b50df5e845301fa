#pragma once

#include "demo/tour/TourStep.h"
#include "sql/Row.h"

#include <QString>

#include <vector>

namespace quellbrook {

// {"steps": [{"name", "picture", "held", "said"}], "custody": [one object a row, its columns by name]}. Error 5 when
// the file can't be written.
void WriteTourReport(const QString& path, const std::vector<TourStep>& steps, const RowList& custody);

}  // namespace quellbrook
