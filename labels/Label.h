#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// A rectangle on a label, in millimeters from the label's top left corner.
struct LabelBox {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const LabelBox&) const = default;
};

// The position of a field. The box of a rotated field is its box on the label; the text runs along it after the given
// number of clockwise quarter turns.
struct LabelArea {
    LabelBox box;
    int quarterTurns = 0;  // 0 to 3

    bool operator==(const LabelArea&) const = default;
};

enum class LabelAnchor { Start, Middle, End };

// A text with its position and font.
struct LabelText {
    std::string text;
    LabelArea area;
    std::string family;  // of the font; empty for the system default
    double size = 0;     // of the font, millimeters
    int weight = 400;    // 100 to 900
    bool italic = false;
    LabelAnchor anchor = LabelAnchor::Start;
    std::string color = "black";
};

// A symbol that fills its box, with its quiet zones and its readable text below.
struct LabelBarcode {
    std::string text;
    LabelArea area;
};

// A label ready for printing: a drawing and the fields over it.
struct FilledLabel {
    double width = 0;  // millimeters
    double height = 0;
    std::string drawing;  // SVG of that size, without the fields
    std::vector<LabelText> texts;
    std::vector<LabelBarcode> barcodes;
};

inline constexpr double MillimetersPerInch = 25.4;

}  // namespace quellbrook
