#pragma once

#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/Fail.h"
#include "fuzz/ReferenceDatabase.h"
#include "sql/tsql/TransactSqlRewriter.h"
#include "sql/tsql/TransactSqlTokens.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::fuzz {

using namespace quellbrook::sql;

struct Outcome {
    std::optional<TranslatedText> translated;  // nothing where the text is refused
    std::string refusal;
};

inline Outcome Translate(std::string_view source, SqlTarget target) {
    try {
        return {TranslateTransactSql(source, target), ""};
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", source);
        return {std::nullopt, error.Description()};
    }
}

inline bool IsAccepted(std::string_view source) { return Translate(source, SqlTarget::Sqlite).translated.has_value(); }

// The sentence quotes a part of the text; a long part's beginning, a NUL as a blank.
inline void CheckRefusal(std::string source, const std::string& refusal) {
    const std::string before = "The database in use can't carry out this statement: \"";
    const std::string after = "\" is not part of its language.";
    Check(refusal.starts_with(before) && refusal.ends_with(after), "Another sentence", refusal);
    std::replace(source.begin(), source.end(), '\0', ' ');
    const size_t length = refusal.size() - before.size() - after.size();
    Check(source.find(refusal.substr(before.size(), length)) != std::string::npos, "Another part is quoted", refusal);
}

struct Literals {
    std::vector<std::string> texts;
    bool hasVariables = false;
};

inline void Collect(std::string_view text, Literals& literals) {
    for (const Token& token : ScanTransactSql(text)) {
        if (token.Is(TokenKind::Variable)) literals.hasVariables = true;
        if (token.Is(TokenKind::Text)) literals.texts.emplace_back(token.text.substr(token.isNational ? 1 : 0));
    }
}

// Scanning a statement that came out also shows that its quotes are balanced.
inline void CheckLiterals(std::string_view source, const std::vector<std::string>& statements) {
    Literals before, after;
    Collect(source, before);
    for (const std::string& statement : statements) Collect(statement, after);
    std::erase(after.texts, "''");  // of ESCAPE '', which is added
    if (!before.hasVariables) std::erase(before.texts, "''");
    Check(!after.hasVariables, "A variable is left", source);
    Check(before.hasVariables || before.texts == after.texts, "Literals changed", source);
    for (const std::string& literal : after.texts)
        Check(std::find(before.texts.begin(), before.texts.end(), literal) != before.texts.end(),
              "A literal was made up", source);
}

// The grammar holds nothing that SQLite can't read; names that it does not know, and the like, are another matter.
inline void CheckReadBySqlite(const std::string& statement) {
    const std::string failure = ReferenceDatabase::Instance().FailureOf(statement);
    for (const char* fault : {"syntax error", "near \"", "unrecognized token", "incomplete input", "no such function",
                              "wrong number of arguments", "unknown join type"})
        if (failure.find(fault) != std::string::npos) Fail(failure.c_str(), statement);
}

inline void CheckTwice(const std::string& statement) {
    const Token first = ScanTransactSql(statement).front();
    if (first.IsWord("CREATE") || first.IsWord("DROP")) return;
    const Outcome again = Translate(statement, SqlTarget::Sqlite);
    Check(again.translated && again.translated->statements == std::vector<std::string>{statement},
          "A translation changes when it is translated again", statement);
}

// PostgreSQL gets the same tokens as SQLite, but for names of temporary tables in small letters, the additions, and the
// grouping of a variable's SELECT that SQLite can do without.
inline void CheckPostgreSql(const std::string& sqlite, const std::string& postgreSql) {
    const std::vector<Token> expected = ScanTransactSql(sqlite), found = ScanTransactSql(postgreSql);
    size_t at = 0;
    for (size_t i = 0; i < found.size(); ++i) {
        const bool isSame = at < expected.size() && EqualsNoCase(expected[at].text, found[i].text) &&
                            (expected[at].Is(TokenKind::QuotedName) || expected[at].text == found[i].text);
        if (isSame) {
            ++at;
            continue;
        }
        const std::string pair = std::string(found[i].text) + " " +
                                 std::string(i + 1 < found.size() ? found[i + 1].text : std::string_view());
        const bool isAddition = pair == "NULLS FIRST" || pair == "NULLS LAST" || pair == "ESCAPE ''";
        const bool isGrouping = pair == "GROUP BY";
        Check(isAddition || isGrouping, "PostgreSQL gets something else", postgreSql);
        i += isGrouping ? 2 : 1;
    }
    Check(at == expected.size(), "PostgreSQL does not get all", postgreSql);
}

// Any text is refused with a sentence that quotes it, or comes out with its literals as they were, readable by SQLite,
// and the same however often it is translated.
inline void CheckTranslation(std::string_view source) {
    const Outcome sqlite = Translate(source, SqlTarget::Sqlite);
    const Outcome again = Translate(source, SqlTarget::Sqlite);
    Check(sqlite.refusal == again.refusal, "Refused in two ways", source);
    if (!sqlite.translated) return CheckRefusal(std::string(source), sqlite.refusal);
    Check(sqlite.translated->statements == again.translated->statements, "Translated in two ways", source);
    CheckLiterals(source, sqlite.translated->statements);
    for (const std::string& statement : sqlite.translated->statements) {
        CheckTwice(statement);
        CheckReadBySqlite(statement);
    }
    const Outcome postgreSql = Translate(source, SqlTarget::PostgreSql);
    if (!postgreSql.translated) return CheckRefusal(std::string(source), postgreSql.refusal);
    CheckLiterals(source, postgreSql.translated->statements);
    const size_t count = sqlite.translated->statements.size();
    Check(postgreSql.translated->statements.size() == count, "Another number of statements", source);
    for (size_t i = 0; i < count; ++i)
        CheckPostgreSql(sqlite.translated->statements[i], postgreSql.translated->statements[i]);
}

}  // namespace quellbrook::fuzz
