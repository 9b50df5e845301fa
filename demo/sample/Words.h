#pragma once

#include "demo/sample/Random.h"
#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// Draws what describes a piece of property: category, description, quantity, value, maker.
void DescribeProperty(Random& random, Property& property);
// Draws tag, state, year, colour, make, model and category.
void DescribeVehicle(Random& random, Vehicle& vehicle);

}  // namespace quellbrook::sample
