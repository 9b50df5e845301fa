#include "database/SqliteConnection.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/SqliteError.h"
#include "database/SqliteKeys.h"
#include "database/SqliteStatement.h"
#include "sql/tsql/TransactSqlRewriter.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <algorithm>
#include <variant>

namespace quellbrook {

namespace {

constexpr size_t keptQueryLimit = 16;
constexpr size_t keptQueryLength = 4096;
constexpr size_t keptShapeLimit = 64;
const char* const executeSource = "SqliteConnection.Execute";
const char* const querySource = "SqliteConnection.Query";

// Recursive triggers make the triggers on deletion run for rows that REPLACE removes, too.
const char* const settings =
    "PRAGMA journal_mode = WAL;"
    "PRAGMA synchronous = FULL;"
    "PRAGMA foreign_keys = ON;"
    "PRAGMA recursive_triggers = ON;"
    "PRAGMA temp_store = MEMORY;"
    "PRAGMA cache_size = -65536";

class RunEnd {
public:
    explicit RunEnd(SqliteStatement& statement) : m_statement(statement) {}
    ~RunEnd() { m_statement.Reset(); }
    RunEnd(const RunEnd&) = delete;
    RunEnd& operator=(const RunEnd&) = delete;

private:
    SqliteStatement& m_statement;
};

void RunToEnd(SqliteStatement& statement) {
    while (statement.Step(executeSource)) {
    }
}

void RunWith(SqliteStatement& statement, const sql::StatementShape& shape) {
    const RunEnd end(statement);
    const size_t count = std::min(shape.values.size(), static_cast<size_t>(statement.ParameterCount()));
    for (size_t i = 0; i < count; ++i) {
        const int position = static_cast<int>(i) + 1;
        if (const auto* number = std::get_if<int64_t>(&shape.values[i]))
            statement.Bind(position, *number);
        else
            statement.Bind(position, std::get<std::string_view>(shape.values[i]));
    }
    RunToEnd(statement);
}

std::string Quoted(const std::string& name) { return "\"" + Replace(name, "\"", "\"\"") + "\""; }

}  // namespace

SqliteConnection::SqliteConnection(const std::string& path, int busyMilliseconds) {
    try {
        m_database =
            std::make_unique<SQLite::Database>(path, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX, busyMilliseconds);
        m_database->exec(settings);
    } catch (const SQLite::Exception& failure) {
        RaiseOpenFailure(path, failure.getExtendedErrorCode(), failure.what());
    }
}

SqliteConnection::~SqliteConnection() = default;

template <typename Work>
auto SqliteConnection::Watched(Work work) {
    try {
        return work();
    } catch (...) {
        if (!IsUsableAfterLastCall(m_database->getHandle())) m_isHealthy = false;
        throw;
    }
}

void SqliteConnection::Query(const std::string& sql, const std::vector<TaggedValue>& parameters,
                             const RowReceiver& receiver) {
    Watched([&] {
        const sql::QueryShape shape = sql::FindQueryShape(sql);
        StatementPtr statement = TakeQuery(shape, parameters);
        if (statement->Step(querySource)) {
            Row row = statement->MakeRow();
            do statement->Read(row);
            while (receiver(row) && statement->Step(querySource));
        }
        statement->Reset();
        KeepQuery(shape.text, std::move(statement));
    });
}

SqliteConnection::StatementPtr SqliteConnection::TakeQuery(const sql::QueryShape& shape,
                                                           const std::vector<TaggedValue>& parameters) {
    StatementPtr statement = TakeKeptQuery(shape.text);
    if (!statement) statement = PrepareQuery(shape.text);
    if (static_cast<size_t>(statement->ParameterCount()) != shape.keys.size() + parameters.size())
        Raise(ErrorNumber::General, querySource, "The number of values differs from the number of parameters.");
    for (size_t i = 0; i < parameters.size(); ++i) statement->Bind(static_cast<int>(i) + 1, parameters[i]);
    for (size_t i = 0; i < shape.keys.size(); ++i) {
        const int position = static_cast<int>(i) + 1;
        if (const auto* number = std::get_if<int64_t>(&shape.keys[i]))
            statement->Bind(position, *number);
        else
            statement->Bind(position, std::string_view(std::get<std::string>(shape.keys[i])));
    }
    return statement;
}

SqliteConnection::StatementPtr SqliteConnection::TakeKeptQuery(const std::string& text) {
    const auto found =
        std::find_if(m_keptQueries.begin(), m_keptQueries.end(), [&](const auto& kept) { return kept.first == text; });
    if (found == m_keptQueries.end()) return nullptr;
    StatementPtr statement = std::move(found->second);
    m_keptQueries.erase(found);
    return statement;
}

SqliteConnection::StatementPtr SqliteConnection::PrepareQuery(const std::string& text) {
    const sql::TranslatedText translated = sql::TranslateTransactSql(text, sql::SqlTarget::Sqlite);
    if (translated.statements.size() != 1)
        Raise(ErrorNumber::General, querySource, "A query must be one SELECT statement.");
    return std::make_unique<SqliteStatement>(m_database->getHandle(), translated.statements[0], querySource);
}

void SqliteConnection::KeepQuery(const std::string& text, StatementPtr statement) {
    if (text.size() > keptQueryLength) return;
    if (m_keptQueries.size() >= keptQueryLimit) m_keptQueries.erase(m_keptQueries.begin());
    m_keptQueries.emplace_back(text, std::move(statement));
}

void SqliteConnection::Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    Watched([&] {
        if (m_inBatch && parameters.empty() && ExecuteKept(sql)) return;
        ExecutePlain(sql, parameters);
    });
}

