#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// Lets the desktop of this user open addresses of records with the program: writes its entry into the user's data
// directory ($XDG_DATA_HOME) and tells the desktop's own tools of it, those that are installed. The arguments stand
// before the address whenever the desktop starts the program. Returns what was done, in one line; Error 5 with a
// sentence when the entry can't be written or a tool fails.
std::string RegisterRecordScheme(const std::string& program, const std::vector<std::string>& arguments);

// The entry's text. Error 5 for a program or an argument that an entry can't name: one with a control character.
std::string DesktopEntry(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace quellbrook
