#pragma once

#include <string>

class QString;

namespace quellbrook {

class MainWindow;

// Shows the window, plays one transfer in it and writes the pictures to the directory. Returns the exit code: 0, or 1
// if a step fails.
int PlayTour(MainWindow& window, const QString& directory, const std::string& databasePath);

}  // namespace quellbrook
