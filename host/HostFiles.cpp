#include "host/HostFiles.h"

#include "base/Error.h"
#include "base/Text.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quellbrook {

namespace {

[[noreturn]] void Refuse(const std::string& relativePath, const std::string& why) {
    Raise(ErrorNumber::General, "HostFiles.ReadFile", "The file '" + relativePath + "' " + why);
}

}  // namespace

std::filesystem::path DirectoryFiles::PathOf(const std::string& relativePath) const {
    const std::filesystem::path path = std::filesystem::path(Replace(relativePath, "\\", "/"));
    const bool climbs = std::find(path.begin(), path.end(), "..") != path.end();
    if (path.empty() || path.is_absolute() || climbs || relativePath.find('\0') != std::string::npos)
        Refuse(relativePath, "is not one of the host's.");
    return m_directory / path;
}

std::string DirectoryFiles::ReadFile(const std::string& relativePath) {
    const std::filesystem::path path = PathOf(relativePath);
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) Refuse(relativePath, "can't be found.");
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    if (file.peek() != std::ifstream::traits_type::eof()) bytes << file.rdbuf();
    if (!file.is_open() || file.bad() || bytes.bad()) Refuse(relativePath, "can't be read.");
    return std::move(bytes).str();
}

}  // namespace quellbrook
