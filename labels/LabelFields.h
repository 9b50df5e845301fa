#pragma once

#include "labels/Label.h"
#include "labels/LabelSheet.h"
#include "labels/SvgStyles.h"

#include <string>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook {

// Finds the positions of a drawing's fields and removes their elements from the drawing.
class LabelFields {
public:
    LabelFields(pugi::xml_node root, const LabelSheet& sheet);

    // Adds the field to the label: a barcode if its element is a rectangle, a text if it is a text. Does nothing if the
    // drawing has no such element. Raises error 5 as LabelTemplate::Fill does.
    void Take(const std::string& name, const std::string& value, FilledLabel& label);
    // Removes the elements of the fields taken from the drawing.
    void Remove();

private:
    void CollectIds(const pugi::xml_node& element);
    pugi::xml_node ElementOf(const std::string& id) const;  // a null node if there is none
    LabelArea AreaOfRectangle(const pugi::xml_node& rectangle, const std::string& name) const;
    LabelArea AreaOfLine(const pugi::xml_node& text, const LabelText& style, const std::string& name) const;
    LabelText StyleOf(const pugi::xml_node& text, const std::string& name) const;
    void TakeText(const pugi::xml_node& text, const std::string& name, const std::string& value, FilledLabel& label);

    struct Entry {
        pugi::xml_node element;
        bool isRepeated = false;
    };

    const LabelSheet& m_sheet;
    const svg::StyleSheet m_styles;
    std::unordered_map<std::string, Entry> m_byId;
    std::vector<pugi::xml_node> m_taken;
};

}  // namespace quellbrook
