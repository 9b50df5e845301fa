#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quellbrook {

// Which department to make. Every date of it lies in the three years up to November 20th, 2026.
struct SampleOptions {
    // 0: the sample department, 300 pieces of property and 40 vehicles in 60 locations, a few odd things among them.
    // Above 0: a generated department of so many items, one in ten of them a vehicle, in one location for twenty items,
    // 100 locations at least and 5,000 at most. From a thousand items on it holds everything that is awkward: names
    // with quotes, padded blanks and other scripts; items that lack a location, a category, an identifier, a state code
    // or a quantity; items linked twice to an incident; locations out of use that hold others; pictures filed wrongly.
    int32_t items = 0;
};

namespace SampleNames {
inline constexpr const char* AgencyName = "Harlow Bay Police Department";
// Of a generated department: the location through which every tracked item has passed, and a shelf on which 190 items
// lie now (a tenth of the items, where there are fewer than 1,900).
inline constexpr const char* SignInCounter = "Sign-In Counter";
inline constexpr const char* FullShelf = "Bulk Shelf";
// The setting that marks a department whose accounts may be shown.
inline constexpr const char* MarkerSetting = "SampleDepartment";
}  // namespace SampleNames

inline constexpr int32_t FirstVehicleNo = 5'000'001;  // property is numbered from 1, so that no two items share a key

// An account of every sample department, its password in the open.
struct SampleAccount {
    std::string username;
    std::string password;
    std::string role;  // a few words for the login form
};
const std::vector<SampleAccount>& SampleAccounts();

// Hears how far the making has come, 0 to 100, never less than before. What it throws ends the making.
using SampleProgress = std::function<void(int percent)>;

// Writes a department into a new database file of our schema, the pictures that it names into the folder Pictures
// beside it, and the templates of its labels into Files/Data, where none stand yet; all departments of a directory
// share them. The same options give the same rows, password hashes excepted, and a picture has the same bytes
// everywhere. The file appears at the path only when it is complete and its rows are proven to fit together; what a
// making that was killed left is refused as a database and is removed by the next one. Error 5 with a sentence when a
// file stands there already, or when it can't be written.
void CreateSampleDepartment(const std::string& path, const SampleOptions& options, const SampleProgress& progress = {});

// Writes the label templates that a department's directory lacks, below Files/Data. Error 5 with a sentence.
void AddMissingLabelTemplates(const std::string& directory);

}  // namespace quellbrook
