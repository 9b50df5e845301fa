#pragma once

namespace quellbrook {

class TourPlayer;

// Chooses the entries of the explorer's menu, for items, below the rows and in the tree, except those of a sign-out, a
// sign-in and a disposal, which other scenarios choose. Begins on the page of an item.
void PlanMenuScenario(TourPlayer& player);

}  // namespace quellbrook
