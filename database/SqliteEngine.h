#pragma once

#include "database/Connection.h"

#include <memory>
#include <string>

namespace quellbrook {

// A department database in one SQLite file.
class SqliteEngine : public Engine {
public:
    // How long a statement waits for a lock that somebody else holds.
    static constexpr int BusyMilliseconds = 5000;

    // An existing database of ours. Error 5 with a sentence for a file that is absent, not a database, another
    // program's, newer than this program, unfinished, damaged, write-protected or locked; such a file is not changed.
    // A file of up to 64 MiB is searched for damage as a whole; of a larger one only what is read at opening.
    static std::shared_ptr<SqliteEngine> Open(const std::string& path, int busyMilliseconds = BusyMilliseconds);

    std::unique_ptr<Connection> Open() override;
    const Dialect& GetDialect() const override { return m_dialect; }
    const std::string& Path() const { return m_path; }

private:
    SqliteEngine(std::string path, int busyMilliseconds, Dialect dialect)
        : m_path(std::move(path)), m_busyMilliseconds(busyMilliseconds), m_dialect(std::move(dialect)) {}

    std::string m_path;
    int m_busyMilliseconds;
    Dialect m_dialect;
};

}  // namespace quellbrook
