#pragma once

#include "tests/support/ScratchFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>

namespace quellbrook::testing {

// A scratch folder with programs in its folder "bin", and environment variables that are restored at destruction.
class ScratchSystem {
public:
    ScratchSystem() { std::filesystem::create_directories(In("bin")); }
    ~ScratchSystem() {
        for (const auto& [name, value] : m_before)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }
    ScratchSystem(const ScratchSystem&) = delete;
    ScratchSystem& operator=(const ScratchSystem&) = delete;

    const std::string& Path() const { return m_folder.Path(); }
    std::string In(const std::string& name) const { return m_folder.In(name); }
    // Empty if there is no such file.
    std::string Content(const std::string& name) const {
        std::ifstream file(In(name));
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    void Set(const std::string& variable, const std::string& value) {
        const char* before = std::getenv(variable.c_str());
        m_before.try_emplace(variable, before ? std::optional<std::string>(before) : std::nullopt);
        setenv(variable.c_str(), value.c_str(), 1);
    }
    // Makes a program of these shell lines.
    void Install(const std::string& program, const std::string& lines) const {
        const std::string path = In("bin/" + program);
        std::ofstream(path) << "#!/bin/sh\n" << lines << "\n";
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }

private:
    ScratchFolder m_folder;
    std::map<std::string, std::optional<std::string>> m_before;
};

}  // namespace quellbrook::testing
