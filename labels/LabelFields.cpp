#include "labels/LabelFields.h"

#include "labels/LabelRefusal.h"
#include "labels/SvgGeometry.h"

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

constexpr const char* BoxSuffix = "_box";
constexpr double EdgeMargin = 1.5;            // distance of a line without a box from the label's edge, millimeters
constexpr double Ascent = 0.95, Line = 1.25;  // of a line, in sizes of its font
constexpr double DefaultFontPixels = 16;
constexpr double SmallestFont = 0.5, LargestFont = 100;  // millimeters

double NumberOf(const pugi::xml_node& element, const char* attribute, const std::string& name) {
    const std::string text = element.attribute(attribute).value();
    const auto number = text.empty() ? std::optional<double>(0) : svg::ParseLength(text);
    if (!number)
        RefuseField(name, std::string("has a position that can't be read: ") + attribute + "=" + Quoted(text) + ".");
    return *number;
}

int QuarterTurnsOf(const svg::Transform& toSheet, const std::string& name) {
    const auto turns = toSheet.QuarterTurns();
    if (!turns) RefuseField(name, "is slanted, mirrored or stretched; it can only be rotated by 90 degrees.");
    return *turns;
}

// Converts a box from the element's own units to the sheet.
LabelBox MapBox(const svg::Transform& toSheet, double x, double y, double width, double height) {
    const double x1 = toSheet.a * x + toSheet.c * y + toSheet.e, y1 = toSheet.b * x + toSheet.d * y + toSheet.f;
    const double x2 = x1 + toSheet.a * width + toSheet.c * height, y2 = y1 + toSheet.b * width + toSheet.d * height;
    return {std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1)};
}

// The first span in a text, or a null node.
pugi::xml_node SpanIn(const pugi::xml_node& text) {
    for (const pugi::xml_node child : text.children())
        if (svg::LocalName(child) == "tspan") return child;
    return {};
}

// The innermost of the first spans, which contains the letters.
pugi::xml_node InnermostSpan(pugi::xml_node text) {
    for (pugi::xml_node span = SpanIn(text); span; span = SpanIn(span)) text = span;
    return text;
}

// The text, or the outermost of its first spans with a position.
pugi::xml_node Positioned(const pugi::xml_node& text) {
    for (pugi::xml_node at = text; at; at = SpanIn(at))
        if (at.attribute("x")) return at;
    return text;
}

std::string FirstFamily(std::string_view families) {
    std::string family(families.substr(0, families.find(',')));
    std::erase_if(family, [](char c) { return c == '\'' || c == '"'; });
    const size_t first = family.find_first_not_of(' ');
    return first == std::string::npos ? "" : family.substr(first, family.find_last_not_of(' ') - first + 1);
}

int WeightOf(std::string_view weight) {
    if (weight == "bold" || weight == "bolder") return 700;
    const auto number = svg::ParseNumber(weight);
    return number && *number >= 100 && *number <= 900 ? static_cast<int>(*number) : 400;
}

LabelAnchor AnchorOf(std::string_view anchor) {
    if (anchor == "middle") return LabelAnchor::Middle;
    return anchor == "end" ? LabelAnchor::End : LabelAnchor::Start;
}

}  // namespace

LabelFields::LabelFields(pugi::xml_node root, const LabelSheet& sheet) : m_sheet(sheet), m_styles(root) {
    CollectIds(root);
}

void LabelFields::CollectIds(const pugi::xml_node& element) {
    for (const pugi::xml_node child : element.children()) {
        const std::string id = child.attribute("id").value();
        if (!id.empty() && !m_byId.try_emplace(id, Entry{child}).second) m_byId[id].isRepeated = true;
        CollectIds(child);
    }
}

pugi::xml_node LabelFields::ElementOf(const std::string& id) const {
    const auto found = m_byId.find(id);
    if (found == m_byId.end()) return {};
    if (found->second.isRepeated) RefuseField(id, "occurs twice; an id must be unique.");
    return found->second.element;
}

void LabelFields::Take(const std::string& name, const std::string& value, FilledLabel& label) {
    const pugi::xml_node element = ElementOf(name);
    if (!element) return;
    const std::string_view kind = svg::LocalName(element);
    if (kind == "rect") {
        label.barcodes.push_back({value, AreaOfRectangle(element, name)});
        m_taken.push_back(element);
    } else if (kind == "text") {
        TakeText(element, name, value, label);
    } else {
        RefuseField(name, "is neither a text nor a rectangle.");
    }
}

