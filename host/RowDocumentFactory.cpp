#include "host/RowDocumentFactory.h"

namespace quellbrook {

std::unique_ptr<pugi::xml_document> RowDocumentFactory::NewDocument() { return std::make_unique<pugi::xml_document>(); }

std::string DateTextFormat::ToText(DateTime date, int) { return date.ToText(); }

}  // namespace quellbrook
