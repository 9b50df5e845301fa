#include "sql/query/QueryFactory.h"

#include "base/Error.h"
#include "base/Text.h"
#include "sql/query/QueryPlanner.h"
#include "sql/query/QueryTraversal.h"
#include "sql/query/QueryWriter.h"
#include "sql/query/SelectText.h"

namespace quellbrook {

namespace {

constexpr const char* unnamedQueryAlias = "Query";

sql::ExpressionRef ArgumentNode(const QueryArgument& argument) {
    if (const auto* expression = std::get_if<QueryExpression>(&argument)) return expression->Node();
    return sql::MakeExpression(sql::Literal{std::get<TaggedValue>(argument)});
}

std::vector<sql::ExpressionRef> ArgumentNodes(const std::vector<QueryArgument>& arguments) {
    std::vector<sql::ExpressionRef> nodes;
    for (const QueryArgument& argument : arguments) nodes.push_back(ArgumentNode(argument));
    return nodes;
}

// What a FROM clause accepts: a query only as a derived table.
sql::SourceRef SelectableSource(const std::shared_ptr<sql::SourceNode>& node) {
    const bool isQuery = std::holds_alternative<sql::QuerySelect>(node->content) ||
                         std::holds_alternative<sql::UnionOfQueries>(node->content);
    if (!isQuery) return node;
    return sql::MakeSource(sql::DerivedTable{node, unnamedQueryAlias});
}

QueryCondition Compare(const QueryExpression& left, bool equal, const TaggedValue& value) {
    if (value.HasNoValue()) return QueryCondition(sql::MakeCondition(sql::NullTest{left.Node(), equal}));
    return QueryCondition(
        sql::MakeCondition(sql::Comparison{left.Node(), equal, sql::MakeExpression(sql::Literal{value})}));
}

// A query's condition on its own result columns, in terms of their expressions.
sql::ConditionRef ResolveOwnColumns(const sql::SourceNode& node, const sql::ConditionRef& condition) {
    const auto& query = std::get<sql::QuerySelect>(node.content);
    const auto columns = sql::ExpandedColumns(query);
    return sql::ReplaceColumns(condition, [&](const sql::ColumnReference& column) -> sql::ExpressionRef {
        if (column.source != node.id) return nullptr;
        if (columns) {
            for (const sql::ResultColumn& candidate : *columns)
                if (EqualsNoCase(candidate.name, column.name)) return candidate.expression;
        }
        return sql::MakeExpression(sql::ColumnReference{query.from->id, column.name});
    });
}

}  // namespace

QueryCondition QueryCondition::And(const QueryCondition& other) const {
    return QueryCondition(sql::MakeCondition(sql::Conjunction{{m_node, other.m_node}}));
}

QueryExpression QueryExpression::As(const std::string& alias) const {
    return QueryExpression(std::make_shared<const sql::ExpressionNode>(sql::ExpressionNode{m_node->content, alias}));
}

QueryCondition QueryExpression::Equals(const TaggedValue& value) const { return Compare(*this, true, value); }

QueryCondition QueryExpression::Equals(const QueryExpression& other) const {
    return QueryCondition(sql::MakeCondition(sql::Comparison{m_node, true, other.m_node}));
}

QueryCondition QueryExpression::NotEquals(const TaggedValue& value) const { return Compare(*this, false, value); }

QueryCondition QueryExpression::NotEquals(const QueryExpression& other) const {
    return QueryCondition(sql::MakeCondition(sql::Comparison{m_node, false, other.m_node}));
}

QueryCondition QueryExpression::Like(const std::string& text) const {
    return QueryCondition(sql::MakeCondition(sql::PatternTest{m_node, text}));
}

QueryExpression QuerySource::Column(const std::string& name) const {
    const auto names = sql::ResultNames(*m_node);
    if (names && !sql::FindName(*names, name))
        Raise(ErrorNumber::General, "QuerySource.Column", "The query has no result column " + name + ".");
    return QueryExpression(sql::MakeExpression(sql::ColumnReference{m_node->id, name}));
}

QueryJoin QuerySource::Join(const QuerySource& other, int32_t joinKind) const {
    if (joinKind != 0 && joinKind != 1)
        Raise(ErrorNumber::General, "QuerySource.Join",
              "There is no join of the kind " + std::to_string(joinKind) + ".");
    return QueryJoin(*this, other, joinKind);
}

QuerySource QueryJoin::On(const QueryCondition& condition) const {
    const auto kind = m_kind == 1 ? sql::JoinKind::LeftOuter : sql::JoinKind::Inner;
    return QuerySource(sql::MakeSource(
        sql::JoinSource{SelectableSource(m_left.Node()), SelectableSource(m_right.Node()), kind, condition.Node()}));
}

QuerySource QuerySource::Select(std::vector<QueryColumn> columns) const {
    sql::QuerySelect query{SelectableSource(m_node), {}, {}};
    for (const QueryColumn& column : columns) {
        if (const auto* text = std::get_if<std::string>(&column)) {
            for (sql::ResultColumn& entry : sql::ParseSelectText(*text)) query.columns.push_back(std::move(entry));
            continue;
        }
        const sql::ExpressionRef& expression = std::get<QueryExpression>(column).Node();
        const auto* plain = sql::ColumnOf(expression);
        query.columns.push_back({expression, expression->alias.empty() && plain ? plain->name : expression->alias});
    }
    return QuerySource(sql::MakeSource(std::move(query)));
}

QuerySource QuerySource::Where(const QueryCondition& condition) {
    if (auto* all = std::get_if<sql::UnionOfQueries>(&m_node->content)) {
        const sql::SourceRef arms = sql::MakeSource(sql::UnionOfQueries(*all));
        m_node->content = sql::QuerySelect{sql::MakeSource(sql::DerivedTable{arms, unnamedQueryAlias}), {{}}, {}};
    }
    auto* query = std::get_if<sql::QuerySelect>(&m_node->content);
    if (!query) Raise(ErrorNumber::General, "QuerySource.Where", "Only a query can take a condition.");
    query->where.push_back(ResolveOwnColumns(*m_node, condition.Node()));
    return *this;
}

QuerySource QuerySource::ListItems() {
    auto* query = std::get_if<sql::QuerySelect>(&m_node->content);
    if (!query) Raise(ErrorNumber::General, "QuerySource.ListItems", "Only a query can list items.");
    query->listsItems = true;
    return *this;
}

QuerySource QuerySource::Union(const QuerySource& other) const {
    for (const sql::SourceRef& arm : {sql::SourceRef(m_node), sql::SourceRef(other.m_node)}) {
        if (!std::holds_alternative<sql::QuerySelect>(arm->content) &&
            !std::holds_alternative<sql::UnionOfQueries>(arm->content))
            Raise(ErrorNumber::General, "QuerySource.Union", "Only queries can be united.");
    }
    return QuerySource(sql::MakeSource(sql::UnionOfQueries{{m_node, other.m_node}}));
}

QuerySource QuerySource::As(const std::string& alias) const {
    if (const auto* derived = std::get_if<sql::DerivedTable>(&m_node->content))
        return QuerySource(sql::MakeSource(sql::DerivedTable{derived->query, alias}));
    if (std::holds_alternative<sql::TableSource>(m_node->content) ||
        std::holds_alternative<sql::JoinSource>(m_node->content))
        Raise(ErrorNumber::General, "QuerySource.As", "Only a query can be a derived table.");
    return QuerySource(sql::MakeSource(sql::DerivedTable{m_node, alias}));
}

QuerySource QueryFactory::Table(const std::string& name) const {
    return QuerySource(sql::MakeSource(sql::TableSource{name}));
}

QueryExpression QueryFactory::Function(const std::string& name, const std::vector<QueryArgument>& arguments,
                                       int32_t) const {
    return QueryExpression(sql::MakeExpression(sql::FunctionCall{name, ArgumentNodes(arguments)}));
}

QueryExpression QueryFactory::Concat(const std::vector<QueryArgument>& parts, int32_t) const {
    return QueryExpression(sql::MakeExpression(sql::Concatenation{ArgumentNodes(parts)}));
}

QueryExpression QueryFactory::Parameter(size_t number) const {
    return QueryExpression(sql::MakeExpression(sql::Parameter{number}));
}

ParameterizedQuery QueryFactory::ToParameterizedSql(const QuerySource& query) const {
    const Dialect& dialect = m_dialect();
    sql::WrittenQuery written = sql::WriteQuery(*sql::PlanQuery(query.Node(), dialect), dialect);
    return {std::move(written.text), std::move(written.parameters)};
}

std::string QueryFactory::ToSql(const QuerySource& query) const {
    ParameterizedQuery written = ToParameterizedSql(query);
    if (!written.markers.empty())
        Raise(ErrorNumber::General, "QueryFactory.ToSql", "The query has parameters without values.");
    return std::move(written.text);
}

std::vector<TaggedValue> ParameterizedQuery::ValuesFor(const std::vector<TaggedValue>& parameters) const {
    std::vector<TaggedValue> values;
    values.reserve(markers.size());
    for (const size_t number : markers) {
        if (number >= parameters.size()) Raise(ErrorNumber::SubscriptOutOfRange, "ParameterizedQuery.ValuesFor");
        values.push_back(parameters[number]);
    }
    return values;
}

}  // namespace quellbrook
