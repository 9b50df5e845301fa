#pragma once

namespace quellbrook {

class TourPlayer;

// The road of one transfer through the sample department: two pieces of property and a vehicle are signed out to the
// crime lab and signed in again.
void PlanTransferRoad(TourPlayer& player);

}  // namespace quellbrook
