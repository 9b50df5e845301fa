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
// query that already stands in a union or in a derived table takes effect there. ToSql plans before it writes
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
    QueryCondition Equals(const TaggedValue& value) const;  // NULL gives IS NULL
    QueryCondition Equals(const QueryExpression& other) const;
    // Equal to the whole number that the finished template is given (QueryFactory::ToTemplate).
    QueryCondition EqualsKeyPlace() const;
    QueryCondition NotEquals(const TaggedValue& value) const;  // NULL gives IS NOT NULL
    QueryCondition NotEquals(const QueryExpression& other) const;
    // "*" stands for any run of characters, all else for itself; quoting and escaping are done here.
    QueryCondition Like(const std::string& text) const;
    // Like the text, without "*", that the finished template is given.
    QueryCondition LikeKeyPlace() const;

    const std::shared_ptr<const sql::ExpressionNode>& Node() const { return m_node; }

private:
    std::shared_ptr<const sql::ExpressionNode> m_node;
};

// An argument of Function and Concat: an expression or a plain value, text becoming a literal.
using QueryArgument = std::variant<QueryExpression, TaggedValue>;
// An entry of a select list: an expression, or SQL text that stands as it is ("1 AS ItemType", "*").
using QueryColumn = std::variant<QueryExpression, std::string>;

class QueryJoin;

class QuerySource {
public:
    explicit QuerySource(std::shared_ptr<sql::SourceNode> node) : m_node(std::move(node)) {}

    // On a join the name is looked up among the joined tables; on a query, a union or a derived table among the result
    // columns, where Error 5 says that there is none of this name.
    QueryExpression Column(const std::string& name) const;
    QueryJoin Join(const QuerySource& other, int32_t joinKind) const;  // 0 inner, 1 left outer; other kinds Error 5
    QuerySource Select(std::vector<QueryColumn> columns) const;
    // This query; several calls add up with AND. Error 5 for a table, a join, or a derived table.
    QuerySource Where(const QueryCondition& condition);
    QuerySource Union(const QuerySource& other) const;  // removes equal rows
    QuerySource As(const std::string& alias) const;     // this query as a derived table

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

// A finished SELECT text but for one key, a whole number or a text, which may stand in several places. Lets a query
// that differs from one time to the next in nothing but the key be planned once.
class QueryTemplate {
public:
    QueryTemplate(std::string text, std::vector<size_t> places, std::string textPrefix)
        : m_text(std::move(text)), m_places(std::move(places)), m_textPrefix(std::move(textPrefix)) {}

    std::string With(int32_t number) const;
    std::string With(const std::string& text) const;  // Error 5 for a text that holds NUL

private:
    std::string Filled(const std::string& literal) const;

    std::string m_text;
    std::vector<size_t> m_places;  // ascending
    std::string m_textPrefix;
};

class QueryFactory {
public:
    // The dialect is asked for whenever a query is written, never before.
    explicit QueryFactory(std::function<const Dialect&()> dialect) : m_dialect(std::move(dialect)) {}

    QuerySource Table(const std::string& name) const;
    QueryExpression Function(const std::string& name, const std::vector<QueryArgument>& arguments,
                             int32_t reserved) const;
    QueryExpression Concat(const std::vector<QueryArgument>& parts, int32_t reserved) const;
    // The finished SELECT text, planned for the engine in use. Duplicate rows of a query that holds a left join are
    // removed, with a union or without. Error 5 for a source that is no query, and for a column of another source.
    std::string ToSql(const QuerySource& query) const;
    // The same for a query with conditions EqualsKeyPlace or LikeKeyPlace, all of which are to be given one key. Error
    // 5 for LikeKeyPlace where the engine has no equality that compares as LIKE does.
    QueryTemplate ToTemplate(const QuerySource& query) const;

private:
    std::function<const Dialect&()> m_dialect;
};

}  // namespace quellbrook
