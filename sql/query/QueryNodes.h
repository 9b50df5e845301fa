#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace quellbrook::sql {

// A composed query as a tree of values. Columns refer to their source by its number, so they also refer to a changed
// copy of the source.

using SourceId = uint64_t;

struct ExpressionNode;
struct ConditionNode;
struct SourceNode;
using ExpressionRef = std::shared_ptr<const ExpressionNode>;
using ConditionRef = std::shared_ptr<const ConditionNode>;
using SourceRef = std::shared_ptr<const SourceNode>;

// Expressions

struct ColumnReference {
    SourceId source;
    std::string name;
};
struct Literal {
    TaggedValue value;
};
struct RawText {  // used unchanged
    std::string text;
};
struct Parameter {  // a value that is given when the query runs
    size_t number;
};
struct FunctionCall {
    std::string name;
    std::vector<ExpressionRef> arguments;
};
struct Concatenation {
    std::vector<ExpressionRef> parts;
};
struct HiddenFromIndexes {  // a number, written so that the engine uses no index on it
    ExpressionRef operand;
};

struct ExpressionNode {
    std::variant<ColumnReference, Literal, RawText, Parameter, FunctionCall, Concatenation, HiddenFromIndexes> content;
    std::string alias;  // only used in a select list
};

// Conditions

struct Comparison {
    ExpressionRef left;
    bool equal;  // "=", otherwise "<>"
    ExpressionRef right;
};
struct NullTest {
    ExpressionRef operand;
    bool isNull;
};
struct PatternTest {
    ExpressionRef operand;
    std::string pattern;  // "*" matches any run of characters
};
struct Membership {  // operand IN (query)
    ExpressionRef operand;
    SourceRef query;
};
struct Conjunction {
    std::vector<ConditionRef> parts;
};
struct Contradiction {};

struct ConditionNode {
    std::variant<Comparison, NullTest, PatternTest, Membership, Conjunction, Contradiction> content;
};

// Sources

struct TableSource {
    std::string name;
};

enum class JoinKind { Inner, LeftOuter, FixedOrder };  // FixedOrder: an inner join without ON that no engine reorders

struct JoinSource {
    SourceRef left;
    SourceRef right;
    JoinKind kind;
    ConditionRef on;
};

// One column of a result, or "*". The name is empty if the engine chooses it.
struct ResultColumn {
    ExpressionRef expression;  // null for "*"
    std::string name;

    bool IsStar() const { return !expression; }
};

struct QuerySelect {
    SourceRef from;
    std::vector<ResultColumn> columns;
    std::vector<ConditionRef> where;  // joined by AND
    bool distinct = false;
    bool listsItems = false;  // QuerySource::ListItems
};
struct UnionOfQueries {
    std::vector<SourceRef> arms;
    bool hasNoEqualRows = false;  // otherwise equal rows appear once
};
struct DerivedTable {
    SourceRef query;
    std::string alias;
};

struct SourceNode {
    SourceId id;
    std::variant<TableSource, JoinSource, QuerySelect, UnionOfQueries, DerivedTable> content;
};

// Construction

template <typename Content>
ExpressionRef MakeExpression(Content content, std::string alias = {}) {
    return std::make_shared<const ExpressionNode>(ExpressionNode{std::move(content), std::move(alias)});
}

template <typename Content>
ConditionRef MakeCondition(Content content) {
    return std::make_shared<const ConditionNode>(ConditionNode{std::move(content)});
}

inline SourceId NewSourceId() {
    static SourceId last = 0;
    return ++last;
}

// A source with a new number.
template <typename Content>
std::shared_ptr<SourceNode> MakeSource(Content content) {
    return std::make_shared<SourceNode>(SourceNode{NewSourceId(), std::move(content)});
}

// A changed copy with the same number.
template <typename Content>
SourceRef ChangedSource(const SourceNode& original, Content content) {
    return std::make_shared<const SourceNode>(SourceNode{original.id, std::move(content)});
}

}  // namespace quellbrook::sql
