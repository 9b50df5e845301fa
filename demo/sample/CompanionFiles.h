#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace quellbrook::sample {

// A file that lies beside a department's database.
struct CompanionFile {
    std::string path;  // from the database's directory
    std::string bytes;
};

// Files below a directory. What was written goes again at destruction, unless it is kept.
class CompanionFiles {
public:
    explicit CompanionFiles(std::filesystem::path directory) : m_directory(std::move(directory)) {}
    ~CompanionFiles();
    CompanionFiles(const CompanionFiles&) = delete;
    CompanionFiles& operator=(const CompanionFiles&) = delete;

    // Writes those that do not stand there yet, each of them whole or not at all. Error 5 with a sentence.
    void Write(const std::vector<CompanionFile>& files);
    void Keep() { m_written.clear(); }

private:
    void MakeFolder(const std::filesystem::path& folder, std::error_code& failure);
    void WriteFile(const std::filesystem::path& path, const std::string& bytes, std::error_code& failure);

    std::filesystem::path m_directory;
    std::vector<std::filesystem::path> m_written;  // directories stand before what is in them
};

}  // namespace quellbrook::sample
