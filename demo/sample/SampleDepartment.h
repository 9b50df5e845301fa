#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quellbrook {

// Selects the department to create. All its dates are in the three years before November 21, 2026.
struct SampleOptions {
    // 0: the sample department, 300 pieces of property and 40 vehicles in 60 locations, with a few edge cases. Above 0:
    // a generated department of this number of items, one in ten a vehicle, with one location per twenty items, between
    // 100 and 5,000. From a thousand items on it contains all edge cases: names with quotes, padding blanks and other
    // scripts; items without a location, category, identifier, state code or quantity; items linked twice to an
    // incident; locations out of use that contain others; pictures filed incorrectly.
    int32_t items = 0;
    // Instead, a small department whose locations are all uncategorized.
    bool uncategorized = false;
};

namespace SampleNames {
inline constexpr const char* AgencyName = "Harlow Bay Police Department";
// In a generated department: the location that every tracked item has passed through, and a shelf with 190 items (a
// tenth of the items if there are fewer than 1,900).
inline constexpr const char* SignInCounter = "Sign-In Counter";
inline constexpr const char* FullShelf = "Bulk Shelf";
// The setting that marks a department whose accounts may be shown.
inline constexpr const char* MarkerSetting = "SampleDepartment";
}  // namespace SampleNames

inline constexpr int32_t FirstVehicleNo = 5'000'001;  // property starts at 1, so that no two items share a key

// An account of every sample and generated department, with its password in plain text.
struct SampleAccount {
    std::string username;
    std::string password;
    std::string role;  // a few words for the login form
};
const std::vector<SampleAccount>& SampleAccounts();

// Receives the progress, 0 to 100, never decreasing. An exception from it cancels the creation.
using SampleProgress = std::function<void(int percent)>;

// Creates a department: the database file, the pictures that it refers to in the folder Pictures beside it, and missing
// label templates in Files/Data. Departments in one folder share pictures and templates. The same options give the same
// rows, except for password hashes, and the same picture bytes everywhere. The file appears at the path only when it is
// complete and checked. An interrupted creation leaves a file that is refused as a database and removed by the next
// creation. Error 5 with a sentence if the file exists or cannot be written.
void CreateSampleDepartment(const std::string& path, const SampleOptions& options, const SampleProgress& progress = {});

// Adds missing label templates below Files/Data. Error 5 with a sentence.
void AddMissingLabelTemplates(const std::string& directory);

}  // namespace quellbrook
