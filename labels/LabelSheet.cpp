#include "labels/LabelSheet.h"

#include "labels/LabelRefusal.h"
#include "labels/SvgStyles.h"

#include <algorithm>
#include <string>

namespace quellbrook {

namespace {

constexpr double MillimetersPerPixel = MillimetersPerInch / 96;
constexpr double Smallest = 5, Largest = 1000;  // millimeters
constexpr double Slack = 0.1;                   // millimeters by which a box may exceed the edge

double SizeOf(const pugi::xml_node& root, const char* name) {
    const auto pixels = svg::ParseLength(root.attribute(name).value());
    if (!pixels) RefuseTemplate("has no " + std::string(name) + ": set it in millimeters or inches.");
    const double size = *pixels * MillimetersPerPixel;
    if (size < Smallest || size > Largest) RefuseTemplate("has a " + std::string(name) + " outside 5 to 1000 mm.");
    return size;
}

// Keeps the proportions of the drawing and centers it.
svg::Transform FitViewBox(const std::vector<double>& viewBox, double width, double height) {
    const double scale = std::min(width / viewBox[2], height / viewBox[3]);
    return {scale,
            0,
            0,
            scale,
            (width - viewBox[2] * scale) / 2 - viewBox[0] * scale,
            (height - viewBox[3] * scale) / 2 - viewBox[1] * scale};
}

}  // namespace

LabelSheet LabelSheet::Of(const pugi::xml_node& root) {
    LabelSheet sheet;
    sheet.m_width = SizeOf(root, "width");
    sheet.m_height = SizeOf(root, "height");
    sheet.m_toMillimeters = {MillimetersPerPixel, 0, 0, MillimetersPerPixel, 0, 0};
    const std::string viewBox = root.attribute("viewBox").value();
    if (viewBox.empty()) return sheet;
    const auto numbers = svg::ParseNumbers(viewBox);
    if (!numbers || numbers->size() != 4 || !((*numbers)[2] > 0) || !((*numbers)[3] > 0))
        RefuseTemplate("has a viewBox that can't be read: " + Quoted(viewBox) + ".");
    sheet.m_toMillimeters = FitViewBox(*numbers, sheet.m_width, sheet.m_height);
    return sheet;
}

svg::Transform LabelSheet::ToSheet(const pugi::xml_node& element) const {
    svg::Transform result;
    for (pugi::xml_node at = element; at.parent() && at.parent().type() == pugi::node_element; at = at.parent()) {
        const std::string_view text = svg::OwnProperty(at, "transform");
        const auto transform = svg::ParseTransform(text);
        if (!transform) RefuseTemplate("has a transform that can't be read: " + Quoted(text) + ".");
        result = result.Then(*transform);
    }
    return result.Then(m_toMillimeters);
}

bool LabelSheet::Contains(const LabelBox& box) const {
    return box.width > 0 && box.height > 0 && box.left >= -Slack && box.top >= -Slack &&
           box.left + box.width <= m_width + Slack && box.top + box.height <= m_height + Slack;
}

}  // namespace quellbrook
