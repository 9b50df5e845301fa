#include "labels/SvgStyles.h"

#include "labels/SvgGeometry.h"

#include <algorithm>

namespace quellbrook::svg {

namespace {

// The value of a property in a list of declarations; the last one wins.
std::string_view Declaration(std::string_view style, std::string_view name) {
    std::string_view value;
    while (!style.empty()) {
        const size_t end = std::min(style.find(';'), style.size());
        const std::string_view declaration = style.substr(0, end);
        const size_t colon = declaration.find(':');
        if (colon != std::string_view::npos && TrimBlanks(declaration.substr(0, colon)) == name)
            value = TrimBlanks(declaration.substr(colon + 1));
        style.remove_prefix(std::min(end + 1, style.size()));
    }
    return value;
}

void RemoveComments(std::string& css) {
    for (size_t begin = css.find("/*"); begin != std::string::npos; begin = css.find("/*", begin)) {
        const size_t end = css.find("*/", begin + 2);
        css.erase(begin, end == std::string::npos ? end : end + 2 - begin);
    }
}

bool HasClass(const pugi::xml_node& element, std::string_view name) {
    constexpr std::string_view blanks = " \t\r\n\f";
    std::string_view classes = element.attribute("class").value();
    while (!classes.empty()) {
        const size_t end = std::min(classes.find_first_of(blanks), classes.size());
        if (classes.substr(0, end) == name) return true;
        classes.remove_prefix(std::min(end + 1, classes.size()));
    }
    return false;
}

enum Weight { None, Element, Class, Id };

Weight WeightOf(std::string_view selector, const pugi::xml_node& element) {
    if (selector.starts_with('#')) return selector.substr(1) == element.attribute("id").value() ? Id : None;
    if (selector.starts_with('.')) return HasClass(element, selector.substr(1)) ? Class : None;
    return selector == LocalName(element) ? Element : None;
}

}  // namespace

std::string_view OwnProperty(const pugi::xml_node& element, std::string_view name) {
    const std::string_view declared = Declaration(element.attribute("style").value(), name);
    if (!declared.empty()) return declared;
    return TrimBlanks(element.attribute(std::string(name).c_str()).value());
}

StyleSheet::StyleSheet(const pugi::xml_node& root) { Collect(root); }

void StyleSheet::Collect(const pugi::xml_node& element) {
    for (const pugi::xml_node child : element.children()) {
        if (LocalName(child) != "style") {
            Collect(child);
            continue;
        }
        std::string css;
        for (const pugi::xml_node part : child.children()) css += part.value();
        AddRules(std::move(css));
    }
}

void StyleSheet::AddRules(std::string css) {
    RemoveComments(css);
    for (std::string_view rest = css; !rest.empty();) {
        const size_t open = rest.find('{'), close = rest.find('}', open);
        if (close == std::string_view::npos) return;
        std::string_view selectors = rest.substr(0, open);
        selectors.remove_prefix(selectors.rfind(';') + 1);  // skips what is not a rule: @import, @charset
        const std::string declarations(rest.substr(open + 1, close - open - 1));
        while (!selectors.empty()) {
            const size_t end = std::min(selectors.find(','), selectors.size());
            const std::string_view selector = TrimBlanks(selectors.substr(0, end));
            if (!selector.empty()) m_rules.push_back({std::string(selector), declarations});
            selectors.remove_prefix(std::min(end + 1, selectors.size()));
        }
        rest.remove_prefix(close + 1);
    }
}

std::string_view StyleSheet::RuledProperty(const pugi::xml_node& element, std::string_view name) const {
    std::string_view value;
    Weight heaviest = None;
    for (const Rule& rule : m_rules) {
        const Weight weight = WeightOf(rule.selector, element);
        if (weight == None || weight < heaviest) continue;
        const std::string_view declared = Declaration(rule.declarations, name);
        if (declared.empty()) continue;
        value = declared;
        heaviest = weight;
    }
    return value;
}

std::string_view StyleSheet::InheritedProperty(const pugi::xml_node& element, std::string_view name) const {
    for (pugi::xml_node at = element; at; at = at.parent()) {
        std::string_view own = Declaration(at.attribute("style").value(), name);
        if (own.empty()) own = RuledProperty(at, name);
        if (own.empty()) own = OwnProperty(at, name);
        if (!own.empty() && own != "inherit") return own;
    }
    return {};
}

}  // namespace quellbrook::svg
