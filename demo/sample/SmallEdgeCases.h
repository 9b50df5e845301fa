#pragma once

#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// The edge cases of the sample department by item number. They are away from the shelves that people open first.

void AddSampleEdgeCases(Property& property);
void AddSampleEdgeCases(Vehicle& vehicle);

// The full name of a location out of use, or inside one, that contains this item; null for all others.
const char* PlaceOutOfUse(int32_t property);

// Whether the item is linked twice to its incident.
bool IsLinkedTwiceInSample(int32_t item);

// Files pictures for an item that already has its description.
void AttachInSample(Property& property);
void AttachInSample(Vehicle& vehicle);

}  // namespace quellbrook::sample
