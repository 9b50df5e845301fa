#include "database/BatchMarks.h"

#include "base/Error.h"

#include <sqlite3.h>

#include <charconv>
#include <string_view>
#include <utility>

namespace quellbrook {

namespace {

const char* const writeSource = "BatchMarks.Write";
const char* const readSource = "BatchMarks.WasCommitted";

const char* const withoutMark = "unmarked";

// Few enough for one page of the database, which keeps the cost of a batch low.
constexpr int64_t marksKept = 64;

// A mark's name is its number and its token, which distinguishes it from a later mark with the same number.
std::pair<int64_t, int64_t> Parse(std::string_view mark) {
    int64_t number = 0, token = 0;
    const char* const end = mark.data() + mark.size();
    const auto first = std::from_chars(mark.data(), end, number);
    if (first.ec == std::errc() && first.ptr != end) std::from_chars(first.ptr + 1, end, token);
    return {number, token};
}

}  // namespace

bool BatchMarks::HasTable() const {
    return sqlite3_table_column_metadata(m_database, "main", "BatchMark", "Token", nullptr, nullptr, nullptr, nullptr,
                                         nullptr) == SQLITE_OK;
}

std::string BatchMarks::Write() {
    if (!m_delete && !HasTable()) return withoutMark;
    if (!m_delete) {
        m_insert.emplace(m_database, "INSERT INTO BatchMark (Token) VALUES (?)", writeSource);
        m_delete.emplace(m_database, "DELETE FROM BatchMark WHERE MarkNo <= ?", writeSource);
    }
    int64_t token = 0;
    sqlite3_randomness(sizeof token, &token);
    m_insert->Bind(1, token);
    m_insert->Run(writeSource);
    const int64_t number = sqlite3_last_insert_rowid(m_database);
    m_delete->Bind(1, number - marksKept);
    m_delete->Run(writeSource);
    return std::to_string(number) + " " + std::to_string(token);
}

bool BatchMarks::WasCommitted(const std::string& mark) const {
    if (mark == withoutMark) Raise(ErrorNumber::General, readSource, "The database has no table BatchMark.");
    const auto [number, token] = Parse(mark);
    SqliteStatement next(m_database,
                         "SELECT MarkNo = ?1, Token = ?2 FROM BatchMark WHERE MarkNo >= ?1 ORDER BY MarkNo LIMIT 1",
                         readSource);
    next.Bind(1, number);
    next.Bind(2, token);
    if (!next.Step(readSource)) return false;
    Row row = next.MakeRow();
    next.Read(row);
    if (row.At(0) != TaggedValue(1))
        Raise(ErrorNumber::General, readSource, "Too many batches have been completed since then.");
    return row.At(1) == TaggedValue(1);
}

}  // namespace quellbrook
