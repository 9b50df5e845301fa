#include "benchmarks/Statement.h"

#include <stdexcept>

namespace quellbrook::bench {

namespace {

void Check(int code, sqlite3* database) {
    if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace

Statement::Statement(sqlite3* database, const std::string& sql) {
    sqlite3_stmt* handle = nullptr;
    Check(sqlite3_prepare_v3(database, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &handle, nullptr), database);
    m_handle.reset(handle);
}

Statement& Statement::Bind(int position, int32_t number) {
    Check(sqlite3_bind_int(m_handle.get(), position, number), sqlite3_db_handle(m_handle.get()));
    return *this;
}

Statement& Statement::Bind(int position, const std::string& text) {
    Check(sqlite3_bind_text(m_handle.get(), position, text.data(), static_cast<int>(text.size()), SQLITE_STATIC),
          sqlite3_db_handle(m_handle.get()));
    return *this;
}

bool Statement::Step() {
    const int code = sqlite3_step(m_handle.get());
    if (code == SQLITE_ROW) return true;
    const int end = sqlite3_reset(m_handle.get());
    Check(code == SQLITE_DONE ? end : code, sqlite3_db_handle(m_handle.get()));
    return false;
}

std::string Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_handle.get(), column));
    return text ? std::string(text, static_cast<size_t>(sqlite3_column_bytes(m_handle.get(), column))) : std::string();
}

}  // namespace quellbrook::bench
