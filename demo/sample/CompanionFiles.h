#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quellbrook::sample {

// A file beside a department's database.
struct CompanionFile {
    std::string path;  // relative to the database's folder
    std::string bytes;
};

// Writes files below a folder. Its destructor deletes these files unless Keep was called.
class CompanionFiles {
public:
    explicit CompanionFiles(std::filesystem::path directory) : m_directory(std::move(directory)) {}
    ~CompanionFiles();
    CompanionFiles(const CompanionFiles&) = delete;
    CompanionFiles& operator=(const CompanionFiles&) = delete;

    // Writes the files that do not exist yet, each completely or not at all. Error 5 with a sentence.
    void Write(const std::vector<CompanionFile>& files);
    void Keep() { m_written.clear(); }

private:
    void MakeFolder(const std::filesystem::path& folder, std::error_code& failure);
    void WriteFile(const std::filesystem::path& path, const std::string& bytes, std::error_code& failure);

    std::filesystem::path m_directory;
    std::vector<std::filesystem::path> m_written;  // directories precede their contents
};

}  // namespace quellbrook::sample
