#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace quellbrook::sql {

// A composed query as a tree of values. Columns name their source by its number, so that a changed copy of a source is
// still the source that the columns mean.

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
struct RawText {  // stands as it is
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
struct HiddenFromIndexes {  // a number, written so that the engine looks for no index on it
    ExpressionRef operand;
};

struct ExpressionNode {
    std::variant<ColumnReference, Literal, RawText, Parameter, FunctionCall, Concatenation, HiddenFromIndexes> content;
    std::string alias;  // counts in a select list
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
    std::string pattern;  // "*" stands for any run of characters
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

enum class JoinKind {
    Inner,
    LeftOuter,
    FixedOrder
};  // FixedOrder: an inner join that no engine turns round, without On

struct JoinSource {
    SourceRef left;
    SourceRef right;
    JoinKind kind;
    ConditionRef on;
};

// One column of a result, or "*". The name is empty where the engine gives one of its own.
struct ResultColumn {
    ExpressionRef expression;  // null for "*"
    std::string name;

    bool IsStar() const { return !expression; }
};

struct QuerySelect {
    SourceRef from;
    std::vector<ResultColumn> columns;
    std::vector<ConditionRef> where;  // all of them hold
    bool distinct = false;
};
struct UnionOfQueries {
    std::vector<SourceRef> arms;
    bool hasNoEqualRows = false;  // otherwise equal rows are to come once
};
struct DerivedTable {
    SourceRef query;
    std::string alias;
};

struct SourceNode {
    SourceId id;
    std::variant<TableSource, JoinSource, QuerySelect, UnionOfQueries, DerivedTable> content;
};

// Makers

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

// A source with a number of its own.
template <typename Content>
std::shared_ptr<SourceNode> MakeSource(Content content) {
    return std::make_shared<SourceNode>(SourceNode{NewSourceId(), std::move(content)});
}

// A changed copy, which columns of the original still mean.
template <typename Content>
SourceRef ChangedSource(const SourceNode& original, Content content) {
    return std::make_shared<const SourceNode>(SourceNode{original.id, std::move(content)});
}

}  // namespace quellbrook::sql
