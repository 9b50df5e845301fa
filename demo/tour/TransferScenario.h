#pragma once

namespace quellbrook {

class TourPlayer;

// Adds the scenario of one transfer in the sample department: two pieces of property and a vehicle are signed out to
// the crime lab and signed in again.
void PlanTransferScenario(TourPlayer& player);

}  // namespace quellbrook
