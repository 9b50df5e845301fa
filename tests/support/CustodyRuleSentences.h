#pragma once

namespace quellbrook::testing {

// The rules that are checked on every engine.
inline constexpr const char* numbered = "The custody rows of an item are numbered from 1 without gaps.";
inline constexpr const char* owners = "Custody rows belong to an item and a location that exist.";
inline constexpr const char* latest = "The current custody row of an item is its latest one.";
inline constexpr const char* disposition = "An item with a final disposition has a current custody row.";
inline constexpr const char* dispositionFlag = "The flag of a final disposition is 0 or 1.";
inline constexpr const char* tree = "Every location is in the tree, in the category of its container.";
inline constexpr const char* names = "No two locations of one container and category have the same name.";
inline constexpr const char* objects = "All tables, indexes, views and triggers of the schema are there.";
inline constexpr const char* places = "The side table CurrentPlace lists every item at its location.";

}  // namespace quellbrook::testing
