#include "sql/query/QueryWriter.h"

#include "base/Error.h"
#include "base/Text.h"
#include "sql/Literals.h"
#include "sql/query/QueryTraversal.h"

#include <algorithm>
#include <map>

namespace quellbrook::sql {

namespace {

void WriteQueryOrUnion(const SourceNode& source, const Dialect& dialect, WrittenQuery& out);

// Writes one SELECT and names its sources.
class SelectWriter {
public:
    SelectWriter(const QuerySelect& query, const Dialect& dialect, WrittenQuery& out)
        : m_query(query), m_dialect(dialect), m_written(out), m_out(out.text) {
        for (const SourceRef& source : SourcesOf(query.from)) NameSource(*source);
    }

    void Write() {
        m_out += m_query.distinct ? "SELECT DISTINCT " : "SELECT ";
        WriteList(m_query.columns, [this](const ResultColumn& column) { WriteResultColumn(column); });
        m_out += " FROM ";
        WriteSource(*m_query.from);
        if (m_query.where.empty()) return;
        m_out += " WHERE ";
        WriteAll(m_query.where);
    }

private:
    void NameSource(const SourceNode& source) {
        if (const auto* table = std::get_if<TableSource>(&source.content)) {
            m_names[source.id] = UniqueName(table->name);
        } else if (const auto* derived = std::get_if<DerivedTable>(&source.content)) {
            m_names[source.id] = UniqueName(derived->alias);
            m_names[derived->query->id] = m_names[source.id];
        } else {
            m_names[source.id] = "";
        }
    }

    std::string UniqueName(const std::string& wanted) const {
        std::string name = wanted;
        const auto isTaken = [&](const auto& entry) { return EqualsNoCase(entry.second, name); };
        for (int number = 2; std::any_of(m_names.begin(), m_names.end(), isTaken); ++number)
            name = wanted + std::to_string(number);
        return name;
    }

    template <typename List, typename WriteEntry>
    void WriteList(const List& list, WriteEntry write, const char* separator = ", ") {
        bool first = true;
        for (const auto& entry : list) {
            if (!first) m_out += separator;
            first = false;
            write(entry);
        }
    }

    void WriteAll(const std::vector<ConditionRef>& conditions) {
        WriteList(
            conditions, [this](const ConditionRef& condition) { WriteCondition(condition); }, " AND ");
    }

    void WriteResultColumn(const ResultColumn& column) {
        if (column.IsStar()) {
            m_out += "*";
            return;
        }
        WriteExpression(column.expression);
        const ColumnReference* plain = ColumnOf(column.expression);
        const bool hasThisName = plain && plain->name == column.name;
        if (!column.name.empty() && !hasThisName) m_out += " AS " + column.name;
    }

    void WriteExpression(const ExpressionRef& expression) {
        if (const auto* column = ColumnOf(expression)) {
            WriteColumn(*column);
        } else if (const auto* literal = std::get_if<Literal>(&expression->content)) {
            m_out += ValueLiteral(literal->value, m_dialect);
        } else if (const auto* raw = std::get_if<RawText>(&expression->content)) {
            m_out += raw->text;
        } else if (const auto* parameter = std::get_if<Parameter>(&expression->content)) {
            m_out += "?";
            m_written.parameters.push_back(parameter->number);
        } else if (const auto* hidden = std::get_if<HiddenFromIndexes>(&expression->content)) {
            m_out += "+";
            WriteExpression(hidden->operand);
        } else if (const auto* call = std::get_if<FunctionCall>(&expression->content)) {
            m_out += call->name + "(";
            WriteList(call->arguments, [this](const ExpressionRef& argument) { WriteExpression(argument); });
            m_out += ")";
        } else {
            const std::string separator = " " + m_dialect.concatenation + " ";
            m_out += "(";
            WriteList(
                std::get<Concatenation>(expression->content).parts,
                [this](const ExpressionRef& part) { WriteExpression(part); }, separator.c_str());
            m_out += ")";
        }
    }

