#pragma once

namespace quellbrook {

class TourPlayer;

// Adds the scenario of the department whose locations have no category: logs in, goes through the pages of the wizard
// by mouse and keyboard, and reads every location back from the database.
void PlanCategorizationScenario(TourPlayer& player);

}  // namespace quellbrook
