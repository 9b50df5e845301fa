#include "base/Error.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace quellbrook {

namespace {

const char* const source = "CreateDatabase";

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
    Raise(ErrorNumber::General, source, "The database '" + path + "' can't be created: " + reason + ".");
}

[[noreturn]] void RefuseForSystem(const std::string& path) {
    Refuse(path, std::error_code(errno, std::generic_category()).message());
}

void RefuseIfPresent(const std::string& path) {
    std::error_code failure;
    if (std::filesystem::exists(path, failure))
        Raise(ErrorNumber::General, source, "The database can't be created: the file '" + path + "' already exists.");
}

void RemoveCompanions(const std::string& path) {
    std::error_code ignored;
    for (const char* suffix : {"-wal", "-shm", "-journal"}) std::filesystem::remove(path + suffix, ignored);
}

// The file in which a database is created before it gets its name. A lock keeps another program that creates the same
// database away from it. Only the owner may read it, and SQLite gives its companions the same permissions.
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::string& path) : m_path(path + ".unfinished") {
        m_descriptor = open(m_path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (m_descriptor < 0) RefuseForSystem(path);
        if (flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 || !IsStillThere()) {
            close(m_descriptor);
            Refuse(path, "another program is creating it");
        }
        RemoveCompanions(m_path);
        if (ftruncate(m_descriptor, 0) != 0) {
            close(m_descriptor);
            RefuseForSystem(path);
        }
    }
    ~UnfinishedFile() {
        if (!m_isFinished) {
            std::error_code ignored;
            std::filesystem::remove(m_path, ignored);
            RemoveCompanions(m_path);
        }
        close(m_descriptor);
    }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::string& Path() const { return m_path; }
    void Rename(const std::string& path) {
        std::filesystem::rename(m_path, path);
        m_isFinished = true;
    }

private:
    // False if the other program has renamed or deleted the file in the meantime.
    bool IsStillThere() const {
        struct stat opened {
        }, named{};
        return fstat(m_descriptor, &opened) == 0 && stat(m_path.c_str(), &named) == 0 &&
               opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
    }

    std::string m_path;
    int m_descriptor = -1;
    bool m_isFinished = false;
};

void RunScripts(const std::string& path) {
    SQLite::Database database(path, SQLite::OPEN_READWRITE);
    database.exec("PRAGMA journal_mode = WAL");
    database.exec("PRAGMA foreign_keys = ON");
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    database.exec("PRAGMA application_id = " + std::to_string(DatabaseApplicationId));
    for (const std::string& statement : SqliteSchemaStatements()) database.exec(statement);
    database.exec("PRAGMA user_version = " + std::to_string(SchemaVersion));
    transaction.commit();
}

}  // namespace

void CreateDatabase(const std::string& path) {
    RefuseIfPresent(path);
    UnfinishedFile file(path);
    RefuseIfPresent(path);
    try {
        RunScripts(file.Path());
        file.Rename(path);
    } catch (const std::exception& failure) {
        Refuse(path, failure.what());
    }
}

}  // namespace quellbrook
