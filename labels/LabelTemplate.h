#pragma once

#include "labels/Label.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook {

// A label template: an SVG drawing with the width and height of the label. An element with the id "name" shows the
// field "name": a text element is replaced by the field's text, a rectangle by a barcode symbol. A rectangle with the
// id "name_box" bounds the field's text; without one, the text has one line, from the position of the template's text
// to the edge of the label. Fields can be rotated by multiples of 90 degrees.
class LabelTemplate {
public:
    using Fields = std::vector<std::pair<std::string, std::string>>;  // name and value

    // Raises error 5 if the text is not well-formed, is not SVG, links to an image instead of embedding it, or has no
    // size from 5 to 1000 mm.
    explicit LabelTemplate(const std::string& text);

    // Fills in these fields and omits those that the template does not have. Raises error 5 for a duplicate id, an
    // element that is neither a text nor a rectangle, a position outside the label, any other rotation, a template with
    // none of the fields, or one in which none of them is a barcode.
    FilledLabel Fill(const Fields& fields) const;

private:
    std::unique_ptr<pugi::xml_document> m_document;
};

}  // namespace quellbrook
