#include "sql/tsql/TransactSqlRewriter.h"

#include "base/Text.h"
#include "sql/tsql/TransactSqlGrammar.h"
#include "sql/tsql/TransactSqlWords.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>

namespace quellbrook::sql {

namespace {

using Tokens = std::span<const Token>;

// A table's or column's name without what marks it, folded; empty for any other token.
std::string NameOf(const Token& token) {
    switch (token.kind) {
    case TokenKind::Word: return FoldCase(token.text);
    case TokenKind::QuotedName: return FoldCase(token.text.substr(1, token.text.size() - 2));
    case TokenKind::Temporary: return FoldCase(token.text);
    default: return {};
    }
}

size_t FindWord(Tokens tokens, std::string_view word, size_t from = 0) {
    size_t depth = 0;
    for (size_t i = from; i < tokens.size(); ++i) {
        if (tokens[i].IsSign('(')) ++depth;
        if (tokens[i].IsSign(')') && depth > 0) --depth;
        if (depth == 0 && tokens[i].IsWord(word)) return i;
    }
    return tokens.size();
}

struct Variable {
    std::string replacement = "NULL";
    std::set<std::string> names;  // that its SELECT holds
    bool isSet = false;
    bool isSpent = false;
};

class Rewriter {
public:
    explicit Rewriter(SqlTarget target) : m_target(target) {}

    TranslatedText Rewrite(const std::vector<Token>& tokens) {
        const Tokens all(tokens);
        for (size_t from = 0; from < all.size();) {
            size_t to = from;
            while (to < all.size() && !all[to].IsSign(';')) ++to;
            if (to > from) Statement(all.subspan(from, to - from));
            from = to + 1;
        }
        return std::move(m_result);
    }

private:
    void Statement(Tokens tokens) {
        const StatementParts parts = ParseStatement(tokens);
        switch (parts.kind) {
        case StatementKind::Declaration: return Declare(tokens[parts.subject]);
        case StatementKind::Assignment: return Assign(tokens, parts);
        case StatementKind::Creation: ++m_result.createdTables; break;
        case StatementKind::Removal: ++m_result.droppedTables; break;
        case StatementKind::Change: CheckTarget(tokens, parts.subject); break;
        case StatementKind::Query: break;
        }
        m_result.statements.push_back(Emit(tokens, parts));
        for (auto& [name, variable] : m_variables) variable.isSpent = variable.isSet;
    }

    void Declare(const Token& name) {
        if (!m_variables.try_emplace(FoldCase(name.text)).second) RefuseTransactSql(name.text);
    }

    // SELECT @name = ...
    void Assign(Tokens tokens, const StatementParts& parts) {
        const Token& target = tokens[parts.subject];
        const auto found = m_variables.find(FoldCase(target.text));
        if (found == m_variables.end() || found->second.isSet) RefuseTransactSql(target.text);
        const size_t begin = parts.subject + 2;
        const Tokens select = tokens.subspan(begin);
        CheckOneRow(select, target);

        Variable variable;
        const bool needsGrouping = IsPostgreSql() || !IsNullWithoutRows(select);
        const size_t end = needsGrouping ? tokens.size() : begin + FindWord(select, "GROUP");
        variable.replacement = "(SELECT " + Emit(tokens.first(end), parts, begin) + ")";
        variable.isSet = true;
        for (const Token& token : select) {
            if (token.Is(TokenKind::Variable) || token.text == "?") RefuseTransactSql(token.text);
            if (const std::string name = NameOf(token); !name.empty()) variable.names.insert(name);
        }
        found->second = std::move(variable);
    }

    // Outside brackets, where it makes one row of all.
    static bool HasAggregate(Tokens expression) {
        size_t depth = 0;
        for (size_t i = 0; i + 1 < expression.size(); ++i) {
            const SqlFunction* function = FindFunction(expression[i]);
            if (depth == 0 && function && function->isAggregate && expression[i + 1].IsSign('(')) return true;
            if (expression[i].IsSign('(')) ++depth;
            if (expression[i].IsSign(')')) --depth;
        }
        return false;
    }

    // Then a grouping that makes one row at most adds nothing, and without it SQLite takes the greatest or the least
    // straight from an index.
    static bool IsNullWithoutRows(Tokens select) {
        const Tokens expression = select.first(FindWord(select, "FROM"));
        return std::all_of(expression.begin(), expression.end(), [&](const Token& token) {
            if (IsReserved(token)) return false;
            const bool isCall = &token != &expression.back() && (&token + 1)->IsSign('(') && token.Is(TokenKind::Word);
            return !isCall || token.IsWord("MAX") || token.IsWord("MIN");
        });
    }

