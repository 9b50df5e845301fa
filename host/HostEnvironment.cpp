#include "host/HostEnvironment.h"

#include <filesystem>
#include <system_error>

namespace quellbrook {

std::string HostEnvironment::ProcessName() {
    std::error_code failure;
    std::string name = std::filesystem::read_symlink("/proc/self/exe", failure).filename().string();
    constexpr std::string_view replacedMark = " (deleted)";  // appended by the kernel after the file was replaced
    if (name.ends_with(replacedMark)) name.resize(name.size() - replacedMark.size());
    return name;
}

Error HostEnvironment::Errors(int32_t number, const std::string& source) {
    return Error(number, source, ErrorText(number));
}

}  // namespace quellbrook
