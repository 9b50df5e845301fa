#include "data/BarcodeText.h"

namespace quellbrook {

namespace {

constexpr char StartCharacter = '\x02', EndCharacter = '\x03';
constexpr size_t Digits = 10;

}  // namespace

std::string MakeBarcodeText(std::string_view typeLetter, int32_t id) {
    const std::string padded = std::string(Digits, '0') + std::to_string(id);
    return StartCharacter + std::string(typeLetter) + padded.substr(padded.size() - Digits) + EndCharacter;
}

}  // namespace quellbrook
