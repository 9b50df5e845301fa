#include "database/BackgroundCheck.h"

#include "database/PageCheck.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <chrono>

namespace quellbrook {

namespace {

// The first connections to a file lock it for a moment.
constexpr int lockMilliseconds = 5000;

}  // namespace

BackgroundCheck::BackgroundCheck(const std::string& path)
    : m_database(std::make_unique<SQLite::Database>(path, SQLite::OPEN_READONLY, lockMilliseconds)),
      m_end(std::async(std::launch::async, [this] { Run(); })) {}

BackgroundCheck::~BackgroundCheck() {
    using namespace std::chrono_literals;
    // An interruption has no effect before the statement starts.
    do sqlite3_interrupt(m_database->getHandle());
    while (m_end.wait_for(1ms) != std::future_status::ready);
}

void BackgroundCheck::Run() {
    try {
        m_hasFoundDamage = !IsFileSound(*m_database);
    } catch (const SQLite::Exception& failure) {
        m_hasFoundDamage = failure.getErrorCode() == SQLITE_CORRUPT || failure.getErrorCode() == SQLITE_NOTADB;
    }
}

}  // namespace quellbrook
