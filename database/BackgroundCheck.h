#pragma once

#include <atomic>
#include <future>
#include <memory>
#include <string>

namespace SQLite {
class Database;
}

namespace quellbrook {

// Checks a whole database file for damage, on a thread of its own. The destructor stops the check. A file that can't be
// read at the moment counts as undamaged.
class BackgroundCheck {
public:
    explicit BackgroundCheck(const std::string& path);
    ~BackgroundCheck();
    BackgroundCheck(const BackgroundCheck&) = delete;
    BackgroundCheck& operator=(const BackgroundCheck&) = delete;

    bool HasFoundDamage() const { return m_hasFoundDamage; }
    // Returns when the check has ended.
    void Wait() const { m_end.wait(); }

private:
    void Run();

    std::unique_ptr<SQLite::Database> m_database;
    std::atomic<bool> m_hasFoundDamage = false;
    std::future<void> m_end;
};

}  // namespace quellbrook
