#pragma once

#include <filesystem>
#include <string>

namespace quellbrook {

// The files that the host keeps for all its workstations. A name is relative, its folders divided by backslashes:
// "Files\Data\location.labl".
class HostFiles {
public:
    virtual ~HostFiles() = default;

    // The bytes of the file. Error 5 with a sentence that names it.
    virtual std::string ReadFile(const std::string& relativePath) = 0;
};

// Files below a directory of this machine, or of one that it has mounted. A name that leads out of the directory is
// refused.
class DirectoryFiles : public HostFiles {
public:
    explicit DirectoryFiles(std::filesystem::path directory) : m_directory(std::move(directory)) {}

    std::string ReadFile(const std::string& relativePath) override;
    std::filesystem::path PathOf(const std::string& relativePath) const;

private:
    std::filesystem::path m_directory;
};

}  // namespace quellbrook
