#pragma once

#include "demo/sample/Attach.h"
#include "demo/sample/Rows.h"

#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// Values from real departments that break programs: quotes, padding blanks, other scripts, markup and wildcards in
// names, and missing values. Each follows from an item's position alone, counted from 0. A department of a thousand
// items contains all of them.

void AddEdgeCases(int32_t place, Property& property);
void AddEdgeCases(int32_t place, Vehicle& vehicle);

// The name of the location at a position; unchanged for most. Names at one position stay distinct.
std::string EdgeCaseName(int32_t place, const std::string& name);

// Whether the item is linked twice to its incident.
bool IsLinkedTwice(int32_t place);
// How its pictures are filed; nothing for most items.
std::optional<Filing> FilingOf(int32_t place);

// Replaces persons of the chain by their stand-ins, for some items.
void AddEdgeCasePersons(int32_t place, std::vector<Custody>& chain);

}  // namespace quellbrook::sample
