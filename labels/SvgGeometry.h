#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook::svg {

// The part of SVG that label fields need. Names are compared without their namespace prefix.

// x' = a x + c y + e, y' = b x + d y + f.
struct Transform {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    Transform Then(const Transform& outer) const;  // this one first
    // The number of clockwise quarter turns, 0 to 3; nothing if it is slanted, mirrored or stretched unevenly.
    std::optional<int> QuarterTurns() const;
    double Scale() const;  // of lengths; valid if QuarterTurns has a value
};

// The value of a transform attribute; nothing if it is invalid.
std::optional<Transform> ParseTransform(std::string_view text);

// A length in pixels of 1/96 inch; units px, pt, pc, mm, cm, in, none for pixels. Nothing for anything else.
std::optional<double> ParseLength(std::string_view text);

// A finite number; surrounding blanks are allowed.
std::optional<double> ParseNumber(std::string_view text);

// The numbers of a list separated by blanks and commas; nothing if one is invalid.
std::optional<std::vector<double>> ParseNumbers(std::string_view text);

// Removes leading and trailing blanks, tabs and line ends.
std::string_view TrimBlanks(std::string_view text);

// "rect" for svg:rect.
std::string_view LocalName(const pugi::xml_node& element);

}  // namespace quellbrook::svg
