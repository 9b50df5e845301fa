#include "database/SqliteStatement.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/SqliteError.h"

#include <sqlite3.h>

#include <limits>

namespace quellbrook {

namespace {

ColumnKind KindOf(const char* declaration) {
    if (!declaration) return ColumnKind::Text;
    const std::string type = FoldCase(declaration);
    const auto holds = [&](const char* part) { return type.find(part) != std::string::npos; };
    if (holds("bool") || type == "bit") return ColumnKind::Boolean;
    if (holds("date") || holds("time")) return ColumnKind::Date;
    if (holds("int")) return ColumnKind::WholeNumber;
    for (const char* part : {"dec", "num", "money", "real", "floa", "doub"})
        if (holds(part)) return ColumnKind::Number;
    return ColumnKind::Text;
}

std::string_view TextAt(sqlite3_stmt* statement, int column) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return {bytes ? bytes : "", static_cast<size_t>(sqlite3_column_bytes(statement, column))};
}

void ReadText(std::string_view text, ColumnKind kind, TaggedValue& value) {
    if (kind == ColumnKind::Date) {
        if (const auto moment = DateTime::Parse(text)) {
            value = *moment;
            return;
        }
    }
    value = text;
}

void ReadWhole(int64_t number, ColumnKind kind, TaggedValue& value) {
    if (kind == ColumnKind::Boolean)
        value = number != 0;
    else
        value = TaggedValue::FromInteger(number);
}

}  // namespace

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

SqliteStatement::SqliteStatement(sqlite3* database, std::string_view sql, std::string_view source)
    : m_database(database) {
    if (sql.size() > static_cast<size_t>(std::numeric_limits<int>::max())) Raise(ErrorNumber::Overflow, source);
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr), source);
    if (!statement) Raise(ErrorNumber::General, source, "The statement text is empty.");
    m_statement.reset(statement);
}

SqliteStatement::SqliteStatement(sqlite3* database, const sql::RewrittenStatement& statement, std::string_view source)
    : SqliteStatement(database, std::string_view(statement.text), source) {
    m_temporaryTables = statement.temporaryTables;
}

void SqliteStatement::Check(int code, std::string_view source) const {
    if (code != SQLITE_OK) RaiseSqliteError(m_database, source);
}

void SqliteStatement::Bind(int position, int64_t value) {
    Check(sqlite3_bind_int64(m_statement.get(), position, value), "SqliteStatement.Bind");
}

void SqliteStatement::Bind(int position, std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        Raise(ErrorNumber::General, "SqliteStatement.Bind",
              "A text with a NUL character can't be stored or searched for.");
    Check(sqlite3_bind_text64(m_statement.get(), position, text.data() ? text.data() : "", text.size(), SQLITE_STATIC,
                              SQLITE_UTF8),
          "SqliteStatement.Bind");
}

void SqliteStatement::Bind(int position, const TaggedValue& value) {
    if (const auto* text = value.If<std::string>()) return Bind(position, std::string_view(*text));
    if (const auto* number = value.If<int32_t>()) return Bind(position, static_cast<int64_t>(*number));
    if (const auto* flag = value.If<bool>()) return Bind(position, static_cast<int64_t>(*flag));
    if (const auto* exact = value.If<Decimal>(); exact && exact->scale == 0) return Bind(position, exact->units);
    if (value.HasNoValue()) return Check(sqlite3_bind_null(m_statement.get(), position), "SqliteStatement.Bind");
    if (const auto* moment = value.If<DateTime>()) {
        const std::string text = moment->ToText();
        return Check(
            sqlite3_bind_text64(m_statement.get(), position, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8),
            "SqliteStatement.Bind");
    }
    Check(sqlite3_bind_double(m_statement.get(), position, ToDouble(value)), "SqliteStatement.Bind");
}

void SqliteStatement::Bind(const std::vector<TaggedValue>& values, std::string_view source) {
    if (values.size() != static_cast<size_t>(ParameterCount()))
        Raise(ErrorNumber::General, source, "The number of values differs from the number of parameters.");
    for (size_t i = 0; i < values.size(); ++i) Bind(static_cast<int>(i) + 1, values[i]);
}

int SqliteStatement::ParameterCount() const { return sqlite3_bind_parameter_count(m_statement.get()); }

bool SqliteStatement::Step(std::string_view source) {
    const int code = sqlite3_step(m_statement.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) RaiseSqliteError(m_database, source);
    return false;
}

void SqliteStatement::Reset() noexcept {
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
}

void SqliteStatement::Run(std::string_view source) {
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(m_statement.get());
    Reset();
    if (code != SQLITE_DONE) RaiseSqliteError(m_database, source);
}

Row SqliteStatement::MakeRow() {
    // SQLite automatically prepares a kept statement again after the schema has changed.
    const int preparation = sqlite3_stmt_status(m_statement.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
    if (preparation != m_preparation) {
        std::vector<std::string> names;
        m_kinds.clear();
        for (const ColumnDescription& column : Describe()) {
            names.push_back(column.name);
            m_kinds.push_back(column.kind);
        }
        m_columns = std::make_shared<const ColumnSet>(std::move(names));
        m_preparation = preparation;
    }
    return Row(m_columns, std::vector<TaggedValue>(m_kinds.size()));
}

void SqliteStatement::Read(Row& row) const {
    std::vector<TaggedValue>& values = row.MutableValues();
    sqlite3_stmt* const statement = m_statement.get();
    const int count = static_cast<int>(m_kinds.size());
    for (int i = 0; i < count; ++i) {
        TaggedValue& value = values[static_cast<size_t>(i)];
        const ColumnKind kind = m_kinds[static_cast<size_t>(i)];
        switch (sqlite3_column_type(statement, i)) {
        case SQLITE_NULL: value = Null(); break;
        case SQLITE_INTEGER: ReadWhole(sqlite3_column_int64(statement, i), kind, value); break;
        case SQLITE_FLOAT: value = sqlite3_column_double(statement, i); break;
        default: ReadText(TextAt(statement, i), kind, value);
        }
    }
}

std::vector<ColumnDescription> SqliteStatement::Describe() const {
    std::vector<ColumnDescription> columns;
    for (int i = 0; i < sqlite3_column_count(m_statement.get()); ++i) {
        const char* name = sqlite3_column_name(m_statement.get(), i);
        columns.push_back({name ? name : "", KindOf(sqlite3_column_decltype(m_statement.get(), i))});
    }
    return columns;
}

}  // namespace quellbrook
