#pragma once

#include "demo/tour/TourStep.h"
#include "sql/Row.h"

#include <QString>

#include <vector>

namespace quellbrook {

// Writes {"steps": [{"name", "picture", "held", "said"}], "custody": [one object per row, by column name]}. Error 5 if
// the file cannot be written.
void WriteTourReport(const QString& path, const std::vector<TourStep>& steps, const RowList& custody);

}  // namespace quellbrook
