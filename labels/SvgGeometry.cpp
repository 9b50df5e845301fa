#include "labels/SvgGeometry.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

namespace quellbrook::svg {

namespace {

constexpr std::string_view Blanks = " \t\r\n\f";

struct Unit {
    std::string_view name;
    double pixels;
};

constexpr std::array Units = {Unit{"px", 1.0},       Unit{"pt", 96 / 72.0}, Unit{"pc", 16.0},
                              Unit{"mm", 96 / 25.4}, Unit{"cm", 96 / 2.54}, Unit{"in", 96.0}};

// Removes the number at the start of the text and returns it.
std::optional<double> TakeNumber(std::string_view& text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc() || !std::isfinite(number)) return std::nullopt;
    text.remove_prefix(static_cast<size_t>(end - text.data()));
    return number;
}

Transform Rotation(double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
}

Transform Translation(double x, double y) { return {1, 0, 0, 1, x, y}; }

std::optional<Transform> MakeTransform(std::string_view name, const std::vector<double>& v) {
    const size_t count = v.size();
    if (name == "matrix" && count == 6) return Transform{v[0], v[1], v[2], v[3], v[4], v[5]};
    if (name == "translate" && (count == 1 || count == 2)) return Translation(v[0], count == 2 ? v[1] : 0);
    if (name == "scale" && (count == 1 || count == 2)) return Transform{v[0], 0, 0, count == 2 ? v[1] : v[0], 0, 0};
    if (name == "rotate" && count == 1) return Rotation(v[0]);
    if (name == "rotate" && count == 3)
        return Translation(-v[1], -v[2]).Then(Rotation(v[0])).Then(Translation(v[1], v[2]));
    const auto slope = [&] { return std::tan(v[0] * std::numbers::pi / 180); };
    if (name == "skewX" && count == 1) return Transform{1, 0, slope(), 1, 0, 0};
    if (name == "skewY" && count == 1) return Transform{1, slope(), 0, 1, 0, 0};
    return std::nullopt;
}

}  // namespace

Transform Transform::Then(const Transform& outer) const {
    return {outer.a * a + outer.c * b, outer.b * a + outer.d * b,           outer.a * c + outer.c * d,
            outer.b * c + outer.d * d, outer.a * e + outer.c * f + outer.e, outer.b * e + outer.d * f + outer.f};
}

double Transform::Scale() const { return std::hypot(a, b); }

std::optional<int> Transform::QuarterTurns() const {
    const double scale = Scale();
    const double slack = scale * 1e-3;
    const auto near = [slack](double x, double y) { return std::abs(x - y) <= slack; };
    if (!(scale > 0) || !std::isfinite(scale)) return std::nullopt;
    for (int turns = 0; turns < 4; ++turns) {
        const double cosine = turns == 0 ? scale : turns == 2 ? -scale : 0;
        const double sine = turns == 1 ? scale : turns == 3 ? -scale : 0;
        if (near(a, cosine) && near(b, sine) && near(c, -sine) && near(d, cosine)) return turns;
    }
    return std::nullopt;
}

std::optional<Transform> ParseTransform(std::string_view text) {
    Transform result;
    for (text = TrimBlanks(text); !text.empty();) {
        const size_t open = text.find('('), close = text.find(')');
        if (open == std::string_view::npos || close == std::string_view::npos || close < open) return std::nullopt;
        const auto numbers = ParseNumbers(text.substr(open + 1, close - open - 1));
        const auto next = numbers ? MakeTransform(TrimBlanks(text.substr(0, open)), *numbers) : std::nullopt;
        if (!next) return std::nullopt;
        result = next->Then(result);
        text.remove_prefix(close + 1);
        text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\f,"), text.size()));
    }
    return result;
}

std::optional<double> ParseLength(std::string_view text) {
    text = TrimBlanks(text);
    const auto number = TakeNumber(text);
    if (!number || text.empty()) return number;
    for (const Unit& unit : Units)
        if (unit.name == text) return *number * unit.pixels;
    return std::nullopt;
}

std::optional<double> ParseNumber(std::string_view text) {
    text = TrimBlanks(text);
    const auto number = TakeNumber(text);
    return text.empty() ? number : std::nullopt;
}

std::optional<std::vector<double>> ParseNumbers(std::string_view text) {
    std::vector<double> numbers;
    constexpr std::string_view separators = " \t\r\n\f,";
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
        if (text.empty()) return numbers;
        const auto number = TakeNumber(text);
        if (!number) return std::nullopt;
        numbers.push_back(*number);
    }
}

std::string_view TrimBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string_view LocalName(const pugi::xml_node& element) {
    const std::string_view name = element.name();
    const size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

}  // namespace quellbrook::svg
