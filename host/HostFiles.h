#pragma once

#include <filesystem>
#include <string>

namespace quellbrook {

// The host's files, shared by all workstations. Names are relative, with backslashes between folders:
// "Files\Data\location.labl".
class HostFiles {
public:
    virtual ~HostFiles() = default;

    // The bytes of the file. Error 5 with a sentence that names the file.
    virtual std::string ReadFile(const std::string& relativePath) = 0;
};

// Files below a local or mounted directory. Names that lead out of the directory are refused.
class DirectoryFiles : public HostFiles {
public:
    explicit DirectoryFiles(std::filesystem::path directory) : m_directory(std::move(directory)) {}

    std::string ReadFile(const std::string& relativePath) override;
    std::filesystem::path PathOf(const std::string& relativePath) const;

private:
    std::filesystem::path m_directory;
};

}  // namespace quellbrook
