#pragma once

#include "demo/sample/Random.h"
#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// Picks category, description, quantity, value and maker of a piece of property.
void DescribeProperty(Random& random, Property& property);
// Picks tag, state, year, color, make, model and category of a vehicle.
void DescribeVehicle(Random& random, Vehicle& vehicle);

}  // namespace quellbrook::sample
