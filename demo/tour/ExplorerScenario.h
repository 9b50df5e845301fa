#pragma once

namespace quellbrook {

class TourPlayer;

// Adds the first scenario: logs in, searches, leaves the results by a scan, and creates, renames, moves and deletes a
// location.
void PlanExplorerScenario(TourPlayer& player);

}  // namespace quellbrook
