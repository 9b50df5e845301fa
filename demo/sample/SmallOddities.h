#pragma once

#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// The few odd things of the sample department, by the numbers of its items; all of them away from the shelves that most
// people open first.

void MakeOddInSample(Property& property);
void MakeOddInSample(Vehicle& vehicle);

// The full name of a location out of use, or in one, where this item lies; null for all others.
const char* PlaceOutOfUse(int32_t property);

// Whether the item is linked a second time to its own incident.
bool IsLinkedTwiceInSample(int32_t item);

// The pictures of an item that is described.
void AttachInSample(Property& property);
void AttachInSample(Vehicle& vehicle);

}  // namespace quellbrook::sample