void LabelFields::TakeText(const pugi::xml_node& text, const std::string& name, const std::string& value,
                           FilledLabel& label) {
    LabelText field = StyleOf(text, name);
    field.text = value;
    const pugi::xml_node box = ElementOf(name + BoxSuffix);
    if (box && svg::LocalName(box) != "rect") RefuseField(name + BoxSuffix, "is not a rectangle.");
    field.area = box ? AreaOfRectangle(box, name + BoxSuffix) : AreaOfLine(text, field, name);
    label.texts.push_back(std::move(field));
    m_taken.push_back(text);
    if (box) m_taken.push_back(box);
}

LabelArea LabelFields::AreaOfRectangle(const pugi::xml_node& rectangle, const std::string& name) const {
    const svg::Transform toSheet = m_sheet.ToSheet(rectangle);
    LabelArea area;
    area.quarterTurns = QuarterTurnsOf(toSheet, name);
    area.box = MapBox(toSheet, NumberOf(rectangle, "x", name), NumberOf(rectangle, "y", name),
                      NumberOf(rectangle, "width", name), NumberOf(rectangle, "height", name));
    if (!m_sheet.Contains(area.box)) RefuseField(name, "has no size or is outside the label.");
    return area;
}

// One line from the anchor to the edge of the label; a centered one extends to both sides by the distance of the
// nearer edge.
LabelArea LabelFields::AreaOfLine(const pugi::xml_node& text, const LabelText& style, const std::string& name) const {
    const svg::Transform toSheet = m_sheet.ToSheet(text);
    const pugi::xml_node positioned = Positioned(text);
    const LabelBox anchor = MapBox(toSheet, NumberOf(positioned, "x", name), NumberOf(positioned, "y", name), 0, 0);
    LabelArea area;
    area.quarterTurns = QuarterTurnsOf(toSheet, name);
    const bool isUpright = area.quarterTurns % 2 == 0;
    const bool runsBack = area.quarterTurns == 2 || area.quarterTurns == 3;
    const double length = isUpright ? m_sheet.Width() : m_sheet.Height();
    const double along = isUpright ? anchor.left : anchor.top;
    const double before = (runsBack ? length - along : along) - EdgeMargin;
    const double behind = (runsBack ? along : length - along) - EdgeMargin;
    const double half = std::min(before, behind);
    const double back = style.anchor == LabelAnchor::Start ? 0 : style.anchor == LabelAnchor::End ? before : half;
    const double forth = style.anchor == LabelAnchor::End ? 0 : style.anchor == LabelAnchor::Start ? behind : half;
    const double scale = toSheet.Scale();
    const double x = NumberOf(positioned, "x", name), y = NumberOf(positioned, "y", name);
    area.box = MapBox(toSheet, x - back / scale, y - Ascent * style.size / scale, (back + forth) / scale,
                      Line * style.size / scale);
    if (!(back + forth > 0) || !m_sheet.Contains(area.box))
        RefuseField(name, "is outside the label or too close to its edge.");
    return area;
}

LabelText LabelFields::StyleOf(const pugi::xml_node& text, const std::string& name) const {
    const pugi::xml_node inner = InnermostSpan(text);
    LabelText style;
    const std::string_view size = m_styles.InheritedProperty(inner, "font-size");
    const auto units = size.empty() ? std::optional<double>(DefaultFontPixels) : svg::ParseLength(size);
    if (!units) RefuseField(name, "has a font size that can't be read: " + Quoted(size) + ".");
    style.size = *units * m_sheet.ToSheet(text).Scale();
    if (!(style.size >= SmallestFont && style.size <= LargestFont))
        RefuseField(name, "has a font size outside 0.5 to 100 mm.");
    style.family = FirstFamily(m_styles.InheritedProperty(inner, "font-family"));
    style.weight = WeightOf(m_styles.InheritedProperty(inner, "font-weight"));
    style.italic = m_styles.InheritedProperty(inner, "font-style") == "italic";
    style.anchor = AnchorOf(m_styles.InheritedProperty(inner, "text-anchor"));
    const std::string_view color = m_styles.InheritedProperty(inner, "fill");
    if (!color.empty() && color != "none") style.color = color;
    return style;
}

// An element inside another removed one is removed with it.
void LabelFields::Remove() {
    const auto isTaken = [this](const pugi::xml_node& element) {
        return std::find(m_taken.begin(), m_taken.end(), element) != m_taken.end();
    };
    std::vector<pugi::xml_node> outermost;
    for (const pugi::xml_node element : m_taken) {
        pugi::xml_node ancestor = element.parent();
        while (ancestor && !isTaken(ancestor)) ancestor = ancestor.parent();
        if (!ancestor) outermost.push_back(element);
    }
    for (const pugi::xml_node element : outermost) element.parent().remove_child(element);
    m_taken.clear();
}

}  // namespace quellbrook
