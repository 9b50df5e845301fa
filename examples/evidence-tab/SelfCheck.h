#pragma once

#include <string>

class HostWindow;

// Logs in, checks one item in by the controls of the screen, and reads its custody row with the host's own SQL. Then
// prints labels, verifies all custody data, and logs in as another user. Throws std::runtime_error with what was
// expected.
void CheckOneItemIn(HostWindow& window, const std::string& databasePath);