    // The expression has an aggregate, and a grouping makes no second row of it.
    static void CheckOneRow(Tokens select, const Token& target) {
        const size_t from = FindWord(select, "FROM");
        if (!HasAggregate(select.first(from))) RefuseTransactSql(target.text);
        const size_t group = FindWord(select, "GROUP");
        if (group == select.size()) return;
        const size_t where = FindWord(select, "WHERE");
        if (where > group) RefuseTransactSql(select[group].text);
        if (const size_t alternative = FindWord(select, "OR", where); alternative < group)
            RefuseTransactSql(select[alternative].text);
        for (size_t i = where + 1; i + 2 < group; ++i)
            if (HoldsEqual(select, i, group, NameOf(select.back()))) return;
        RefuseTransactSql(select[group].text);
    }

    // At this place stands "column = value", a whole term of a conjunction.
    static bool HoldsEqual(Tokens select, size_t at, size_t end, const std::string& column) {
        const bool begins = select[at - 1].IsWord("WHERE") || select[at - 1].IsWord("AND");
        const bool ends = at + 3 == end || select[at + 3].IsWord("AND");
        const TokenKind value = select[at + 2].kind;
        return begins && ends && NameOf(select[at]) == column && select[at + 1].IsSign('=') &&
               (value == TokenKind::Number || value == TokenKind::Text || value == TokenKind::Marker);
    }

    // The target of a change is none that a variable in use here reads.
    void CheckTarget(Tokens tokens, size_t target) {
        const std::string written = NameOf(tokens[target]);
        for (const Token& token : tokens) {
            if (!token.Is(TokenKind::Variable)) continue;
            const auto found = m_variables.find(FoldCase(token.text));
            if (found != m_variables.end() && found->second.names.count(written) > 0) RefuseTransactSql(token.text);
        }
    }

    // The statement from this token on, in the target's language.
    std::string Emit(Tokens tokens, const StatementParts& parts, size_t begin = 0) const {
        const std::map<size_t, std::string> additions = Additions(tokens, parts);
        std::string text;
        const char* copied = tokens[begin].text.data();
        for (size_t i = begin; i < tokens.size(); ++i) {
            const Token& token = tokens[i];
            text.append(copied, token.text.data());
            copied = token.text.data() + token.text.size();
            if (token.Is(TokenKind::Temporary))
                text += '"' + (IsPostgreSql() ? FoldCase(token.text) : std::string(token.text)) + '"';
            else if (token.Is(TokenKind::Variable))
                text += Use(token);
            else
                text += token.isNational ? token.text.substr(1) : token.text;
            if (const auto addition = additions.find(i); addition != additions.end()) text += addition->second;
        }
        return text;
    }

    // What is to stand behind a token, by its position, so that the target reads the statement as Transact-SQL does.
    std::map<size_t, std::string> Additions(Tokens tokens, const StatementParts& parts) const {
        std::map<size_t, std::string> additions;
        if (parts.kind == StatementKind::Creation) additions[0] = " TEMPORARY";
        if (!IsPostgreSql()) return additions;
        for (const SortTerm& term : parts.sortTerms)
            additions[term.last] = term.isDescending ? " NULLS LAST" : " NULLS FIRST";
        for (const size_t pattern : parts.patterns)
            if (tokens[pattern].text.find('\\') != std::string_view::npos) additions[pattern] = " ESCAPE ''";
        for (size_t i = 0; i + 1 < tokens.size(); ++i)
            if (WouldBeOneOperator(tokens[i], tokens[i + 1])) additions[i] = " ";
        if (!parts.textAliases.empty()) RefuseTransactSql(tokens[parts.textAliases.front()].text);
        return additions;
    }

    // PostgreSQL reads operators that touch as one operator of a longer name.
    static bool WouldBeOneOperator(const Token& left, const Token& right) {
        const auto isOperator = [](const Token& token) {
            return token.Is(TokenKind::Sign) && token.text.find_first_not_of("+-*/%<>=!|") == std::string_view::npos;
        };
        return isOperator(left) && isOperator(right) && left.text.data() + left.text.size() == right.text.data();
    }

    bool IsPostgreSql() const { return m_target == SqlTarget::PostgreSql; }

    const std::string& Use(const Token& token) const {
        const auto found = m_variables.find(FoldCase(token.text));
        if (found == m_variables.end() || found->second.isSpent) RefuseTransactSql(token.text);
        return found->second.replacement;
    }

    SqlTarget m_target;
    std::map<std::string, Variable> m_variables;  // by folded name
    TranslatedText m_result;
};

}  // namespace

TranslatedText TranslateTransactSql(std::string_view text, SqlTarget target) {
    const std::vector<Token> tokens = ScanTransactSql(text);
    return Rewriter(target).Rewrite(tokens);
}

}  // namespace quellbrook::sql
