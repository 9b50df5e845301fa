#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace quellbrook {

// Takes the rights to a database and its companions from all other users. Leaves files of other owners alone.
void MakePrivate(const std::string& databasePath);

// Identifies a file independently of its path: a file that replaces it has another identity.
struct FileIdentity {
    unsigned long device;
    unsigned long number;

    bool operator==(const FileIdentity&) const = default;
};
// Not set if the file does not exist.
std::optional<FileIdentity> IdentityOf(const std::string& path);

struct FileState {
    FileIdentity identity;
    int64_t lastWrite;  // in nanoseconds since 1970
};
// Not set if the file does not exist.
std::optional<FileState> StateOf(const std::string& path);

// Whether the path is on another machine. The write-ahead log needs locks and shared memory, which do not work there.
bool IsOnNetwork(const std::string& path);

// Replaces the type of a path's file system, as statfs returns it. Null restores it. For tests.
void SetFileSystemType(std::function<unsigned long(const std::string& path)> type);

}  // namespace quellbrook
