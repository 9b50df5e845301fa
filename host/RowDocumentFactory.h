#pragma once

#include "base/DateTime.h"

#include <memory>
#include <string>

#include <pugixml.hpp>

namespace quellbrook {

class RowDocumentFactory {
public:
    static std::unique_ptr<pugi::xml_document> NewDocument();
};

class DateTextFormat {
public:
    // The date in the format that InsertRow accepts. The mode is always 32.
    static std::string ToText(DateTime date, int mode);
};

}  // namespace quellbrook
