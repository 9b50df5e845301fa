#pragma once

namespace quellbrook {

class TourPlayer;

// Plays the life of one item on its own page: signed out, back in, moved, and disposed of. Begins in the explorer,
// after the item has been checked in by PlanIntakeScenario.
void PlanItemScenario(TourPlayer& player);

}  // namespace quellbrook
