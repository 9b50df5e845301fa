#pragma once

#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>

namespace quellbrook::testing {

// A new folder, deleted with its contents at destruction.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "quellbrook-test-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("No scratch folder can be made.");
        m_path = name;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& Path() const { return m_path; }
    std::string In(const std::string& name) const { return m_path + "/" + name; }
    std::ptrdiff_t CountOfEntries() const {
        const auto entries = std::filesystem::directory_iterator(m_path);
        return std::distance(begin(entries), end(entries));
    }

private:
    std::string m_path;
};

}  // namespace quellbrook::testing
