#include "database/StatementCache.h"

#include "base/Error.h"
#include "sql/tsql/TransactSqlRewriter.h"

#include <algorithm>

namespace quellbrook {

namespace {

constexpr size_t queryLimit = 16;
constexpr size_t longestQuery = 4096;
constexpr size_t batchLimit = 64;

}  // namespace

std::unique_ptr<SqliteStatement> StatementCache::TakeQuery(const std::string& text) {
    const auto found =
        std::find_if(m_queries.begin(), m_queries.end(), [&](const auto& kept) { return kept.first == text; });
    if (found == m_queries.end()) return PrepareQuery(text);
    std::unique_ptr<SqliteStatement> query = std::move(found->second);
    m_queries.erase(found);
    return query;
}

std::unique_ptr<SqliteStatement> StatementCache::PrepareQuery(const std::string& text) const {
    const char* const source = "SqliteConnection.Query";
    const auto statements = sql::RewriteTransactSql(text);
    if (statements.size() != 1 || statements[0].kind != sql::StatementKind::Query)
        Raise(ErrorNumber::General, source, "A query must be one SELECT statement.");
    return std::make_unique<SqliteStatement>(m_database, statements[0], source);
}

void StatementCache::KeepQuery(const std::string& text, std::unique_ptr<SqliteStatement> query) {
    if (text.size() > longestQuery) return;
    if (m_queries.size() >= queryLimit) m_queries.erase(m_queries.begin());
    m_queries.emplace_back(text, std::move(query));
}

std::vector<SqliteStatement>& StatementCache::ForBatch(const std::string& normalizedText) {
    auto found = m_ofBatches.find(normalizedText);
    if (found == m_ofBatches.end()) found = m_ofBatches.emplace(normalizedText, PrepareForBatch(normalizedText)).first;
    return found->second;
}

std::vector<SqliteStatement> StatementCache::PrepareForBatch(const std::string& normalizedText) const {
    std::vector<SqliteStatement> prepared;
    try {
        for (const sql::RewrittenStatement& statement : sql::RewriteTransactSql(normalizedText))
            prepared.emplace_back(m_database, statement, "SqliteConnection.Execute");
    } catch (const Error&) {
        // Executing the original text reports the error.
        prepared.clear();
    }
    return prepared;
}

void StatementCache::EndBatch() noexcept {
    if (m_ofBatches.size() > batchLimit) m_ofBatches.clear();
}

}  // namespace quellbrook