void SqliteConnection::ExecutePlain(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    const sql::TranslatedText translated = sql::TranslateTransactSql(sql, sql::SqlTarget::Sqlite);
    m_temporaryTables += translated.createdTables;
    if (IsOfTemporaryTables(translated)) return;
    if (!parameters.empty() && translated.statements.size() != 1)
        Raise(ErrorNumber::General, executeSource, "Only a single statement can have parameters.");
    for (const std::string& text : translated.statements) {
        SqliteStatement statement(m_database->getHandle(), text, executeSource);
        if (static_cast<size_t>(statement.ParameterCount()) != parameters.size())
            Raise(ErrorNumber::General, executeSource, "The number of values differs from the number of parameters.");
        for (size_t i = 0; i < parameters.size(); ++i) statement.Bind(static_cast<int>(i) + 1, parameters[i]);
        RunToEnd(statement);
    }
    m_temporaryTables -= translated.droppedTables;
}

// Carries out the making and dropping of a temporary table in a batch as far as that needs no change of the schema.
// False where the statement is to be executed as it stands.
bool SqliteConnection::IsOfTemporaryTables(const sql::TranslatedText& text) {
    if (text.createdTables + text.droppedTables == 0) return false;
    const bool isAlone = m_inBatch && text.statements.size() == 1;
    if (isAlone && text.createdTables == 1 && m_temporary.Take(text.statements[0])) return true;
    for (const std::string& statement : text.statements) {
        const std::string name = TemporaryTables::NameIn(statement);
        if (!m_temporary.IsSetAside(name)) continue;
        Control(("DROP TABLE temp." + name).c_str(), executeSource);
        m_temporary.Forget(name);
    }
    if (!isAlone) return false;
    if (text.createdTables == 1) {
        Control(text.statements[0].c_str(), executeSource);
        m_temporary.Created(text.statements[0]);
        return true;
    }
    const std::string name = TemporaryTables::NameIn(text.statements[0]);
    if (!m_temporary.SetAside(name)) return false;
    Control(("DELETE FROM temp." + name).c_str(), executeSource);
    --m_temporaryTables;
    return true;
}

bool SqliteConnection::ExecuteKept(const std::string& sql) {
    if (!sql::FindShape(sql, m_shape)) return false;
    auto found = m_keptShapes.find(m_shape.text);
    if (found == m_keptShapes.end()) found = m_keptShapes.emplace(m_shape.text, PrepareShape(m_shape.text)).first;
    for (SqliteStatement& statement : found->second) RunWith(statement, m_shape);
    return !found->second.empty();
}

SqliteConnection::KeptShape SqliteConnection::PrepareShape(const std::string& text) {
    const sql::TranslatedText translated = sql::TranslateTransactSql(text, sql::SqlTarget::Sqlite);
    KeptShape shape;
    try {
        for (const std::string& statement : translated.statements)
            shape.emplace_back(m_database->getHandle(), statement, executeSource);
    } catch (const Error&) {
        // A literal stands where no parameter may, or the statement is wrong: its own text tells.
        shape.clear();
    }
    return shape;
}

std::vector<ColumnDescription> SqliteConnection::DescribeTable(const std::string& table) {
    return Watched([&] {
        return SqliteStatement(m_database->getHandle(), "SELECT * FROM " + Quoted(table),
                               "SqliteConnection.DescribeTable")
            .Describe();
    });
}

int32_t SqliteConnection::LastIdentity() {
    return ToInt32(TaggedValue::FromInteger(sqlite3_last_insert_rowid(m_database->getHandle())));
}

void SqliteConnection::Control(const char* sql, const char* source) {
    Watched([&] {
        if (sqlite3_exec(m_database->getHandle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            RaiseSqliteError(m_database->getHandle(), source);
    });
}

void SqliteConnection::Begin() {
    Control("BEGIN IMMEDIATE", "SqliteConnection.Begin");
    m_inBatch = true;
}

void SqliteConnection::Commit() {
    Control("COMMIT", "SqliteConnection.Commit");
    m_temporary.Commit();
    EndBatch();
}

void SqliteConnection::EndBatch() noexcept {
    if (m_keptShapes.size() > keptShapeLimit) m_keptShapes.clear();
    m_inBatch = false;
}

void SqliteConnection::Rollback() noexcept {
    if (m_inBatch) m_temporary.Rollback();
    EndBatch();
    if (sqlite3_get_autocommit(m_database->getHandle())) return;
    if (sqlite3_exec(m_database->getHandle(), "ROLLBACK", nullptr, nullptr, nullptr) != SQLITE_OK) m_isHealthy = false;
}

bool SqliteConnection::IsHealthy() {
    int hasMoved = 0;
    sqlite3_file_control(m_database->getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    return m_isHealthy && !hasMoved;
}

std::vector<RowKey> SqliteConnection::Keys() const { return ReadKeys(m_database->getHandle()); }

void SqliteConnection::Reset() {
    Rollback();
    if (m_temporaryTables > 0) DropTemporaryTables();
}

void SqliteConnection::DropTemporaryTables() {
    std::vector<std::string> names;
    SqliteStatement tables(m_database->getHandle(), "SELECT name FROM temp.sqlite_schema WHERE type = 'table'",
                           "SqliteConnection.Reset");
    while (tables.Step("SqliteConnection.Reset")) {
        Row row = tables.MakeRow();
        tables.Read(row);
        names.push_back(ToText(row.At(0)));
    }
    tables.Reset();
    for (const std::string& name : names)
        Control(("DROP TABLE temp." + Quoted(name)).c_str(), "SqliteConnection.Reset");
    m_temporaryTables = 0;
    m_temporary.Clear();
}

}  // namespace quellbrook
