#include "host/ThumbnailReader.h"

#include "base/Error.h"

#include <array>
#include <fstream>
#include <string_view>

namespace quellbrook {

namespace {

using namespace std::string_view_literals;

// The bytes with which picture files begin: PNG, JPEG, GIF, BMP, and the RIFF container of WebP.
constexpr std::array Beginnings = {"\x89PNG\r\n\x1a\n"sv, "\xFF\xD8\xFF"sv, "GIF8"sv, "BM"sv, "RIFF"sv};

bool IsPicture(std::istream& file) {
    std::array<char, 8> first{};
    file.read(first.data(), first.size());
    const std::string_view bytes(first.data(), static_cast<size_t>(file.gcount()));
    for (const std::string_view beginning : Beginnings)
        if (bytes.substr(0, beginning.size()) == beginning) return true;
    return false;
}

[[noreturn]] void Refuse(const std::string& path, const std::string& why) {
    Raise(ErrorNumber::General, "ThumbnailReader.Read", "The attachment '" + path + "' " + why);
}

}  // namespace

std::string PictureAttachments::Read(const std::string& path) {
    const std::filesystem::path full = m_directory / path;
    std::error_code failure;
    if (path.empty() || !std::filesystem::is_regular_file(full, failure)) Refuse(path, "can't be found.");
    std::ifstream file(full, std::ios::binary);
    if (!file) Refuse(path, "can't be read.");
    if (!IsPicture(file)) Refuse(path, "is not a picture.");
    return full.string();
}

}  // namespace quellbrook
