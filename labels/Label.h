#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// A rectangle on a label, in millimetres from the label's top left corner.
struct LabelBox {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    bool operator==(const LabelBox&) const = default;
};

// Where a field stands. A field that is turned has its box as it is seen on the label, and reads along it after so many
// quarter turns clockwise.
struct LabelPlace {
    LabelBox box;
    int quarterTurns = 0;  // 0 to 3

    bool operator==(const LabelPlace&) const = default;
};

enum class LabelAnchor { Start, Middle, End };

// A text and how it is written.
struct LabelText {
    std::string text;
    LabelPlace place;
    std::string family;  // of the font; empty for the system's
    double size = 0;     // of the font, millimetres
    int weight = 400;    // 100 to 900
    bool italic = false;
    LabelAnchor anchor = LabelAnchor::Start;
    std::string color = "black";
};

// A symbol that fills its box with its quiet zones and, under it, its readable text.
struct LabelBarcode {
    std::string text;
    LabelPlace place;
};

// A label ready to be printed: a drawing, and what is written over it.
struct FilledLabel {
    double width = 0;  // millimetres
    double height = 0;
    std::string drawing;  // SVG of that size, the fields taken out
    std::vector<LabelText> texts;
    std::vector<LabelBarcode> barcodes;
};

inline constexpr double MillimetresPerInch = 25.4;

}  // namespace quellbrook
