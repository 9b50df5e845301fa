#include "host/sql/TransactSqlRewriter.h"

#include "base/Text.h"
#include "host/sql/TransactSqlTokens.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <set>
#include <span>

namespace quellbrook::sql {

namespace {

using Tokens = std::span<const Token>;
// Words by their first letter; asked for every word of every statement.
class WordTable {
public:
    WordTable(std::initializer_list<std::string_view> words) {
        for (const std::string_view word : words) m_words[static_cast<size_t>(word[0] - 'A')].push_back(word);
    }

    bool Holds(const Token& token) const {
        if (!token.Is(TokenKind::Word)) return false;
        const char first = static_cast<char>(token.text[0] & ~0x20);
        if (first < 'A' || first > 'Z') return false;
        const auto& words = m_words[static_cast<size_t>(first - 'A')];
        return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.IsWord(word); });
    }

private:
    std::array<std::vector<std::string_view>, 26> m_words;
};

// Words that mean something in Transact-SQL alone, or something else there.
const WordTable refusedWords = {
    "APPLY", "BEGIN", "BROWSE", "BULK", "CHECKPOINT", "COMMIT", "COMPUTE", "CONTAINS", "CREATE", "CURRENT_DATE",
    "CURRENT_TIME", "CURRENT_TIMESTAMP", "CURRENT_USER", "CURSOR", "DBCC", "DECLARE", "DROP", "EXEC", "EXECUTE",
    "FETCH", "FOR", "FREETEXT", "GOTO", "HOLDLOCK", "IDENTITY", "IF", "MERGE", "NOLOCK", "OPENQUERY", "OPENROWSET",
    "OPENXML", "OPTION", "PERCENT", "PIVOT", "PRINT", "RAISERROR", "ROLLBACK", "ROWGUIDCOL", "SESSION_USER",
    "SYSTEM_USER", "TABLESAMPLE", "TOP", "TRUNCATE", "UNPIVOT", "USE", "USER", "WAITFOR", "WHILE", "WITH"};

const WordTable refusedFunctions = {
    "CAST", "CHARINDEX", "CHOOSE", "CONCAT", "CONVERT", "DATALENGTH", "DATEADD", "DATEDIFF", "DATENAME", "DATEPART",
    "DAY", "DB_NAME", "FORMAT", "GETDATE", "GETUTCDATE", "IDENT_CURRENT", "IIF", "ISDATE", "ISNULL", "ISNUMERIC",
    "LEFT", "LEN", "MONTH", "NEWID", "OBJECT_ID", "PARSE", "PATINDEX", "REPLICATE", "REVERSE", "RIGHT",
    "SCOPE_IDENTITY", "SPACE", "STR", "STUFF", "SYSDATETIME", "TRY_CAST", "TRY_CONVERT", "YEAR"};

const WordTable aggregates = {"AVG", "COUNT", "MAX", "MIN", "SUM"};

// A table's or column's name without what marks it, folded; empty for any other token.
std::string NameOf(const Token& token) {
    switch (token.kind) {
        case TokenKind::Word: return FoldCase(token.text);
        case TokenKind::QuotedName: return FoldCase(token.text.substr(1, token.text.size() - 2));
        case TokenKind::Temporary: return FoldCase(token.text);
        default: return {};
    }
}

