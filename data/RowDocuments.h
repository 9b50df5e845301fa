#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook {

// An argument that must be a list. An operation rejects a single value when it runs.
using ListArgument = std::variant<std::vector<TaggedValue>, TaggedValue>;

// The number of elements. Error 5 for anything but a list.
int32_t ArraySize(const ListArgument& arr);

// The row document of one row: a document element named rootName with one child for each column, in order, that
// contains the value's text and has the attribute isPersistable with the value 1. Dates are written in the form that
// InsertRow accepts. Error 5 unless both arguments are lists of the same length, and for a text with a NUL character;
// Error 91 if rootName is not a valid element name.
std::unique_ptr<pugi::xml_document> CreateRowXmlNode(const std::string& rootName, const ListArgument& columns,
                                                     const ListArgument& values);

}  // namespace quellbrook