    void WriteColumn(const ColumnReference& column) {
        const auto name = m_names.find(column.source);
        if (name == m_names.end())
            Raise(ErrorNumber::General, "QueryFactory.ToSql",
                  "The column " + column.name + " belongs to no source that the query selects from.");
        if (!name->second.empty()) m_out += name->second + ".";
        m_out += column.name;
    }

    void WriteCondition(const ConditionRef& condition) {
        if (const auto* comparison = std::get_if<Comparison>(&condition->content)) {
            WriteExpression(comparison->left);
            m_out += comparison->equal ? " = " : " <> ";
            WriteExpression(comparison->right);
        } else if (const auto* nullTest = std::get_if<NullTest>(&condition->content)) {
            WriteExpression(nullTest->operand);
            m_out += nullTest->isNull ? " IS NULL" : " IS NOT NULL";
        } else if (const auto* pattern = std::get_if<PatternTest>(&condition->content)) {
            WriteExpression(pattern->operand);
            m_out += " LIKE " + LikeLiteral(pattern->pattern, m_dialect);
        } else if (const auto* membership = std::get_if<Membership>(&condition->content)) {
            WriteExpression(membership->operand);
            m_out += " IN (";
            WriteQueryOrUnion(*membership->query, m_dialect, m_written);
            m_out += ")";
        } else if (const auto* all = std::get_if<Conjunction>(&condition->content)) {
            WriteAll(all->parts);
        } else {
            m_out += "1 = 0";
        }
    }

    void WriteSource(const SourceNode& source) {
        if (const auto* table = std::get_if<TableSource>(&source.content)) {
            const std::string& name = m_names.at(source.id);
            m_out += table->name;
            if (name != table->name) m_out += " AS " + name;
        } else if (const auto* derived = std::get_if<DerivedTable>(&source.content)) {
            m_out += "(";
            WriteQueryOrUnion(*derived->query, m_dialect, m_written);
            m_out += ") AS " + m_names.at(source.id);
        } else {
            WriteJoin(std::get<JoinSource>(source.content));
        }
    }

    void WriteJoin(const JoinSource& join) {
        WriteSource(*join.left);
        switch (join.kind) {
        case JoinKind::Inner: m_out += " INNER JOIN "; break;
        case JoinKind::LeftOuter: m_out += " LEFT JOIN "; break;
        case JoinKind::FixedOrder: m_out += " CROSS JOIN "; break;
        }
        const bool isNested = std::holds_alternative<JoinSource>(join.right->content);
        if (isNested) m_out += "(";
        WriteSource(*join.right);
        if (isNested) m_out += ")";
        if (!join.on) return;
        m_out += " ON ";
        WriteCondition(join.on);
    }

    const QuerySelect& m_query;
    const Dialect& m_dialect;
    WrittenQuery& m_written;
    std::string& m_out;
    std::map<SourceId, std::string> m_names;  // empty for a join, whose columns are not qualified
};

void WriteQueryOrUnion(const SourceNode& source, const Dialect& dialect, WrittenQuery& out) {
    if (const auto* query = std::get_if<QuerySelect>(&source.content)) {
        SelectWriter(*query, dialect, out).Write();
        return;
    }
    const auto* all = std::get_if<UnionOfQueries>(&source.content);
    if (!all) Raise(ErrorNumber::General, "QueryFactory.ToSql", "Only a query or a union can be turned into text.");
    bool first = true;
    for (const SourceRef& arm : all->arms) {
        if (!first) out.text += all->hasNoEqualRows ? " UNION ALL " : " UNION ";
        first = false;
        WriteQueryOrUnion(*arm, dialect, out);
    }
}

}  // namespace

WrittenQuery WriteQuery(const SourceNode& query, const Dialect& dialect) {
    WrittenQuery written;
    WriteQueryOrUnion(query, dialect, written);
    return written;
}

}  // namespace quellbrook::sql
