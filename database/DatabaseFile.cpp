#include "database/DatabaseFile.h"

#include <sys/stat.h>
#include <sys/vfs.h>
#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

namespace quellbrook {

namespace {

constexpr unsigned long networkTypes[] = {
    0x6969,      // NFS
    0x517B,      // SMB
    0xFE534D42,  // SMB2
    0xFF534D42,  // CIFS
    0x564C,      // NCP
    0x5346414F,  // AFS
    0x6B414653,  // AFS of the kernel
    0x73757245,  // Coda
    0x00C36400,  // Ceph
    0x01021997,  // 9P
};

unsigned long SystemsType(const std::string& path) {
    struct statfs system {};
    return statfs(path.c_str(), &system) == 0 ? static_cast<unsigned long>(system.f_type) & 0xFFFFFFFF : 0;
}

std::function<unsigned long(const std::string&)>& Type() {
    static std::function<unsigned long(const std::string&)> type = SystemsType;
    return type;
}

}  // namespace

void MakePrivate(const std::string& databasePath) {
    using std::filesystem::perms;
    for (const char* ending : {"", "-wal", "-shm"}) {
        std::error_code ignored;  // another user's file stays as it is
        std::filesystem::permissions(databasePath + ending, perms::group_all | perms::others_all,
                                     std::filesystem::perm_options::remove, ignored);
    }
}

std::optional<FileState> StateOf(const std::string& path) {
    struct stat file {};
    if (stat(path.c_str(), &file) != 0) return std::nullopt;
    return FileState{{file.st_dev, file.st_ino}, int64_t{file.st_mtim.tv_sec} * 1'000'000'000 + file.st_mtim.tv_nsec};
}

std::optional<FileIdentity> IdentityOf(const std::string& path) {
    const std::optional<FileState> state = StateOf(path);
    return state ? std::optional(state->identity) : std::nullopt;
}

bool IsOnNetwork(const std::string& path) {
    return std::find(std::begin(networkTypes), std::end(networkTypes), Type()(path)) != std::end(networkTypes);
}

void SetFileSystemType(std::function<unsigned long(const std::string&)> type) {
    Type() = type ? std::move(type) : SystemsType;
}

}  // namespace quellbrook
