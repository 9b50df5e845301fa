#pragma once

#include "demo/sample/Attach.h"
#include "demo/sample/Rows.h"

#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// Values from real departments that break programs: quotes, padding blanks, other scripts, markup and wildcards in
// names, and missing values. Each depends only on an item's position, counted from 0. A department of a thousand items
// contains all of them.

void AddEdgeCases(int32_t index, Property& property);
void AddEdgeCases(int32_t index, Vehicle& vehicle);

// The name of the location at a position; unchanged for most. Names at one position stay distinct.
std::string EdgeCaseName(int32_t index, const std::string& name);

// Whether the item is linked twice to its incident.
bool IsLinkedTwice(int32_t index);
// How its pictures are filed; nothing for most items.
std::optional<Filing> FilingOf(int32_t index);

// For some items, replaces persons of the chain with others that have difficult names.
void AddEdgeCasePersons(int32_t index, std::vector<Custody>& chain);

}  // namespace quellbrook::sample
