#include "tests/support/FaultyFileSystem.h"

#include <sqlite3.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <new>

namespace quellbrook::testing {

// SQLite allocates these bytes; the real file follows them.
struct FaultyFile {
    sqlite3_file base;
    FaultyFileSystem* system;
    FaultyFileSystem::Disk* disk;  // null for a file that is neither a database nor a log

    static FaultyFile& From(sqlite3_file* file) { return *reinterpret_cast<FaultyFile*>(file); }
    static sqlite3_file* Real(sqlite3_file* file) {
        return reinterpret_cast<sqlite3_file*>(reinterpret_cast<FaultyFile*>(file) + 1);
    }
    static const sqlite3_io_methods& Methods(sqlite3_file* file) { return *Real(file)->pMethods; }

    static int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
        const FaultyFile& self = From(file);
        if (self.disk && self.system->FailsNow(FaultyFileSystem::Call::Write)) return SQLITE_IOERR_WRITE;
        if (self.disk)
            self.disk->unsynchronized.emplace_back(offset, std::string(static_cast<const char*>(bytes), count));
        return Methods(file).xWrite(Real(file), bytes, count, offset);
    }

    static int Sync(sqlite3_file* file, int) {
        const FaultyFile& self = From(file);
        const bool fails = self.disk && self.system->FailsNow(FaultyFileSystem::Call::Sync);
        if (self.disk) {
            std::string& bytes = self.disk->bytes;
            for (const auto& [offset, written] : self.disk->unsynchronized) {
                if (fails) break;
                if (bytes.size() < offset + written.size()) bytes.resize(offset + written.size());
                bytes.replace(offset, written.size(), written);
            }
            self.disk->unsynchronized.clear();
        }
        return fails ? SQLITE_IOERR_FSYNC : SQLITE_OK;
    }

    static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
        if (Disk* disk = From(file).disk) disk->bytes.resize(static_cast<size_t>(size));
        return Methods(file).xTruncate(Real(file), size);
    }

    static int Open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags);
    static int Delete(sqlite3_vfs* vfs, const char* name, int syncDirectory);

    using Disk = FaultyFileSystem::Disk;
};

namespace {

using F = FaultyFile;

FaultyFileSystem& SystemOf(sqlite3_vfs* vfs) { return *static_cast<FaultyFileSystem*>(vfs->pAppData); }

const sqlite3_io_methods methods = {
    3,
    [](sqlite3_file* f) { return F::Methods(f).xClose(F::Real(f)); },
    [](sqlite3_file* f, void* to, int n, sqlite3_int64 at) { return F::Methods(f).xRead(F::Real(f), to, n, at); },
    F::Write,
    F::Truncate,
    F::Sync,
    [](sqlite3_file* f, sqlite3_int64* size) { return F::Methods(f).xFileSize(F::Real(f), size); },
    [](sqlite3_file* f, int level) { return F::Methods(f).xLock(F::Real(f), level); },
    [](sqlite3_file* f, int level) { return F::Methods(f).xUnlock(F::Real(f), level); },
    [](sqlite3_file* f, int* out) { return F::Methods(f).xCheckReservedLock(F::Real(f), out); },
    [](sqlite3_file* f, int op, void* arg) { return F::Methods(f).xFileControl(F::Real(f), op, arg); },
    [](sqlite3_file* f) { return F::Methods(f).xSectorSize(F::Real(f)); },
    [](sqlite3_file* f) { return F::Methods(f).xDeviceCharacteristics(F::Real(f)); },
    [](sqlite3_file* f, int page, int size, int extend, void volatile** out) {
        return F::Methods(f).xShmMap(F::Real(f), page, size, extend, out);
    },
    [](sqlite3_file* f, int offset, int n, int flags) { return F::Methods(f).xShmLock(F::Real(f), offset, n, flags); },
    [](sqlite3_file* f) { F::Methods(f).xShmBarrier(F::Real(f)); },
    [](sqlite3_file* f, int deleteFlag) { return F::Methods(f).xShmUnmap(F::Real(f), deleteFlag); },
    [](sqlite3_file* f, sqlite3_int64 offset, int amount, void** out) {
        return F::Methods(f).xFetch(F::Real(f), offset, amount, out);
    },
    [](sqlite3_file* f, sqlite3_int64 offset, void* page) { return F::Methods(f).xUnfetch(F::Real(f), offset, page); },
};

}  // namespace

int FaultyFile::Open(sqlite3_vfs* vfs, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    FaultyFileSystem& system = SystemOf(vfs);
    FaultyFile& self = From(file);
    self.base.pMethods = nullptr;
    self.system = &system;
    self.disk = (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_WAL)) != 0 ? &system.DiskOf(name) : nullptr;
    const int code = system.m_real->xOpen(system.m_real, name, Real(file), flags, outFlags);
    if (Real(file)->pMethods) self.base.pMethods = &methods;
    return code;
}

int FaultyFile::Delete(sqlite3_vfs* vfs, const char* name, int syncDirectory) {
    FaultyFileSystem& system = SystemOf(vfs);
    if (const auto disk = system.m_disks.find(name); disk != system.m_disks.end()) disk->second = {};
    return system.m_real->xDelete(system.m_real, name, syncDirectory);
}

FaultyFileSystem::FaultyFileSystem() : m_system(std::make_unique<sqlite3_vfs>()) {
    sqlite3_initialize();
    m_real = sqlite3_vfs_find(nullptr);
    *m_system = *m_real;
    m_system->pNext = nullptr;
    m_system->zName = "quellbrook-faulty";
    m_system->szOsFile = static_cast<int>(sizeof(FaultyFile)) + m_real->szOsFile;
    m_system->pAppData = this;
    m_system->xOpen = FaultyFile::Open;
    m_system->xDelete = FaultyFile::Delete;
    sqlite3_vfs_register(m_system.get(), 1);
}

FaultyFileSystem::~FaultyFileSystem() {
    sqlite3_vfs_unregister(m_system.get());
    sqlite3_vfs_register(m_real, 1);
}

void FaultyFileSystem::Fail(Call call, int n, int times) {
    m_call = call;
    m_until = n;
    m_times = times;
}

bool FaultyFileSystem::FailsNow(Call call) {
    ++(call == Call::Write ? m_writes : m_syncs);
    if (m_times == 0 || call != m_call || --m_until > 0) return false;
    --m_times;
    ++m_failed;
    return true;
}

FaultyFileSystem::Disk& FaultyFileSystem::DiskOf(const std::string& path) {
    const auto [entry, isNew] = m_disks.try_emplace(path);
    if (isNew) {
        std::ifstream file(path, std::ios::binary);
        entry->second.bytes.assign(std::istreambuf_iterator<char>(file), {});
    }
    return entry->second;
}

void FaultyFileSystem::CopyAfterPowerLoss(const std::string& path, const std::string& target) const {
    for (const char* ending : {"", "-wal"}) {
        const auto disk = m_disks.find(path + ending);
        if (disk == m_disks.end()) continue;
        std::ofstream(target + ending, std::ios::binary) << disk->second.bytes;
    }
}

}  // namespace quellbrook::testing
