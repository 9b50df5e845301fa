#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// Registers the program for record addresses on this user's desktop: writes a desktop entry into the user's data
// directory ($XDG_DATA_HOME) and runs the desktop tools that are installed. The desktop passes the arguments before the
// address. Returns a one-line summary. Error 5 with a sentence if the entry cannot be written or a tool fails.
std::string RegisterRecordScheme(const std::string& program, const std::vector<std::string>& arguments);

// The text of the desktop entry. Error 5 if the program or an argument has a control character.
std::string DesktopEntry(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace quellbrook
