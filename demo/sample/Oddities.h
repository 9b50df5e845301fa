#pragma once

#include "demo/sample/Attach.h"
#include "demo/sample/Rows.h"

#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// What real departments hold and programs stumble over: quotes, padded blanks, other scripts, markup and wildcards in
// names, and whatever can be missing. All of it follows from the place of a thing in its order alone, counted from 0,
// so that a department of a thousand items holds every one of them.

void MakeOdd(int32_t place, Property& property);
void MakeOdd(int32_t place, Vehicle& vehicle);

// The name of a location; the same for most places. No two names at one place become the same.
std::string OddName(int32_t place, const std::string& name);

// Whether the item is linked a second time to its own incident.
bool IsLinkedTwice(int32_t place);
// How its pictures are filed; nothing for most items.
std::optional<Filing> FilingOf(int32_t place);

// A custody row of such an item names these persons in place of others who do the same work.
void NameOddPersons(int32_t place, std::vector<Custody>& chain);

}  // namespace quellbrook::sample
