#include "sql/tsql/TransactSqlRewriter.h"

#include "base/Text.h"

#include <algorithm>
#include <map>
#include <set>
#include <span>

namespace quellbrook::sql {

namespace {

using Tokens = std::span<const Token>;

struct Variable {
    std::string replacement = "NULL";
    std::string table;  // that its SELECT reads
    bool isSet = false;
    bool isSpent = false;
};

class Rewriter {
public:
    // `parameters` is null for an engine that ignores case.
    explicit Rewriter(const std::vector<TaggedValue>* parameters = nullptr) : m_parameters(parameters) {}

    std::vector<RewrittenStatement> Rewrite(Tokens tokens) {
        if (m_parameters) FindTextMarkers(tokens);
        const auto isSemicolon = [](const Token& token) { return token.IsSign(";"); };
        for (auto begin = tokens.begin(); begin != tokens.end();) {
            const auto end = std::find_if(begin, tokens.end(), isSemicolon);
            if (begin != end) Statement({begin, end});
            begin = end == tokens.end() ? end : end + 1;
        }
        return std::move(m_statements);
    }

private:
    void Statement(Tokens tokens) {
        const ParsedStatement parsed = ParseStatement(tokens);
        if (parsed.kind == StatementKind::Declaration) return Declare(tokens[parsed.subject]);
        if (parsed.kind == StatementKind::Assignment) return Assign(tokens, parsed);
        m_statements.push_back(
            {parsed.kind, Write(tokens, parsed, FoldsOf(tokens, parsed)), TemporaryTablesOf(tokens)});
        for (auto& [name, variable] : m_variables) variable.isSpent = variable.isSet;
    }

    void Declare(const Token& name) {
        if (!m_variables.try_emplace(FoldCase(name.text)).second) RefuseTransactSql(name.text);
    }

    void Assign(Tokens tokens, const ParsedStatement& parsed) {
        const Token& target = tokens[parsed.subject];
        const auto found = m_variables.find(FoldCase(target.text));
        if (found == m_variables.end() || found->second.isSet) RefuseTransactSql(target.text);
        for (const Token& token : tokens)
            if (token.text == "?") RefuseTransactSql(token.text);
        // MAX of no rows is NULL with or without the grouping. Without it, SQLite reads the value from an index.
        const Tokens select = tokens.subspan(parsed.subject + 2, parsed.grouping - parsed.subject - 2);
        Variable& variable = found->second;
        variable.replacement = "(SELECT " + Write(select, parsed, FoldsOf(tokens, parsed)) + ")";
        variable.table = tokens[parsed.source].text;
        variable.isSet = true;
    }

    void FindTextMarkers(Tokens tokens) {
        size_t number = 0;
        for (const Token& token : tokens) {
            if (!token.Is(TokenKind::Marker)) continue;
            if (number < m_parameters->size() && (*m_parameters)[number].Holds<std::string>())
                m_textMarkers.insert(token.text.data());
            ++number;
        }
    }

    bool IsText(Tokens value) const {
        if (value.size() != 1) return false;
        if (value[0].Is(TokenKind::Marker)) return m_textMarkers.contains(value[0].text.data());
        return value[0].Is(TokenKind::Text) && !IsDate(InsideQuotes(value[0]));
    }

    static bool IsDate(std::string_view text) {
        return text.find('T') != std::string_view::npos && DateTime::Parse(text).has_value();
    }

    // What is written before and after tokens, by their place in the source.
    struct Folds {
        std::map<const char*, std::string> before, after;
    };
    Folds FoldsOf(Tokens statement, const ParsedStatement& parsed) const {
        Folds folds;
        if (!m_parameters) return folds;
        for (const ParsedComparison& comparison : parsed.comparisons) {
            std::vector<Tokens> values;
            for (const TokenRange& range : comparison.values)
                values.push_back(statement.subspan(range.begin, range.end - range.begin));
            const bool comparesTexts = comparison.isPattern || std::any_of(values.begin(), values.end(),
                                                                           [&](Tokens value) { return IsText(value); });
            for (const Tokens value : values)
                if (comparesTexts) Fold(value, folds);
        }
        return folds;
    }

    static void Fold(Tokens value, Folds& folds) {
        const bool needsBrackets =
            std::any_of(value.begin(), value.end(), [](const Token& token) { return token.IsSign("||"); });
        folds.before[value.front().text.data()] += needsBrackets ? "LOWER((" : "LOWER(";
        folds.after[value.back().text.data()] += needsBrackets ? ") COLLATE \"C\")" : " COLLATE \"C\")";
    }

    static std::string At(const std::map<const char*, std::string>& texts, const Token& token) {
        const auto found = texts.find(token.text.data());
        return found == texts.end() ? "" : found->second;
    }

    std::string Write(Tokens tokens, const ParsedStatement& parsed, const Folds& folds) const {
        std::string text;
        const char* copied = tokens.front().text.data();
        for (const Token& token : tokens) {
            text.append(copied, token.text.data());
            text += At(folds.before, token);
            copied = token.text.data() + token.text.size();
            if (token.Is(TokenKind::Temporary))
                text += Quoted(token.text);
            else if (token.Is(TokenKind::Variable))
                text += Use(token, parsed.kind == StatementKind::Change ? tokens[parsed.subject].text : "");
            else
                text += token.Is(TokenKind::Text) ? token.text.substr(token.text.find('\'')) : token.text;
            text += At(folds.after, token);
            if (parsed.kind == StatementKind::Creation && &token == &tokens.front()) text += " TEMPORARY";
        }
        return text;
    }

    static std::string Quoted(std::string_view name) { return '"' + std::string(name) + '"'; }

    std::vector<std::string> TemporaryTablesOf(Tokens tokens) const {
        std::vector<std::string> names;
        for (const Token& token : tokens) {
            const bool isVariable = token.Is(TokenKind::Variable);
            const std::string_view name = isVariable ? m_variables.at(FoldCase(token.text)).table : token.text;
            if (token.Is(TokenKind::Temporary) || (isVariable && name.starts_with('#'))) names.push_back(Quoted(name));
        }
        return names;
    }

    const std::string& Use(const Token& token, std::string_view changedTable) const {
        const auto found = m_variables.find(FoldCase(token.text));
        if (found == m_variables.end() || found->second.isSpent || EqualsNoCase(found->second.table, changedTable))
            RefuseTransactSql(token.text);
        return found->second.replacement;
    }

    const std::vector<TaggedValue>* m_parameters;
    std::set<const char*> m_textMarkers;          // by their place in the source
    std::map<std::string, Variable> m_variables;  // by folded name
    std::vector<RewrittenStatement> m_statements;
};

}  // namespace

std::vector<RewrittenStatement> RewriteTransactSql(std::string_view text) {
    return Rewriter().Rewrite(SplitTransactSql(text));
}

std::vector<RewrittenStatement> RewriteWithoutCase(std::string_view text, const std::vector<TaggedValue>& parameters) {
    return Rewriter(&parameters).Rewrite(SplitTransactSql(text));
}

}  // namespace quellbrook::sql
