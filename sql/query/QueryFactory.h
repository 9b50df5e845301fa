#pragma once

#include "base/TaggedValue.h"
#include "sql/Dialect.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace quellbrook {

// SELECT statements as objects. The classes are light handles: copies mean the same query, and a Where added later to a
// query that is already part of a union or a derived table takes effect there. ToSql plans before it writes
// (sql/query/QueryPlanner.h).

namespace sql {
struct SourceNode;
struct ExpressionNode;
struct ConditionNode;
}  // namespace sql

class QueryCondition {
public:
    explicit QueryCondition(std::shared_ptr<const sql::ConditionNode> node) : m_node(std::move(node)) {}

    QueryCondition And(const QueryCondition& other) const;

    const std::shared_ptr<const sql::ConditionNode>& Node() const { return m_node; }

private:
    std::shared_ptr<const sql::ConditionNode> m_node;
};

class QueryExpression {
public:
    explicit QueryExpression(std::shared_ptr<const sql::ExpressionNode> node) : m_node(std::move(node)) {}

    QueryExpression As(const std::string& alias) const;
    QueryCondition Equals(const TaggedValue& value) const;  // IS NULL for NULL
    QueryCondition Equals(const QueryExpression& other) const;
    QueryCondition NotEquals(const TaggedValue& value) const;  // IS NOT NULL for NULL
    QueryCondition NotEquals(const QueryExpression& other) const;
    // "*" matches any run of characters. The text needs no quoting or escaping.
    QueryCondition Like(const std::string& text) const;

    const std::shared_ptr<const sql::ExpressionNode>& Node() const { return m_node; }

private:
    std::shared_ptr<const sql::ExpressionNode> m_node;
};

// An argument of Function and Concat: an expression or a plain value. A value becomes a literal.
using QueryArgument = std::variant<QueryExpression, TaggedValue>;
// An entry of a select list: an expression, or SQL text that is used unchanged ("1 AS ItemType", "*").
using QueryColumn = std::variant<QueryExpression, std::string>;

class QueryJoin;

class QuerySource {
public:
    explicit QuerySource(std::shared_ptr<sql::SourceNode> node) : m_node(std::move(node)) {}

    // Looks the name up among the joined tables of a join, and among the result columns of a query, a union or a
    // derived table. Error 5 if there is no such result column.
    QueryExpression Column(const std::string& name) const;
    QueryJoin Join(const QuerySource& other, int32_t joinKind) const;  // 0 inner, 1 left outer; other kinds Error 5
    QuerySource Select(std::vector<QueryColumn> columns) const;
    // Returns this query; several conditions are joined by AND. Error 5 for a table, a join, or a derived table.
    QuerySource Where(const QueryCondition& condition);
    QuerySource Union(const QuerySource& other) const;  // removes equal rows
    QuerySource As(const std::string& alias) const;     // this query as a derived table
    // States that each row of this query is one item, identified by its kind and key, unless a left-joined pair of
    // tables repeats it. Arms of a union must list different kinds. Error 5 for anything but a SELECT.
    QuerySource ListItems();

    const std::shared_ptr<sql::SourceNode>& Node() const { return m_node; }

private:
    std::shared_ptr<sql::SourceNode> m_node;
};

class QueryJoin {
public:
    QueryJoin(QuerySource left, QuerySource right, int32_t kind) : m_left(left), m_right(right), m_kind(kind) {}
    QuerySource On(const QueryCondition& condition) const;

private:
    QuerySource m_left;
    QuerySource m_right;
    int32_t m_kind;
};

// A SELECT text with "?" markers, planned once and run with different values.
struct ParameterizedQuery {
    std::string text;
    std::vector<size_t> markers;  // the number of the parameter behind each marker, in order

    // One value for each marker, given one value for each parameter. Error 9 for a parameter without a value.
    std::vector<TaggedValue> ValuesFor(const std::vector<TaggedValue>& parameters) const;
};

class QueryFactory {
public:
    // Calls `dialect` whenever it writes a query.
    explicit QueryFactory(std::function<const Dialect&()> dialect) : m_dialect(std::move(dialect)) {}

    QuerySource Table(const std::string& name) const;
    QueryExpression Function(const std::string& name, const std::vector<QueryArgument>& arguments,
                             int32_t reserved) const;
    QueryExpression Concat(const std::vector<QueryArgument>& parts, int32_t reserved) const;
    // A value that is given when the query runs; several uses may share a number. Numbers start at 0.
    QueryExpression Parameter(size_t number) const;
    // The finished SELECT text, planned for the engine in use. A query with a left join returns each distinct row once,
    // even without a union. Error 5 for a source that is not a query, for a column of another source, and for a query
    // with parameters.
    std::string ToSql(const QuerySource& query) const;
    // The same for a query that may have parameters.
    ParameterizedQuery ToParameterizedSql(const QuerySource& query) const;

private:
    std::function<const Dialect&()> m_dialect;
};

}  // namespace quellbrook
