#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Reads a PNG file independently of our writer. Checksums are computed from their definition; anything unexpected
// throws.
struct ReadPng {
    uint32_t width = 0, height = 0;
    std::string palette;
    std::vector<uint8_t> dots;
    std::vector<std::string> chunks;

    explicit ReadPng(const std::string& file) : m_left(file) {
        Expect(Take(8) == "\x89PNG\r\n\x1A\n", "signature");
        std::string stream;
        while (!m_left.empty()) ReadChunk(stream);
        ReadDots(Inflated(stream));
    }

private:
    static void Expect(bool holds, const char* what) {
        if (!holds) throw std::runtime_error(std::string("bad PNG: ") + what);
    }

    static uint32_t Number(const std::string& bytes) {
        uint32_t number = 0;
        for (const char c : bytes) number = number << 8 | static_cast<uint8_t>(c);
        return number;
    }

    // Division of the bits by the polynomial, one after the other.
    static uint32_t Remainder(const std::string& bytes) {
        uint32_t remainder = 0xFFFFFFFFu;
        for (const char c : bytes) {
            for (int bit = 0; bit < 8; ++bit) {
                const uint32_t top = (remainder ^ static_cast<uint32_t>(static_cast<uint8_t>(c)) >> bit) & 1;
                remainder = remainder >> 1 ^ (top ? 0xEDB88320u : 0);
            }
        }
        return ~remainder;
    }

    std::string Take(size_t count) {
        Expect(m_left.size() >= count, "too short");
        std::string taken = m_left.substr(0, count);
        m_left.erase(0, count);
        return taken;
    }

    void ReadChunk(std::string& stream) {
        const uint32_t length = Number(Take(4));
        const std::string type = Take(4), content = Take(length);
        Expect(Number(Take(4)) == Remainder(type + content), "chunk check sum");
        chunks.push_back(type);
        if (type == "IHDR") {
            width = Number(content.substr(0, 4));
            height = Number(content.substr(4, 4));
            Expect(content.substr(8) == std::string("\x04\x03\0\0\0", 5), "kind of picture");
        } else if (type == "PLTE") {
            palette = content;
        } else if (type == "IDAT") {
            stream += content;
        }
    }

    static std::string Inflated(std::string stream) {
        Expect((static_cast<uint8_t>(stream[0]) * 256 + static_cast<uint8_t>(stream[1])) % 31 == 0 && stream[0] == 0x78,
               "stream header");
        stream.erase(0, 2);
        std::string bytes;
        for (bool isLast = false; !isLast;) {
            Expect(stream.size() >= 5 && static_cast<uint8_t>(stream[0]) <= 1, "stored block");
            isLast = stream[0] == 1;
            const auto at = [&stream](size_t place) { return static_cast<uint8_t>(stream[place]); };
            const uint32_t length = at(1) | at(2) << 8, complement = at(3) | at(4) << 8;
            Expect((length ^ complement) == 0xFFFF && stream.size() >= 5 + length, "length of a block");
            bytes += stream.substr(5, length);
            stream.erase(0, 5 + length);
        }
        uint64_t low = 1, high = 0;
        for (const char c : bytes) high += low += static_cast<uint8_t>(c);
        Expect(Number(stream) == (high % 65521) * 65536 + low % 65521, "stream check sum");
        return bytes;
    }

    void ReadDots(const std::string& lines) {
        const size_t length = 1 + (width + 1) / 2;
        Expect(lines.size() == length * height, "number of lines");
        for (size_t row = 0; row < height; ++row) {
            Expect(lines[row * length] == 0, "filter");
            for (size_t x = 0; x < width; ++x) {
                const auto pair = static_cast<uint8_t>(lines[row * length + 1 + x / 2]);
                dots.push_back(x % 2 == 0 ? pair >> 4 : pair & 15);
            }
        }
    }

    std::string m_left;
};

}  // namespace quellbrook::testing
