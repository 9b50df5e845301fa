#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook {

// All rows of the table StorageLocation as one XML document: a child StorageLocation of the document element for each
// row, with a child for each column that is not NULL, named after the column. The rows are in the natural order of
// Name, and rows with equal names in the order of the database. The index returns the same nodes as XPath, in document
// order, without a search.
class LocationDocument {
public:
    explicit LocationDocument(std::unique_ptr<pugi::xml_document> document);

    pugi::xml_node Root() const { return m_document->document_element(); }
    // StorageLocation[IdNo=id]: the first such node, or a null node.
    pugi::xml_node FindByID(int32_t id) const;
    // StorageLocation[Path='path' and Type=type], in document order. Empty if there is none.
    const std::vector<pugi::xml_node>& Children(std::string_view path, int32_t type) const;

private:
    struct PathAndTypeHash {
        using is_transparent = void;
        size_t operator()(const std::pair<std::string_view, int32_t>& key) const;
    };

    std::unique_ptr<pugi::xml_document> m_document;
    std::unordered_map<int32_t, pugi::xml_node> m_byId;
    // The keys view the document's text.
    std::unordered_map<std::pair<std::string_view, int32_t>, std::vector<pugi::xml_node>, PathAndTypeHash>
        m_byPathAndType;
};

// The one cached location document of the process. All instances share it; it changes only on Reload.
class HostLocationData {
public:
    // Loads on first use. A Reload does not change a document that a caller still refers to.
    std::shared_ptr<const LocationDocument> GetDocument();
    // Reads the table again. Always empty.
    TaggedValue Reload();

    // Forgets the document; the next GetDocument loads it.
    static void Discard();
};

}  // namespace quellbrook
