#pragma once

#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// The edge cases of the sample department by item number. None is on a shelf that users are likely to open first.

void AddSampleEdgeCases(Property& property);
void AddSampleEdgeCases(Vehicle& vehicle);

// The full name of the location of this item if that is, or is inside, a location out of use; otherwise null.
const char* LocationOutOfUse(int32_t property);

// Whether the item is linked twice to its incident.
bool IsLinkedTwiceInSample(int32_t item);

// Files pictures for an item that already has its description.
void AttachInSample(Property& property);
void AttachInSample(Vehicle& vehicle);

}  // namespace quellbrook::sample
