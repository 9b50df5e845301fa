#pragma once

#include "data/StorageLocation.h"

namespace quellbrook {

// The operations of StorageLocation that only the module uses.
struct StorageLocationInternals {
    static void InitializeAs(StorageLocation& location, const std::string& name, StorageLocationTypes type) {
        location.InitializeAs(name, type);
    }
    static void MakeRoot(StorageLocation& location) { location.MakeRoot(); }
    static void Load(StorageLocation& location, const pugi::xml_document& document) {
        location.LoadFromXMLDOMNode(document.document_element());
    }
};

}  // namespace quellbrook
