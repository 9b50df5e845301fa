#pragma once

#include <string>

class QString;

namespace quellbrook {

class MainWindow;
class Termination;

// Shows the window, plays one transfer in it and writes the pictures to the directory. Returns the exit code: 0; 1 if
// a step fails; 143 after a signal.
int PlayTour(MainWindow& window, const QString& directory, const std::string& databasePath,
             const Termination& termination);

}  // namespace quellbrook
