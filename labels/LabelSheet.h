#pragma once

#include "labels/Label.h"
#include "labels/SvgGeometry.h"

namespace quellbrook {

// The sheet of a template: its size and the conversion from the drawing's units.
class LabelSheet {
public:
    // Raises error 5 if the drawing has no size or one that is out of range.
    static LabelSheet Of(const pugi::xml_node& root);

    double Width() const { return m_width; }  // millimeters
    double Height() const { return m_height; }

    // Converts the element's own units to millimeters on the sheet. Raises error 5 for an invalid transform.
    svg::Transform ToSheet(const pugi::xml_node& element) const;

    // Whether the box is not empty and inside the sheet.
    bool Contains(const LabelBox& box) const;

private:
    double m_width = 0;
    double m_height = 0;
    svg::Transform m_toMillimeters;
};

}  // namespace quellbrook
