#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

// Upgrades the tables of a database from the previous version to this one. Triggers and side tables are not part of a
// step, except for triggers that no longer exist: after the last step, all of them are created again.
struct SchemaStep {
    int32_t version;
    std::vector<std::string> statements;
};

// In ascending order; the last one is for SchemaVersion.
const std::vector<SchemaStep>& SchemaSteps();

struct SchemaUpgrade {
    int32_t fromVersion;
    std::string backupPath;  // the copy of the file as it was
};

// Upgrades a database of this program and an older version to SchemaVersion, all steps in one transaction. First copies
// it to a new file beside it, "PATH.version-1", which only the owner can read. Empty if the database has the present
// version. Raises error 5 with a message for the user if the copy or the upgrade fails; then the database has not
// changed. Only after a failed commit, the copy is left, and the database may have been upgraded.
std::optional<SchemaUpgrade> UpgradeDatabase(const std::string& path, int busyMilliseconds);

}  // namespace quellbrook
