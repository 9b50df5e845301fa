#include "data/RowDocuments.h"

#include "base/Error.h"
#include "host/RowDocumentFactory.h"

namespace quellbrook {

namespace {

using List = std::vector<TaggedValue>;

std::string ValueText(const TaggedValue& value) {
    if (const auto* moment = value.If<DateTime>()) return DateTextFormat::ToText(*moment, 32);
    return ToText(value);
}

void Refuse(const char* description) { Raise(ErrorNumber::General, "StorageLocation.CreateRowXmlNode", description); }

}  // namespace

int32_t ArraySize(const ListArgument& arr) {
    const auto* list = std::get_if<List>(&arr);
    if (!list) Raise(ErrorNumber::General, "StorageLocation.ArraySize", "ArraySize: arr is not an array.");
    return static_cast<int32_t>(list->size());
}

std::unique_ptr<pugi::xml_document> CreateRowXmlNode(const std::string& rootName, const ListArgument& columns,
                                                     const ListArgument& values) {
    if (!std::holds_alternative<List>(columns)) Refuse("CreateRowXmlNode: Columns must be an array");
    if (!std::holds_alternative<List>(values)) Refuse("CreateRowXmlNode: Values must be an array");
    if (ArraySize(columns) != ArraySize(values))
        Refuse("CreateRowXmlNode: Columns and Values arrays have different lengths.");

    auto document = RowDocumentFactory::NewDocument();
    document->load_string(("<" + rootName + "/>").c_str());
    pugi::xml_node row = document->document_element();
    if (!row) Raise(ErrorNumber::NullObject, "StorageLocation.CreateRowXmlNode");
    for (size_t i = 0; i < std::get<List>(columns).size(); ++i) {
        pugi::xml_node cell = row.append_child(ToText(std::get<List>(columns)[i]).c_str());
        const std::string text = ValueText(std::get<List>(values)[i]);
        if (text.find('\0') != std::string::npos) Refuse("A text with a NUL character can't be stored.");
        cell.text().set(text.c_str());
        cell.append_attribute("isPersistable").set_value(1);
    }
    return document;
}

}  // namespace quellbrook
