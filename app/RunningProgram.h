#pragma once

#include "app/Options.h"
#include "app/records/SingleInstance.h"

#include <memory>

namespace quellbrook {

class MainWindow;

// Sends the record of the options to the program that has the same department open. Returns false if there is no record
// or no such program.
bool OpenInRunningProgram(const Options& options, const std::string& dataDirectory);

// Opens records in the window that later starts of the program send for this database.
std::unique_ptr<InstanceServer> ListenForRecords(const std::string& databasePath, MainWindow& window);

}  // namespace quellbrook
