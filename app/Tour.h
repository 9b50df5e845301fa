#pragma once

#include <string>

class QString;

namespace quellbrook {

class MainWindow;
class Termination;

enum class TourRoad { Transfer, Categorization };

// Shows the window, plays this road in it and writes the pictures to the directory. Returns the exit code: 0; 1 if
// a step fails; 143 after a signal.
int PlayTour(MainWindow& window, const QString& directory, const std::string& databasePath,
             const Termination& termination, TourRoad road = TourRoad::Transfer);

}  // namespace quellbrook
