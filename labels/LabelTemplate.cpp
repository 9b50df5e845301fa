#include "labels/LabelTemplate.h"

#include "base/Text.h"
#include "labels/LabelFields.h"
#include "labels/LabelRefusal.h"
#include "labels/LabelSheet.h"
#include "labels/SvgGeometry.h"

#include <algorithm>
#include <sstream>

namespace quellbrook {

namespace {

constexpr int DeepestNesting = 200;

bool IsNestedDeeper(const pugi::xml_node& element, int levels) {
    if (levels < 0) return true;
    for (const pugi::xml_node child : element.children())
        if (IsNestedDeeper(child, levels - 1)) return true;
    return false;
}

// How PNG, JPEG and GIF begin in base64. Qt recognizes an image by its content, and another format could contain links.
bool IsImage(std::string_view base64) {
    return base64.starts_with("iVBORw0KGgo") || base64.starts_with("/9j/") || base64.starts_with("R0lGOD");
}

// Without "..", the reference cannot lead to another file. Qt decodes what follows the last "base64,".
bool IsEmbedded(std::string_view reference) {
    const std::string text = FoldCase(Trim(reference));
    constexpr std::string_view encoding = "base64,";
    const size_t data = Trim(reference).rfind(encoding);
    return text.starts_with("data:image/") && text.find("..") == std::string::npos && data != std::string::npos &&
           IsImage(Trim(Trim(reference).substr(data + encoding.size())));
}

bool IsReference(std::string_view attribute) { return attribute == "href" || attribute.ends_with(":href"); }

// A linked image could be any file of this machine, or one that never ends.
void RequireEmbeddedImages(const pugi::xml_node& element) {
    const std::string_view name = svg::LocalName(element);
    const bool isImage = name == "image" || name == "feImage";
    for (const pugi::xml_attribute attribute : element.attributes()) {
        if (isImage && IsReference(attribute.name()) && !IsEmbedded(attribute.value()))
            RefuseTemplate("links to the image " + Quoted(attribute.value()) + ": embed the image instead.");
    }
    for (const pugi::xml_node child : element.children()) RequireEmbeddedImages(child);
}

std::string NamesOf(const LabelTemplate::Fields& fields) {
    std::vector<std::string> names;
    for (const auto& [name, value] : fields) names.push_back("'" + name + "'");
    return Join(names, ", ");
}

std::string TextOf(const pugi::xml_document& document) {
    std::ostringstream text;
    document.save(text, "", pugi::format_raw);
    return std::move(text).str();
}

}  // namespace

LabelTemplate::LabelTemplate(const std::string& text) : m_document(std::make_unique<pugi::xml_document>()) {
    const pugi::xml_parse_result result =
        m_document->load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    if (!result) RefuseTemplate("is not well-formed: " + std::string(result.description()) + ".");
    const pugi::xml_node root = m_document->document_element();
    if (svg::LocalName(root) != "svg") RefuseTemplate("is not an SVG drawing.");
    if (IsNestedDeeper(root, DeepestNesting)) RefuseTemplate("is nested too deeply.");
    RequireEmbeddedImages(root);
    LabelSheet::Of(root);
}

FilledLabel LabelTemplate::Fill(const Fields& fields) const {
    pugi::xml_document drawing;
    drawing.reset(*m_document);
    const LabelSheet sheet = LabelSheet::Of(drawing.document_element());
    FilledLabel label;
    label.width = sheet.Width();
    label.height = sheet.Height();
    LabelFields taken(drawing.document_element(), sheet);
    for (const auto& [name, value] : fields) taken.Take(name, value, label);
    if (label.texts.empty() && label.barcodes.empty())
        RefuseTemplate("has none of the fields " + NamesOf(fields) + ".");
    if (label.barcodes.empty())
        RefuseTemplate("has no barcode: none of the fields " + NamesOf(fields) + " is a rectangle.");
    taken.Remove();
    label.drawing = TextOf(drawing);
    return label;
}

}  // namespace quellbrook
