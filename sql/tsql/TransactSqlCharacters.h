#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace quellbrook::sql {

// What a character begins or belongs to, outside of literals.
enum class CharacterClass : uint8_t { Odd, Blank, Letter, Wide, Digit, Quote, Mark, Sign };

namespace detail {

constexpr std::array<CharacterClass, 256> MakeCharacterClasses() {
    std::array<CharacterClass, 256> classes{};
    const auto set = [&](std::string_view characters, CharacterClass to) {
        for (const char c : characters) classes[static_cast<unsigned char>(c)] = to;
    };
    set(" \t\r\n", CharacterClass::Blank);
    set("_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", CharacterClass::Letter);
    set("0123456789", CharacterClass::Digit);
    set("'", CharacterClass::Quote);
    set("#@", CharacterClass::Mark);
    set("()=<>+-*/%,.;", CharacterClass::Sign);
    for (size_t c = 0x80; c < classes.size(); ++c) classes[c] = CharacterClass::Wide;
    return classes;
}

inline constexpr std::array<CharacterClass, 256> characterClasses = MakeCharacterClasses();

}  // namespace detail

inline CharacterClass ClassOf(char c) { return detail::characterClasses[static_cast<unsigned char>(c)]; }

}  // namespace quellbrook::sql
