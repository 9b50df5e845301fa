#include "component/ClassRecord.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace quellbrook {

namespace {

namespace fs = std::filesystem;

constexpr char libraryVariable[] = "@QUELLBROOK_LIBRARY@";

// The absolute paths in the variable; relative ones are invalid.
std::vector<fs::path> FoldersIn(const char* variable) {
    const char* const value = std::getenv(variable);
    std::vector<fs::path> folders;
    std::istringstream list(value ? value : "");
    for (std::string folder; std::getline(list, folder, ':');)
        if (fs::path(folder).is_absolute()) folders.push_back(fs::path(folder).lexically_normal());
    return folders;
}

// A package of the system owns the other folders.
fs::path FolderOfMachine() {
    const fs::path usual = "/usr/local/share";
    const std::vector<fs::path> folders = FoldersIn("XDG_DATA_DIRS");
    const bool hasUsual = std::any_of(folders.begin(), folders.end(), [&](fs::path folder) {
        return (folder.has_filename() ? folder : folder.parent_path()) == usual;
    });
    return folders.empty() || hasUsual ? usual : folders.front();
}

fs::path FolderOfUser() {
    if (const auto folders = FoldersIn("XDG_DATA_HOME"); !folders.empty()) return folders.front();
    const auto home = FoldersIn("HOME");
    return home.empty() ? fs::path() : home.front() / ".local/share";
}

}  // namespace

std::string ClassRecordPath(bool ofMachine) {
    const fs::path folder = ofMachine ? FolderOfMachine() : FolderOfUser();
    return folder.empty() ? std::string() : (folder / "quellbrook/classes.ini").string();
}

void WriteClassRecord(const std::string& path, const std::string& library) {
    if (library.empty()) throw std::runtime_error("The library has no path.");
    if (path.empty()) throw std::runtime_error("There is no folder for the record.");
    if (library.find_first_of("\r\n") != std::string::npos) throw std::runtime_error("The path has a line break.");
    std::string text = ClassRecordTemplate();
    text.replace(text.find(libraryVariable), sizeof libraryVariable - 1, library);
    const fs::path folder = fs::path(path).parent_path();
    if (fs::create_directories(folder))
        fs::permissions(folder, fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                                    fs::perms::others_read | fs::perms::others_exec);
    const fs::path written = path + "." + std::to_string(getpid());
    try {
        std::ofstream file;
        file.exceptions(std::ios::failbit | std::ios::badbit);
        file.open(written, std::ios::binary);
        file << text;
        file.close();
        fs::permissions(
            written, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read | fs::perms::others_read);
        fs::rename(written, path);
    } catch (...) {
        std::error_code ignored;
        fs::remove(written, ignored);
        throw;
    }
}

void DeleteClassRecord(const std::string& path) {
    if (!path.empty()) fs::remove(path);
}

}  // namespace quellbrook