std::string_view TextAt(Tokens tokens, size_t position) {
    return position < tokens.size() ? tokens[position].text : tokens.back().text;
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
        if (tokens[0].IsWord("DECLARE")) return Declare(tokens);
        if (tokens[0].IsWord("SELECT") && tokens.size() > 1 && tokens[1].Is(TokenKind::Variable)) return Assign(tokens);
        if (tokens[0].IsWord("CREATE") || tokens[0].IsWord("DROP"))
            TemporaryTable(tokens);
        else
            Plain(tokens);
        for (auto& [name, variable] : m_variables) variable.isSpent = variable.isSet;
    }

    void Declare(Tokens tokens) {
        size_t at = 1;
        if (at >= tokens.size() || !tokens[at].Is(TokenKind::Variable)) RefuseTransactSql(TextAt(tokens, at));
        const std::string name = FoldCase(tokens[at].text);
        if (m_variables.count(name) > 0) RefuseTransactSql(tokens[at].text);
        ++at;
        if (at < tokens.size() && tokens[at].IsWord("AS")) ++at;
        if (at >= tokens.size() || !tokens[at].Is(TokenKind::Word)) RefuseTransactSql(TextAt(tokens, at));
        SkipSize(tokens, ++at);
        if (at < tokens.size()) RefuseTransactSql(tokens[at].text);
        m_variables[name];
    }

    void SkipSize(Tokens tokens, size_t& at) {
        if (at >= tokens.size() || !tokens[at].IsSign('(')) return;
        const size_t comma = at + 2;
        const bool hasTwo = comma < tokens.size() && tokens[comma].IsSign(',');
        const size_t end = at + (hasTwo ? 4 : 2);
        if (end >= tokens.size() || !tokens[end].IsSign(')') || !tokens[end - 1].Is(TokenKind::Number) ||
            !tokens[at + 1].Is(TokenKind::Number))
            RefuseTransactSql(TextAt(tokens, at));
        at = end + 1;
    }

    void Assign(Tokens tokens) {
        const Token& target = tokens[1];
        const auto found = m_variables.find(FoldCase(target.text));
        if (found == m_variables.end() || found->second.isSet) RefuseTransactSql(target.text);
        if (tokens.size() < 4 || !tokens[2].IsSign('=')) RefuseTransactSql(TextAt(tokens, 2));
        const Tokens select = tokens.subspan(3);
        CheckWords(select);
        CheckOneRow(select, target);

        Variable variable;
        variable.replacement = "(SELECT " + Emit(select) + ")";
        variable.isSet = true;
        for (const Token& token : select) {
            if (token.Is(TokenKind::Variable)) RefuseTransactSql(token.text);
            if (const std::string name = NameOf(token); !name.empty()) variable.names.insert(name);
        }
        found->second = std::move(variable);
    }

    // The select list is one expression with an aggregate; no clause may make more than one row of it.
    static void CheckOneRow(Tokens select, const Token& target) {
        const size_t from = FindWord(select, "FROM");
        if (from == select.size()) RefuseTransactSql(target.text);
        bool hasAggregate = false;
        size_t depth = 0;
        for (size_t i = 0; i < from; ++i) {
            if (select[i].IsSign('(')) ++depth;
            if (select[i].IsSign(')') && depth > 0) --depth;
            if (depth == 0 && select[i].IsSign(',')) RefuseTransactSql(select[i].text);
            if (depth == 0 && aggregates.Holds(select[i]) && select[i + 1].IsSign('(')) hasAggregate = true;
        }
        if (!hasAggregate) RefuseTransactSql(target.text);
        for (const char* word : {"UNION", "EXCEPT", "INTERSECT", "HAVING", "ORDER", "LIMIT", "OVER"})
            if (const size_t at = FindWord(select, word); at < select.size()) RefuseTransactSql(select[at].text);
        CheckGrouping(select);
    }

    static void CheckGrouping(Tokens select) {
        const size_t group = FindWord(select, "GROUP");
        if (group == select.size()) return;
        const size_t where = FindWord(select, "WHERE");
        const std::string column = group + 3 == select.size() && select[group + 1].IsWord("BY")
                                       ? NameOf(select[group + 2]) : std::string();
        if (column.empty() || where > group) RefuseTransactSql(select[group].text);
        if (const size_t alternative = FindWord(select, "OR", where); alternative < group)
            RefuseTransactSql(select[alternative].text);
        for (size_t i = where + 1; i + 2 < group; ++i)
            if (HoldsEqual(select, i, group, column)) return;
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

    void TemporaryTable(Tokens tokens) {
        const bool creates = tokens[0].IsWord("CREATE");
        if (tokens.size() < 3 || !tokens[1].IsWord("TABLE")) RefuseTransactSql(TextAt(tokens, 1));
        if (!tokens[2].Is(TokenKind::Temporary)) RefuseTransactSql(tokens[2].text);
        if (!creates && tokens.size() > 3) RefuseTransactSql(tokens[3].text);
        CheckWords(tokens.subspan(2));
        ++(creates ? m_result.createdTables : m_result.droppedTables);
        m_result.statements.push_back(Emit(tokens, creates));
    }

    void Plain(Tokens tokens) {
        const char* second = nullptr;
        if (tokens[0].IsWord("INSERT"))
            second = "INTO";
        else if (tokens[0].IsWord("DELETE"))
            second = "FROM";
        else if (!tokens[0].IsWord("SELECT") && !tokens[0].IsWord("UPDATE"))
            RefuseTransactSql(tokens[0].text);
        if (second && (tokens.size() < 2 || !tokens[1].IsWord(second))) RefuseTransactSql(TextAt(tokens, 1));
        CheckWords(tokens);
        if (tokens[0].IsWord("SELECT")) {
            if (const size_t into = FindWord(tokens, "INTO"); into < tokens.size()) RefuseTransactSql(tokens[into].text);
        } else {
            CheckTarget(tokens, second ? 2 : 1);
        }
        m_result.statements.push_back(Emit(tokens));
    }

    // The target of a change: a name, and none that a variable in use here reads.
    void CheckTarget(Tokens tokens, size_t at) {
        if (at >= tokens.size() || NameOf(tokens[at]).empty() || tokens[at].IsWord("OR"))
            RefuseTransactSql(TextAt(tokens, at));
        if (tokens[0].IsWord("UPDATE")) {
            if (at + 1 < tokens.size() && !tokens[at + 1].IsWord("SET") && !tokens[at + 1].IsSign('.'))
                RefuseTransactSql(tokens[at + 1].text);
            if (const size_t from = FindWord(tokens, "FROM"); from < tokens.size()) RefuseTransactSql(tokens[from].text);
        }
        while (at + 2 < tokens.size() && tokens[at + 1].IsSign('.')) at += 2;
        const std::string written = NameOf(tokens[at]);
        for (const Token& token : tokens) {
            if (!token.Is(TokenKind::Variable)) continue;
            const auto found = m_variables.find(FoldCase(token.text));
            if (found != m_variables.end() && found->second.names.count(written) > 0) RefuseTransactSql(token.text);
        }
    }

    static void CheckWords(Tokens tokens) {
        size_t depth = 0;
        for (size_t i = 0; i < tokens.size(); ++i) {
            if (tokens[i].IsSign('(')) ++depth;
            if (tokens[i].IsSign(')') && depth-- == 0) RefuseTransactSql(tokens[i].text);
            const bool isCall = i + 1 < tokens.size() && tokens[i + 1].IsSign('(');
            if (refusedWords.Holds(tokens[i]) || (isCall && refusedFunctions.Holds(tokens[i])))
                RefuseTransactSql(tokens[i].text);
            if (i > 0 && (IsTwice(TokenKind::Text, tokens, i) || (tokens[i].touchesPrevious && AreQuoted(tokens, i))))
                RefuseTransactSql(tokens[i].text);
        }
        if (depth > 0) RefuseTransactSql("(");
    }

    static bool IsTwice(TokenKind kind, Tokens tokens, size_t at) {
        return tokens[at].Is(kind) && tokens[at - 1].Is(kind);
    }

    // Two names that would become one if written side by side with their quotes.
    static bool AreQuoted(Tokens tokens, size_t at) {
        const auto isQuoted = [](const Token& token) {
            return token.Is(TokenKind::QuotedName) || token.Is(TokenKind::Temporary);
        };
        return isQuoted(tokens[at]) && isQuoted(tokens[at - 1]);
    }

    std::string Emit(Tokens tokens, bool createsTable = false) const {
        std::string text;
        const char* copied = tokens[0].text.data();
        for (size_t i = 0; i < tokens.size(); ++i) {
            const Token& token = tokens[i];
            text.append(copied, token.text.data());
            copied = token.text.data() + token.text.size();
            if (token.Is(TokenKind::Temporary))
                text += '"' + (m_target == SqlTarget::PostgreSql ? FoldCase(token.text) : std::string(token.text)) + '"';
            else if (token.Is(TokenKind::Variable))
                text += Use(token);
            else if (token.isNational)
                text += token.text.substr(1);
            else
                text += token.text;
            if (createsTable && i == 0) text += " TEMPORARY";
        }
        return text;
    }

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
