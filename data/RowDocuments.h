#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include <pugixml.hpp>

namespace quellbrook {

// An argument that ought to be a list. A single value in its place is refused when the operation runs.
using ListArgument = std::variant<std::vector<TaggedValue>, TaggedValue>;

// The number of elements. Error 5 for anything but a list.
int32_t ArraySize(const ListArgument& arr);

// The row document of one row: a document element named rootName with one child for each column, in order, that
// carries the value's text and the attribute isPersistable of value 1. Dates get the text that InsertRow accepts.
// Error 5 unless both arguments are lists of one length, and for a text with NUL in it; 91 where rootName is no name of
// an element.
std::unique_ptr<pugi::xml_document> CreateRowXmlNode(const std::string& rootName, const ListArgument& columns,
                                                     const ListArgument& values);

}  // namespace quellbrook
