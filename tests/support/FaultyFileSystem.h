#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct sqlite3_vfs;

namespace quellbrook::testing {

// While it exists, the file system that SQLite uses for new connections: the real one, but writes and synchronizations
// of databases and logs fail on demand, and a synchronization does not wait for the disk. Also keeps what a power loss
// would leave of each file: what was written before a synchronization that succeeded. As on real systems, what was
// written before one that failed is lost even if a later one succeeds.
class FaultyFileSystem {
public:
    enum class Call { Write, Sync };

    FaultyFileSystem();
    ~FaultyFileSystem();
    FaultyFileSystem(const FaultyFileSystem&) = delete;
    FaultyFileSystem& operator=(const FaultyFileSystem&) = delete;

    // Fails calls of one kind: the nth from now, where 1 is the next one, and those after it, `times` in all.
    void Fail(Call call, int n, int times);
    void Heal() { m_times = 0; }
    // The number of calls since construction, and of those that failed.
    int Count(Call call) const { return call == Call::Write ? m_writes : m_syncs; }
    int Failed() const { return m_failed; }

    // Writes the database and its log at `path` to another path, as a power loss would leave them.
    void CopyAfterPowerLoss(const std::string& path, const std::string& target) const;

    struct Disk {
        std::string bytes;
        std::vector<std::pair<size_t, std::string>> unsynchronized;  // offset and bytes
    };

private:
    friend struct FaultyFile;

    bool FailsNow(Call call);
    Disk& DiskOf(const std::string& path);

    std::unique_ptr<sqlite3_vfs> m_system;
    sqlite3_vfs* m_real = nullptr;
    std::map<std::string, Disk> m_disks;  // by path
    Call m_call = Call::Write;
    int m_until = 0;
    int m_times = 0;
    int m_writes = 0;
    int m_syncs = 0;
    int m_failed = 0;
};

}  // namespace quellbrook::testing
