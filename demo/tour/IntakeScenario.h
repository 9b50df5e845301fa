#pragma once

namespace quellbrook {

class TourPlayer;

// Adds the scenario of new evidence in the sample department: the items of one incident are checked in, and two of them
// are disposed of. Begins with an open item.
void PlanIntakeScenario(TourPlayer& player);

}  // namespace quellbrook
