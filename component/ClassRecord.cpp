#include "component/ClassRecord.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace quellbrook {

namespace {

namespace fs = std::filesystem;

constexpr char libraryVariable[] = "@QUELLBROOK_LIBRARY@";

// The value of the variable if it is an absolute path; relative ones are invalid.
fs::path FolderIn(const char* variable) {
    const char* const value = std::getenv(variable);
    const std::string text = value ? value : "";
    const fs::path folder = text.substr(0, text.find(':'));
    return folder.is_absolute() ? folder : fs::path();
}

fs::path DataFolder() {
    if (geteuid() == 0) {
        const fs::path folder = FolderIn("XDG_DATA_DIRS");
        return folder.empty() ? fs::path("/usr/local/share") : folder;
    }
    const fs::path folder = FolderIn("XDG_DATA_HOME");
    if (!folder.empty()) return folder;
    const fs::path home = FolderIn("HOME");
    return home.empty() ? home : home / ".local/share";
}

}  // namespace

std::string ClassRecordPath() {
    const fs::path folder = DataFolder();
    return folder.empty() ? std::string() : (folder / "quellbrook/classes.ini").string();
}

void WriteClassRecord(const std::string& path, const std::string& library) {
    if (path.empty()) throw std::runtime_error("There is no folder for the record.");
    if (library.find_first_of("\r\n") != std::string::npos) throw std::runtime_error("The path has a line break.");
    std::string text = ClassRecordTemplate();
    text.replace(text.find(libraryVariable), sizeof libraryVariable - 1, library);
    fs::create_directories(fs::path(path).parent_path());
    const fs::path written = path + "." + std::to_string(getpid());
    try {
        std::ofstream file;
        file.exceptions(std::ios::failbit | std::ios::badbit);
        file.open(written, std::ios::binary);
        file << text;
        file.close();
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
