#include "host/HostDatabase.h"

#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/Text.h"
#include "host/HostServices.h"
#include "host/TransferOutcome.h"
#include "sql/Literals.h"

#include <pugixml.hpp>

#include <algorithm>

namespace quellbrook {

namespace {

ConnectionPool::Lease Borrow() { return HostServices::Current().Pool().Borrow(); }

Dialect CurrentDialect() {
    HostServices& services = HostServices::Current();
    return services.HasEngine() ? services.Pool().GetDialect() : Dialect();
}

ColumnKind KindOf(const std::vector<ColumnDescription>& columns, const std::string& name) {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const ColumnDescription& column) { return EqualsNoCase(column.name, name); });
    return found == columns.end() ? ColumnKind::Text : found->kind;
}

// A row document contains only texts; the column determines the type.
TaggedValue ValueFor(const std::string& text, ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Boolean: return ToBool(text);
    case ColumnKind::WholeNumber: return ToInt32(text);
    case ColumnKind::Number: return ToDouble(text);
    case ColumnKind::Date: return ToDateTime(text);
    case ColumnKind::Text: break;
    }
    return text;
}

bool WasCommitted(const std::string& transactionName, const Error& failure) {
    try {
        return HostServices::Current().Pool().WasCommitted(transactionName);
    } catch (...) {
        LogFailure("HostDatabase.ExecuteBatch", CurrentError().Description());
        throw UnknownOutcome(failure.Number(), failure.Source(), failure.Description());
    }
}

// The work begins with the transaction and ends with its commit.
void InTransaction(Connection& connection, const std::function<void()>& work) {
    try {
        work();
    } catch (...) {
        const Error failure = CurrentError();
        const std::string name = connection.TransactionName();
        connection.Rollback();
        if (name.empty() || !WasCommitted(name, failure)) throw;
        LogFailure(failure.Source(), failure.Description());
    }
}

RowList AllRows(Connection& connection, const std::string& sql, const std::vector<TaggedValue>& parameters) {
    RowList rows;
    connection.Query(sql, parameters, [&](const Row& row) {
        rows.push_back(row);
        return true;
    });
    return rows;
}

std::string InsertText(const std::string& table, const std::vector<std::string>& columns) {
    if (columns.empty()) return "INSERT INTO " + table + " DEFAULT VALUES";
    return "INSERT INTO " + table + " (" + Join(columns, ",") + ") VALUES (" +
           Join(std::vector<std::string>(columns.size(), "?"), ",") + ")";
}

}  // namespace

RowList HostDatabase::QueryRows(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    return AllRows(*Borrow(), sql, parameters);
}

std::optional<Row> HostDatabase::QueryRow(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    std::optional<Row> first;
    Borrow()->Query(sql, parameters, [&](const Row& row) {
        first = row;
        return false;
    });
    return first;
}

void HostDatabase::ForEachRow(const std::string& sql, const std::function<bool(const Row&)>& receiver,
                              const std::vector<TaggedValue>& parameters) {
    Borrow()->Query(sql, parameters, receiver);
}

TaggedValue HostDatabase::LookupValue(const std::string& table, const std::string& expression,
                                      const std::vector<std::string>& conditions) {
    std::string sql = "SELECT " + expression + " FROM " + table;
    if (!conditions.empty()) sql += " WHERE " + Join(conditions, " AND ");
    const std::optional<Row> row = QueryRow(sql);
    return row ? row->At(0) : TaggedValue(Null());
}

void HostDatabase::Execute(const std::string& sql) { ExecuteWithParameters(sql, {}); }

void HostDatabase::ExecuteWithParameters(const std::string& sql, const std::vector<TaggedValue>& parameters) {
    const ConnectionPool::Lease connection = Borrow();
    InTransaction(*connection, [&] {
        connection->Begin();
        connection->Execute(sql, parameters);
        connection->Commit();
    });
}

void HostDatabase::ExecuteBatch(const std::vector<std::string>& statements, const BatchCheck& before) {
    const ConnectionPool::Lease connection = Borrow();
    InTransaction(*connection, [&] {
        const std::vector<RowList> results = connection->BeginReading(before.queries);
        if (before.check)
            before.check(results, [&](const std::string& sql, const std::vector<TaggedValue>& parameters) {
                return AllRows(*connection, sql, parameters);
            });
        connection->ExecuteAndCommit(statements);
    });
}

int32_t HostDatabase::InsertRow(const std::string& table, const std::string& keyColumn, const pugi::xml_node& row) {
    const ConnectionPool::Lease connection = Borrow();
    const std::vector<ColumnDescription> known = connection->DescribeTable(table);
    const bool hasKey = std::any_of(known.begin(), known.end(), [&](const ColumnDescription& column) {
        return EqualsNoCase(column.name, keyColumn);
    });
    if (!hasKey) Raise(ErrorNumber::General, "HostDatabase.InsertRow", "The table has no column '" + keyColumn + "'.");
    std::vector<std::string> columns;
    std::vector<TaggedValue> values;
    for (const pugi::xml_node& child : row.children()) {
        const std::string name = child.name();
        if (!child.attribute("isPersistable").as_bool() || EqualsNoCase(name, keyColumn)) continue;
        columns.push_back(name);
        values.push_back(ValueFor(child.text().get(), KindOf(known, name)));
    }
    int32_t key = 0;
    InTransaction(*connection, [&] {
        connection->Begin();
        key = connection->Insert(InsertText(table, columns), values, keyColumn);
        connection->Commit();
    });
    return key;
}

std::string HostDatabase::PrepareText(const std::string& text) const {
    return sql::TextLiteral(text, CurrentDialect());
}

std::string HostDatabase::PrepareLike(const std::string& pattern) const {
    return sql::LikeLiteral(pattern, CurrentDialect());
}

std::string HostDatabase::PrepareDate(const std::string& text) const {
    const std::optional<DateTime> moment = DateTime::Parse(Trim(text));
    if (!moment) Raise(ErrorNumber::TypeMismatch, "HostDatabase.PrepareDate");
    return "'" + moment->ToText() + "'";
}

HostDatabase& GetHostDatabase() {
    static HostDatabase database;
    return database;
}

}  // namespace quellbrook
