#pragma once

#include "database/Connection.h"
#include "database/DatabaseFile.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook {

class BackgroundCheck;
class SqliteConnection;
enum class SchemaOwner;

// A department database in one SQLite file.
class SqliteEngine : public Engine {
public:
    // How long a statement waits for a lock of another connection. Opening does not wait longer than 5 seconds.
    static constexpr int BusyMilliseconds = 60'000;

    // Opens an existing database of this program. One of an older version is upgraded, after a copy of it has been made
    // beside it. Raises error 5 with a message for the user if the file is missing, not a database, another program's,
    // newer than this program, incomplete, damaged, write-protected or locked; such a file is not changed. Only a file
    // of up to 64 MiB is checked for damage as a whole, see CheckInBackground.
    static std::shared_ptr<SqliteEngine> Open(const std::string& path, int busyMilliseconds = BusyMilliseconds);

    // Opens an existing database of the host's own schema, which has at least the tables and columns of
    // examples/evidence-tab/schema.sql. Raises error 5 with a message for the user, which names a missing table or
    // column, or says that the file is missing, not a database, damaged, write-protected, locked or on another machine.
    // Changes nothing in the file but its journal mode, which becomes a write-ahead log. Does not use our side tables
    // and facts, even if they are there. A table BatchMark (MarkNo INTEGER PRIMARY KEY, Token INTEGER NOT NULL) is used
    // if it is there, so that a commit of unknown outcome can be checked.
    static std::shared_ptr<SqliteEngine> OpenHostSchema(const std::string& path,
                                                        int busyMilliseconds = BusyMilliseconds);

    // What an administrator should know about the opening, one sentence or more each: an upgrade, and side tables that
    // are not used since they may be wrong.
    const std::vector<std::string>& Notes() const { return m_notes; }

    // Starts to check a larger file for damage. After damage has been found, no connection can be opened or reused.
    void CheckInBackground();
    // Returns when the check has ended.
    void WaitForCheck() const;

    std::unique_ptr<Connection> Open() override;
    bool WasCommitted(const std::string& transactionName) override;
    const Dialect& GetDialect() const override { return m_dialect; }

private:
    SqliteEngine(std::string path, int busyMilliseconds, SchemaOwner owner, Dialect dialect)
        : m_path(std::move(path)),
          m_busyMilliseconds(busyMilliseconds),
          m_owner(owner),
          m_dialect(std::move(dialect)) {}

    // Raises an error if another file has taken the place of ours.
    void RequireSameFile() const;
    std::unique_ptr<SqliteConnection> Connect() const;

    std::string m_path;
    std::optional<FileIdentity> m_file = IdentityOf(m_path);
    int m_busyMilliseconds;
    SchemaOwner m_owner;
    Dialect m_dialect;
    std::vector<std::string> m_notes;
    std::shared_ptr<const BackgroundCheck> m_check;
};

}  // namespace quellbrook
