#pragma once

#include "labels/Label.h"
#include "labels/SvgGeometry.h"

namespace quellbrook {

// A template's sheet: its size, and how the units of the drawing lie on it.
class LabelSheet {
public:
    // Error 5 with a sentence where the drawing has no size, or none that a label can have.
    static LabelSheet Of(const pugi::xml_node& root);

    double Width() const { return m_width; }  // millimetres
    double Height() const { return m_height; }

    // From the element's own units to millimetres on the sheet. Error 5 with a sentence for a transform that can't be
    // read.
    svg::Transform ToSheet(const pugi::xml_node& element) const;

    // Whether the box lies on the sheet and has a size.
    bool Holds(const LabelBox& box) const;

private:
    double m_width = 0;
    double m_height = 0;
    svg::Transform m_toMillimetres;
};

}  // namespace quellbrook
