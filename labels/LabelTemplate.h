#pragma once

#include "labels/Label.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook {

// A label's template: an SVG drawing whose width and height, with their units, are the label's. An element whose id is
// the name of a field takes that field: a text is replaced by the field's text, a rectangle by the symbol of a barcode.
// A rectangle whose id is the name with "_box" behind it says where the field's text may stand; without one the text
// has one line, from where the template's text stands to the edge of the label. Fields can be turned by quarters.
class LabelTemplate {
public:
    using Fields = std::vector<std::pair<std::string, std::string>>;  // name and value

    // Error 5 with a sentence for what is not well-formed, no SVG, or has no size from 5 to 1000 mm.
    explicit LabelTemplate(const std::string& text);

    // The label with these fields; a field that the template lacks is left out. Error 5 with a sentence for a barcode
    // that has no rectangle to go to, for an id that stands twice or on anything but a text or a rectangle, for a place
    // outside the label or at an odd angle, and where the template has none of the fields.
    FilledLabel Fill(const Fields& fields) const;

private:
    std::unique_ptr<pugi::xml_document> m_document;
};

}  // namespace quellbrook
