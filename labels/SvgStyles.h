#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook::svg {

// The presentation properties of a drawing's elements. A property is looked up in the element's style, the drawing's
// style elements and the attribute of the same name, in this order; an unset property is empty.

// The value set by the element itself, in its style or attribute.
std::string_view OwnProperty(const pugi::xml_node& element, std::string_view name);

// The style elements of a drawing. Supports rules for single classes, ids and elements (".st0, .st1", "#title", "text")
// and ignores all others.
class StyleSheet {
public:
    explicit StyleSheet(const pugi::xml_node& root);

    // The value that applies to the element: its own or that of the nearest ancestor with one. The result views the
    // sheet and the document.
    std::string_view InheritedProperty(const pugi::xml_node& element, std::string_view name) const;

private:
    struct Rule {
        std::string selector;
        std::string declarations;
    };

    void Collect(const pugi::xml_node& element);
    void AddRules(std::string css);
    std::string_view RuledProperty(const pugi::xml_node& element, std::string_view name) const;

    std::vector<Rule> m_rules;  // in their order
};

}  // namespace quellbrook::svg
