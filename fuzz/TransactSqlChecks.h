#pragma once

#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/Fail.h"
#include "fuzz/ReferenceDatabase.h"
#include "sql/tsql/NormalizedStatement.h"
#include "sql/tsql/TransactSqlRewriter.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::fuzz {

using namespace quellbrook::sql;

struct Outcome {
    std::optional<std::vector<std::string>> statements;  // empty if the text is refused
    std::string refusal;
};

inline Outcome Rewrite(std::string_view source) {
    try {
        std::vector<std::string> statements;
        for (const RewrittenStatement& statement : RewriteTransactSql(source)) statements.push_back(statement.text);
        return {statements, ""};
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", source);
        return {std::nullopt, error.Description()};
    }
}

inline bool IsAccepted(std::string_view source) { return Rewrite(source).statements.has_value(); }

// The message quotes part of the text: only the beginning of a long part, and a blank instead of NUL.
inline void CheckRefusal(std::string source, const std::string& refusal) {
    const std::string before = "This database does not support \"";
    const std::string after = "\" in a statement.";
    Check(refusal.starts_with(before) && refusal.ends_with(after), "Another message", refusal);
    std::replace(source.begin(), source.end(), '\0', ' ');
    const size_t length = refusal.size() - before.size() - after.size();
    Check(source.find(refusal.substr(before.size(), length)) != std::string::npos, "Another part is quoted", refusal);
}

struct Literals {
    std::vector<std::string> texts;
    bool hasVariables = false;
};

// Rewritten statements quote the names of temporary tables. Without the quotes, the text can be split again.
inline void Collect(std::string_view text, Literals& literals) {
    const std::string unquoted = Replace(text, "\"", "");
    for (const Token& token : SplitTransactSql(unquoted)) {
        if (token.Is(TokenKind::Variable)) literals.hasVariables = true;
        if (token.Is(TokenKind::Text)) literals.texts.emplace_back(InsideQuotes(token));
    }
}

// Splitting a rewritten statement also shows that its quotes are balanced.
inline void CheckLiterals(std::string_view source, const std::vector<std::string>& statements) {
    Literals before, after;
    Collect(source, before);
    for (const std::string& statement : statements) Collect(statement, after);
    Check(!after.hasVariables, "A variable is left", source);
    Check(before.hasVariables || before.texts == after.texts, "Literals changed", source);
    for (const std::string& literal : after.texts)
        Check(std::find(before.texts.begin(), before.texts.end(), literal) != before.texts.end(), "A literal was added",
              source);
}

// SQLite must be able to parse everything in the grammar. Errors such as unknown names do not matter.
inline void CheckParsedBySqlite(const std::string& statement) {
    const std::string failure = ReferenceDatabase::Instance().FailureOf(statement);
    for (const char* fault : {"syntax error", "near \"", "unrecognized token", "incomplete input", "no such function",
                              "wrong number of arguments", "unknown join type"})
        if (failure.find(fault) != std::string::npos) Fail(failure.c_str(), statement);
}

inline void CheckRewrittenAgain(const std::string& statement) {
    if (statement.find("\"#") != std::string::npos) return;
    const Outcome again = Rewrite(statement);
    Check(again.statements == std::vector<std::string>{statement}, "Rewriting again changes a statement", statement);
}

// A text is refused with a message that quotes it, or the result has the same literals, SQLite can parse it, and
// rewriting it again changes nothing.
inline void CheckRewritten(std::string_view source) {
    const Outcome outcome = Rewrite(source);
    if (!outcome.statements) return CheckRefusal(std::string(source), outcome.refusal);
    CheckLiterals(source, *outcome.statements);
    for (const std::string& statement : *outcome.statements) {
        CheckRewrittenAgain(statement);
        CheckParsedBySqlite(statement);
    }
}

// Ignores leading zeros of a whole number.
inline std::string Plain(const std::string& text) {
    const bool isWhole =
        !text.empty() && text.size() <= 18 && text.find_first_not_of("0123456789") == std::string::npos;
    return isWhole ? std::to_string(std::stoll(text)) : text;
}

inline std::string Shown(const Token& token) {
    return Plain(token.Is(TokenKind::Text) ? Replace(InsideQuotes(token), "''", "'") : std::string(token.text));
}

// Inserting the values into a normalized statement restores the source.
inline void CheckNormalized(std::string_view source) {
    NormalizedStatement statement;
    try {
        if (!NormalizeStatement(source, statement)) return;
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", source);
        return Check(!IsAccepted(source), "Accepted, but not normalized", source);
    }
    Check(IsAccepted(source) == IsAccepted(statement.text), "Normalizing changes what is accepted", source);
    std::vector<std::string> expected, found;
    for (const Token& token : SplitTransactSql(source)) expected.push_back(Shown(token));
    for (const Token& token : SplitTransactSql(statement.text)) {
        if (!token.Is(TokenKind::Marker)) {
            found.push_back(Shown(token));
            continue;
        }
        const auto& value = statement.values.at(std::stoul(std::string(token.text.substr(1))) - 1);
        const auto* number = std::get_if<int64_t>(&value);
        found.push_back(number ? std::to_string(*number) : Plain(std::string(std::get<std::string_view>(value))));
    }
    Check(expected == found, "The normalized statement lost something", source);
}

inline void CheckText(std::string_view source) {
    CheckRewritten(source);
    CheckNormalized(source);
}

}  // namespace quellbrook::fuzz
