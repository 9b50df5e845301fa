#include "demo/sample/CompanionFiles.h"

#include "base/Error.h"

#include <fstream>

#include <unistd.h>

namespace quellbrook::sample {

CompanionFiles::~CompanionFiles() {
    std::error_code ignored;
    for (auto path = m_written.rbegin(); path != m_written.rend(); ++path) std::filesystem::remove(*path, ignored);
}

void CompanionFiles::Write(const std::vector<CompanionFile>& files) {
    for (const CompanionFile& file : files) {
        const std::filesystem::path path = m_directory / file.path;
        std::error_code failure;
        if (std::filesystem::exists(path, failure)) continue;
        MakeFolder(path.parent_path(), failure);
        if (!failure) WriteFile(path, file.bytes, failure);
        if (failure) {
            Raise(ErrorNumber::General, "CompanionFiles.Write",
                  "The file '" + path.string() + "' can't be written: " + failure.message() + ".");
        }
    }
}

void CompanionFiles::MakeFolder(const std::filesystem::path& folder, std::error_code& failure) {
    if (folder.empty() || std::filesystem::is_directory(folder, failure)) return;
    failure.clear();
    MakeFolder(folder.parent_path(), failure);
    if (!failure && std::filesystem::create_directory(folder, failure)) m_written.push_back(folder);
}

void CompanionFiles::WriteFile(const std::filesystem::path& path, const std::string& bytes, std::error_code& failure) {
    const std::filesystem::path unfinished = path.string() + "." + std::to_string(getpid());
    std::ofstream stream(unfinished, std::ios::binary);
    stream << bytes;
    stream.close();
    if (!stream) failure = std::make_error_code(std::errc::io_error);
    if (!failure) std::filesystem::rename(unfinished, path, failure);
    if (!failure) return m_written.push_back(path);
    std::error_code ignored;
    std::filesystem::remove(unfinished, ignored);
}

}  // namespace quellbrook::sample
