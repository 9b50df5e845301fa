#include "demo/sample/Png.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quellbrook::sample {

namespace {

constexpr size_t longestStoredBlock = 65'535;

std::array<uint32_t, 256> MakeCrcTable() {
    std::array<uint32_t, 256> table{};
    for (uint32_t i = 0; i < table.size(); ++i) {
        uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) value = value & 1 ? value >> 1 ^ 0xEDB88320u : value >> 1;
        table[i] = value;
    }
    return table;
}

uint32_t Crc32(std::string_view bytes) {
    static const std::array<uint32_t, 256> table = MakeCrcTable();
    uint32_t crc = 0xFFFFFFFFu;
    for (const char c : bytes) crc = table[(crc ^ static_cast<uint8_t>(c)) & 0xFF] ^ crc >> 8;
    return ~crc;
}

uint32_t Adler32(std::string_view bytes) {
    uint32_t low = 1, high = 0;
    for (const char c : bytes) {
        low = (low + static_cast<uint8_t>(c)) % 65'521;
        high = (high + low) % 65'521;
    }
    return high << 16 | low;
}

void AppendNumber(std::string& bytes, uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
}

void AppendChunk(std::string& file, std::string_view type, std::string_view content) {
    AppendNumber(file, static_cast<uint32_t>(content.size()));
    std::string checked(type);
    checked += content;
    file += checked;
    AppendNumber(file, Crc32(checked));
}

// A deflate stream of stored blocks.
std::string Stored(std::string_view bytes) {
    std::string stream = "\x78\x01";
    std::string_view left = bytes;
    do {
        const size_t length = std::min(left.size(), longestStoredBlock);
        stream += static_cast<char>(length == left.size() ? 1 : 0);
        for (const size_t number : {length, ~length}) {
            stream += static_cast<char>(number & 0xFF);
            stream += static_cast<char>(number >> 8 & 0xFF);
        }
        stream += left.substr(0, length);
        left.remove_prefix(length);
    } while (!left.empty());
    AppendNumber(stream, Adler32(bytes));
    return stream;
}

std::string Scanlines(const Picture& picture) {
    std::string lines;
    const auto width = static_cast<size_t>(picture.width);
    for (size_t row = 0; row < static_cast<size_t>(picture.height); ++row) {
        lines += '\0';  // no filter
        for (size_t x = 0; x < width; x += 2) {
            const size_t position = row * width + x;
            const int right = x + 1 < width ? picture.dots[position + 1] : 0;
            lines += static_cast<char>(picture.dots[position] << 4 | right);
        }
    }
    return lines;
}

}  // namespace

std::string EncodePng(const Picture& picture) {
    std::string header;
    AppendNumber(header, static_cast<uint32_t>(picture.width));
    AppendNumber(header, static_cast<uint32_t>(picture.height));
    header += {4, 3, 0, 0, 0};  // bits per dot, indexed colors, deflate, filter method 0, not interlaced
    std::string palette;
    for (const Color& color : picture.colors) {
        for (const uint8_t part : {color.red, color.green, color.blue}) palette += static_cast<char>(part);
    }
    std::string file = "\x89PNG\r\n\x1A\n";
    AppendChunk(file, "IHDR", header);
    AppendChunk(file, "PLTE", palette);
    AppendChunk(file, "IDAT", Stored(Scanlines(picture)));
    AppendChunk(file, "IEND", "");
    return file;
}

}  // namespace quellbrook::sample
