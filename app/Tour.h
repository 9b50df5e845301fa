#pragma once

class QString;

namespace quellbrook {

class MainWindow;
struct Department;
class Termination;

// The work of a department, or the wizard that categorizes locations.
enum class TourScenario { Department, Categorization };

// Shows the window, plays the scenario in it and writes the pictures to the directory. Returns the exit code: 0; 1 if
// a step fails; 143 after a signal.
int PlayTour(MainWindow& window, const QString& directory, const Department& department, const Termination& termination,
             TourScenario scenario = TourScenario::Department);

}  // namespace quellbrook
